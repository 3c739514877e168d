#ifndef MARKERTIMESCALE_H
#define MARKERTIMESCALE_H

#include <QObject>
#include <QPointer>
#include <QVector>
#include <vxcore/vxtime.h>

class QWidget;
class VxPaneMgr;
class VxScene;
class VxTimeAxis;

/// The pixel columns of times in the strip of markers.
///
/// They are those of the time axis that a pane publishes, as long as that pane is visible in the
/// same window. Otherwise the play range fills the strip's width.
class MarkerTimeScale : public QObject
{
    Q_OBJECT
public:
    /// All borrowed; the strip is the parent. panes may be null.
    MarkerTimeScale(VxScene *scene, VxPaneMgr *panes, QWidget *strip);

    /// Columns of the strip, visible or not, limited to 2^30 either way.
    int xOf(VxTime time) const;
    /// The time at a column, in whole ticks.
    VxTime timeAt(int x) const;
    /// The first and the last column of the strip at which times are shown.
    int left() const;
    int right() const;
    /// True while the columns are those of a time axis.
    bool isAligned() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The columns may have changed.
    void changed();

private:
    void findAxis();
    void watchAxis();
    int axisOffset() const;

    VxScene *const m_scene;
    const QPointer<VxPaneMgr> m_panes;
    QWidget *const m_strip;
    QPointer<VxTimeAxis> m_axis;
    QVector<QPointer<QWidget>> m_watched; // the axis' widget, and those above it and the strip
};

#endif
