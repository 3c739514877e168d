#ifndef VIEWPORTKEYS_H
#define VIEWPORTKEYS_H

#include <QObject>

class QAction;
class QKeyEvent;
class QWidget;

/// Gives the shortcuts of a viewport's actions to the viewport while the mouse is over it, though
/// another widget has the focus. Text fields keep all keys, and so do widgets along a time axis
/// with the pane around them, dialogs and open menus.
class ViewportKeys : public QObject
{
    Q_OBJECT
public:
    /// The viewport owns the object.
    explicit ViewportKeys(QWidget *viewport);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isActive(const QWidget *focus) const;
    QAction *actionOf(const QKeyEvent &press) const;

    QWidget *const m_viewport;
};

#endif
