#ifndef VXMENUACTIONS_H
#define VXMENUACTIONS_H

#include <QMenu>
#include <QStringList>
#include <vxcore/vxaction.h>

/// Three actions for the tests of menus, which count how often they ran.
class MenuTestAction : public VxAction
{
public:
    explicit MenuTestAction(const QString &text)
        : VxAction(text)
    {
    }
    int numRuns = 0;

protected:
    void executeAction() override { ++numRuns; }
};

class AlphaAction : public MenuTestAction
{
    Q_OBJECT
public:
    AlphaAction()
        : MenuTestAction(QStringLiteral("Alpha"))
    {
    }
};

class BetaAction : public MenuTestAction
{
    Q_OBJECT
public:
    BetaAction()
        : MenuTestAction(QStringLiteral("Beta"))
    {
    }
};

class GammaAction : public MenuTestAction
{
    Q_OBJECT
public:
    GammaAction()
        : MenuTestAction(QStringLiteral("Gamma"))
    {
    }
};

/** The entries as text, hidden ones left out: "-" for a separator, "Title(...)" for a sub-menu. */
inline QString shownEntries(const QMenu *menu)
{
    QStringList entries;
    for (const QAction *entry : menu->actions()) {
        if (!entry->isVisible())
            continue;
        if (entry->menu())
            entries.append(
                QStringLiteral("%1(%2)").arg(entry->text(), shownEntries(entry->menu())));
        else
            entries.append(entry->isSeparator() ? QStringLiteral("-") : entry->text());
    }
    return entries.join(QLatin1Char(' '));
}

#endif
