#ifndef VXPLAYHEADWGT_H
#define VXPLAYHEADWGT_H

#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxtime.h>

/// The marker that shows the current time on the dope sheet's ruler.
///
/// It only shows: clicks pass through to the widget below. It is a small square, drawn by the
/// style, that moves in its parent without limits: a time before the play range places it left of
/// the ruler.
///
/// The order and argument names of the slots are seen by scripts: keep them.
class VxPlayheadWgt : public QWidget
{
    Q_OBJECT
public:
    explicit VxPlayheadWgt(QWidget *parent = nullptr);
    ~VxPlayheadWgt() override;

public Q_SLOTS:
    /// For a scroll bar; its value is ignored.
    void slider(int value);
    /// The left edge of the keys column in the parent, in pixels.
    void setHorizontalOffset(int offset);
    /// The marker's upper edge in the parent, in pixels.
    void setVerticalOffset(int offset);
    /// Moves the marker to the scene's current time.
    void updatePosition();
    void handleTimeChanged(VxTime time);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
