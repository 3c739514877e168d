#ifndef VXTIMERANGESLIDER_H
#define VXTIMERANGESLIDER_H

#include <QtWidgets/QAbstractSlider>
#include <memory>

class QScrollBar;

// A bar that stands for the whole animation range, with the play range as a stretch inside.
//
// It keeps no range of its own: what it shows is read from the scene at each paint, and what is
// dragged is written straight to the scene, which tells everyone.
class VxTimeRangeSlider : public QAbstractSlider
{
    Q_OBJECT
public:
    explicit VxTimeRangeSlider(QWidget *parent = nullptr);
    ~VxTimeRangeSlider() override;

    // The range control: a scroll bar in frames that is never shown. Owned by the slider.
    QScrollBar *getScrollBar() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect playRangeRect() const;
    class Private;
    std::unique_ptr<Private> d;
};

#endif
