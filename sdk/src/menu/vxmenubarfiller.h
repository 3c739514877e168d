#ifndef VXMENUBARFILLER_H
#define VXMENUBARFILLER_H

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

class QAction;
class QMenu;
class QMenuBar;
class VxAction;

/// Sorts actions into a menu bar by the paths and groups they name.
///
/// A menu is found by its title, whoever made it. Within a menu the entries of one group stand
/// together, by the order they ask for, with separators between groups and between the sections of
/// a group; an action that is there already stays where it is.
class VxMenuBarFiller
{
public:
    explicit VxMenuBarFiller(QMenuBar *menuBar)
        : m_menuBar(menuBar)
    {
    }

    void addActions(const QVector<VxAction *> &actions) const;

    /** The parts of a path: separated by "/", without empty ones. */
    static QStringList pathParts(const QString &path);
    /** The group proper: what stands before the first "/". */
    static QString groupName(const QString &actionGroup);
    /** The path of sub-menus: what stands behind the first "/". */
    static QString groupPath(const QString &actionGroup);

private:
    void addAction(VxAction *action) const;
    QMenu *barMenu(const QString &title) const;

    QMenuBar *m_menuBar;
};

#endif
