#ifndef VXMOUSEBUTTON_H
#define VXMOUSEBUTTON_H

#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A small button that consists of a picture, one for each of its states. It can be clicked, and
/// held and dragged, such as to pan a view: while the left button is down dragged() gives the
/// mouse delta. pressed() is sent once at the press and released() once at the end of the hold,
/// wherever the mouse is then, so that one gesture is one pair. clicked() is sent only for a
/// release on the button without a drag.
class VXCORE_EXPORT VxMouseButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit VxMouseButton(QWidget *parent = nullptr);
    VxMouseButton(const QPixmap &normal, const QPixmap &hovered, const QPixmap &pressed,
                  QWidget *parent = nullptr);
    ~VxMouseButton() override;

    /// A null picture for hovered falls back to the normal one, one for pressed to the hovered one.
    /// While disabled the button shows the normal picture dimmed by the style.
    void setPixmaps(const QPixmap &normal, const QPixmap &hovered, const QPixmap &pressed);
    QPixmap normalPixmap() const;

    /// The size of the normal picture in logical pixels.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The mouse delta since the press, in logical pixels of the screen. Sent for each move while
    /// the left button is held.
    void dragged(const QPoint &delta);

protected:
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
