#ifndef VXSTYLEDBUTTON_H
#define VXSTYLEDBUTTON_H

#include <QtWidgets/QPushButton>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A push button for narrow spaces, mostly one that opens a menu (setMenu()): its text is elided
/// to the available width, and an arrow at its end indicates more choices. The frame is drawn by
/// the style, so that style sheets apply; icon, text and arrow are laid out here, because a style
/// neither elides text nor can omit the arrow. The tool tip shows an elided text unless the button
/// has its own. Besides the space key, F4 and Alt+Down open the menu, as they do on combo boxes.
class VXCORE_EXPORT VxStyledButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)
    Q_PROPERTY(bool displayDownArrow READ displayDownArrow WRITE setDisplayDownArrow)
    Q_PROPERTY(ButtonStyle buttonStyle READ buttonStyle WRITE setButtonStyle)
    Q_PROPERTY(Qt::Alignment buttonTextFormat READ buttonTextFormat WRITE setButtonTextFormat)

public:
    enum ButtonStyle {
        Default, ///< the frame of push buttons
        Flat,    ///< frame only under the mouse, while pressed or checked
        DropDown // the frame of push buttons, the arrow set off by a line
    };
    Q_ENUM(ButtonStyle)

    explicit VxStyledButton(QWidget *parent = nullptr);
    explicit VxStyledButton(const QString &text, QWidget *parent = nullptr);
    ~VxStyledButton() override;

    /// Where a too long text is elided. Qt::ElideNone, the initial value, cuts it off and makes
    /// the button's smallest width that of the whole text.
    void setElideMode(Qt::TextElideMode mode);
    Qt::TextElideMode elideMode() const;

    /// Whether an arrow is drawn at the end; initially not, with a menu or without.
    void setDisplayDownArrow(bool display);
    bool displayDownArrow() const;

    void setButtonStyle(ButtonStyle style);
    ButtonStyle buttonStyle() const;

    /// The alignment of icon and text beside the arrow: Qt::AlignLeft, Qt::AlignHCenter (the
    /// initial value) or Qt::AlignRight. Left is the side on which reading starts.
    void setButtonTextFormat(Qt::Alignment alignment);
    Qt::Alignment buttonTextFormat() const;

    /// The text as it is painted at the present size.
    QString displayedText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
