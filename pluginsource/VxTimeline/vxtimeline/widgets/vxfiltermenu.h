#ifndef VXFILTERMENU_H
#define VXFILTERMENU_H

#include <QtWidgets/QMenu>

/// A menu of choices to tick that stays open while several are ticked.
class VxFilterMenu : public QMenu
{
    Q_OBJECT
public:
    explicit VxFilterMenu(QWidget *parent = nullptr);

    /// Emits filterChanged(), unless an entry is being ticked in the open menu, which emits it once
    /// after the entry has had its effect.
    void notifyFilterChanged();

Q_SIGNALS:
    void filterChanged();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void tick(QAction *action, QMouseEvent *event);

    bool m_ticking = false;
};

#endif
