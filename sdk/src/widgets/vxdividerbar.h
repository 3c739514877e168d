#ifndef VXDIVIDERBAR_H
#define VXDIVIDERBAR_H

#include <vxcore/vxdynamicdividerwgt.h>

/// The bar of a divider: draws the grip and converts mouse gestures to distances. It is independent
/// of the divided widgets: every distance is measured from the press, so that nothing accumulates.
class VxDividerBar : public QWidget
{
    Q_OBJECT

public:
    /// `orientation` is that of the divider: Qt::Vertical makes a horizontal bar.
    VxDividerBar(Qt::Orientation orientation, VxDynamicDividerWgt::BarStyle barStyle,
                 QWidget *parent);

    /// Pixels across the bar.
    int thickness() const;

Q_SIGNALS:
    void dragStarted();
    /// The distance from the press along the split, in pixels.
    void dragged(int distance);
    void doubleClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int positionAlong(const QMouseEvent &event) const;
    void setHeld(bool held);
    void drawLine(QPainter &painter) const;

    const Qt::Orientation m_orientation;
    const VxDynamicDividerWgt::BarStyle m_barStyle;
    bool m_held = false;
    int m_pressPosition = 0; // global, along the split
};

#endif
