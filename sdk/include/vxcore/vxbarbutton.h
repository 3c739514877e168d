#ifndef VXBARBUTTON_H
#define VXBARBUTTON_H

#include <QtGui/QKeySequence>
#include <QtWidgets/QToolButton>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A button for a VxButtonBar: flat, its icon (without one its text) in the middle, with a fill
/// only while it is hovered, pressed or checked, because the bar draws the frame for all its
/// buttons. It does not take the keyboard focus on a click, so that a click on a transport button
/// leaves the focus in the view. The tool tip is the button's own or else its text, and names the
/// shortcut when there is one.
class VXCORE_EXPORT VxBarButton : public QToolButton
{
    Q_OBJECT

public:
    explicit VxBarButton(QWidget *parent = nullptr);
    /// `text` is not shown beside the icon but by the tool tip.
    VxBarButton(const QIcon &icon, const QString &text, QWidget *parent = nullptr);
    ~VxBarButton() override;

    /// The text of the tool tip; empty when the button has neither tool tip nor text. The shortcut
    /// is that of the default action, else the button's own (no mnemonics).
    QString toolTipText() const;

    /// The sides on which the button adjoins a neighbour: its fill has square corners there and
    /// reaches the edge. Set by the bar.
    void setJoinedEdges(Qt::Edges edges);
    Qt::Edges joinedEdges() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
