#ifndef VXTIMERANGESLIDER_H
#define VXTIMERANGESLIDER_H

#include "vxtimeline/widgets/timerangemath.h"

#include <QtWidgets/QAbstractSlider>
#include <memory>

class QScrollBar;

/// A bar for the whole animation range, with the play range in it.
///
/// It stores no range: each paint reads the scene, and drags write straight to the scene, which
/// notifies all views. The body moves the range, the squares at its ends move one end; a double
/// click shows the whole animation range, and the next one restores the former range. The value and
/// range of the base class are not used.
class VxTimeRangeSlider : public QAbstractSlider
{
    Q_OBJECT
public:
    explicit VxTimeRangeSlider(QWidget *parent = nullptr);
    ~VxTimeRangeSlider() override;

    /// The range control: a scroll bar in frames that is never shown. Owned by the slider.
    QScrollBar *getScrollBar() const;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateCursor(TimeRangeMath::Part part, const QPoint &position);
    void hover(const QPoint &position);
    void drag(int x, bool isFinal);
    /// Drops a drag whose release was lost; the play range is that of the press again.
    void dropDrag();
    void paintHandle(QPainter *painter, const QRect &rect, int which, bool hovered) const;
    class Private;
    std::unique_ptr<Private> d;
};

#endif
