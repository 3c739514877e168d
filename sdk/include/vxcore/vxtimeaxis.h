#ifndef VXTIMEAXIS_H
#define VXTIMEAXIS_H

#include <QtCore/QObject>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>
#include <vxcore/vxtimerange.h>

class QWidget;

/// The horizontal time scale of a pane: its key marks, its ruler and its time line are at the
/// pixels that xOf() gives.
///
/// A pane publishes its axis by being its parent, so that strips, overlays and tools of other
/// modules can align with it. Pixels are those of overlayParent(), counted from its left edge.
/// While the pane is too narrow to show a scale, or has none yet, the functions return values of
/// the last scale.
class VXCORE_EXPORT VxTimeAxis : public QObject
{
    Q_OBJECT
public:
    explicit VxTimeAxis(QObject *parent = nullptr);
    ~VxTimeAxis() override;

    /// The axis that a widget or one of its children publishes; null for none. Owned by the pane.
    static VxTimeAxis *of(const QObject *pane);

    /// The pixel column of the centre of the mark of a key at a time, whether or not it is visible;
    /// limited to 2^29 pixels either way.
    virtual int xOf(VxTime time) const = 0;
    /// The time at a pixel column, in whole ticks, visible or not; the inverse of xOf() to a pixel:
    /// xOf(timeAt(x)) is x or, where several ticks share a pixel, at most one beside it.
    virtual VxTime timeAt(int x) const = 0;
    /// The times from the first to the last pixel column of the axis. More than the play range,
    /// because a mark at either end of the play range is visible as a whole.
    virtual VxTimeRange visible() const = 0;
    /// The widget in which an overlay can be made as a child; never null while the pane exists. It
    /// contains all views along the axis and nothing else.
    virtual QWidget *overlayParent() const = 0;
    /// The change of a value by a pixel upwards in the view that shows curves, above 0; 0 (unless
    /// overridden) while no such view is visible.
    virtual double valuePerPixel() const;

    /// Shows values an eighth of that view's height higher a step, below 0 lower. False (unless
    /// overridden) while it is not visible.
    virtual bool panValues(int steps);
    /// Enlarges the values of that view about its middle by steps, below 0 reduces them. False
    /// (unless overridden) while it is not visible.
    virtual bool zoomValues(int steps);

Q_SIGNALS:
    /// The scale or the visible range may have changed. Emitted at most once per change of the
    /// view.
    void changed();
};

#endif
