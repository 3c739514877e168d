#ifndef VXDYNAMICDIVIDERWGT_H
#define VXDYNAMICDIVIDERWGT_H

#include <QtCore/QList>
#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// Two widgets with a draggable bar between them. The stored state is a ratio, the first widget's
/// share of the space: it survives resizing, hiding and showing the second widget, and size limits
/// of the widgets that apply only at some sizes. A double click on the bar gives both widgets half.
/// The widgets become children of the divider.
class VXCORE_EXPORT VxDynamicDividerWgt : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double ratio READ ratio WRITE setRatio NOTIFY ratioChanged)

public:
    enum BarStyle {
        GripBar, ///< a bar with a grip
        LineBar  // a thin line
    };
    Q_ENUM(BarStyle)

    /// Qt::Vertical puts the first widget above the second, Qt::Horizontal beside it. `name`
    /// becomes the object name, with "Bar" appended that of the bar. Null for a widget leaves its
    /// side empty, as do its deletion and another parent.
    VxDynamicDividerWgt(QWidget *first, QWidget *second, QWidget *parent = nullptr,
                        Qt::Orientation orientation = Qt::Vertical, const QString &name = QString(),
                        BarStyle barStyle = GripBar);
    ~VxDynamicDividerWgt() override;

    /// The margin around everything, in pixels; initially 0, negative values count as 0.
    void setMargin(int margin);
    int margin() const;
    /// The space on either side of the bar, in pixels; initially 0, negative values count as 0.
    void setSpacing(int spacing);
    int spacing() const;

    /// With the second widget hidden the first one fills all, and there is no bar.
    void setSecondWidgetHidden(bool hidden);
    bool isSecondWidgetHidden() const;
    /// Without the bar the widgets adjoin and the split is kept.
    void setBarHidden(bool hidden);
    bool isBarHidden() const;

    /// The first widget's share of the space for both, 0 to 1; initially one half. Values outside
    /// are clamped; NaN is refused with a warning.
    void setRatio(double ratio);
    double ratio() const;
    /// The lengths of both widgets along the split as laid out now, in pixels; 0 for a hidden one.
    QList<int> sizes() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Sent when dragging, a double click or setRatio() changed the ratio.
    void ratioChanged(double ratio);

protected:
    void childEvent(QChildEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
