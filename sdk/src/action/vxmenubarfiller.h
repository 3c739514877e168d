#ifndef VXMENUBARFILLER_H
#define VXMENUBARFILLER_H

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

class QMenu;
class QMenuBar;
class VxAction;

/// Adds actions to a menu bar by their paths and groups.
///
/// A menu is found by its title, whatever its creator. Within a menu the entries of one group are
/// adjacent, in their menu order, with separators between groups and between the sections of a
/// group; an action that is there already stays in place.
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
    /** The group proper: the part before the first "/". */
    static QString groupName(const QString &actionGroup);
    /** The path of sub-menus: the part after the first "/". */
    static QString groupPath(const QString &actionGroup);

private:
    void addAction(VxAction *action) const;
    QMenu *barMenu(const QString &part) const;

    QMenuBar *m_menuBar;
};

#endif
