#ifndef TITLEBARBUTTON_H
#define TITLEBARBUTTON_H

#include <QAbstractButton>

/// A small flat button of a pane's title bar. Its glyph is painted with the palette's colours, so
/// that it is crisp at every ratio and follows the palette.
class TitleBarButton : public QAbstractButton
{
    Q_OBJECT
public:
    enum class Glyph { Options, Float, Close };

    explicit TitleBarButton(Glyph glyph, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    const Glyph m_glyph;
};

#endif
