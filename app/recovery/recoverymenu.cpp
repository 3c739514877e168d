#include "recovery/recoverymenu.h"

#include "recovery/autosave.h"
#include "widgets/menumnemonics.h"

#include <QActionGroup>
#include <algorithm>

RecoveryMenu::RecoveryMenu(const QString &title, AutoSave *autoSave, QAction *recover,
                           QWidget *parent)
    : QMenu(title, parent)
    , m_autoSave(autoSave)
    , m_recover(recover)
{
    setObjectName(QStringLiteral("RecoveryMenu"));
    connect(autoSave, &AutoSave::minutesChanged, this, &RecoveryMenu::fill);
    fill();
}

/** Adds the present interval to the usual ones if it differs. */
void RecoveryMenu::fill()
{
    clear();
    delete m_group;
    m_group = new QActionGroup(this);
    QVector<int> choices = {1, 3, 5, 10, 30};
    if (!choices.contains(m_autoSave->minutes()) && m_autoSave->minutes() > 0)
        choices.append(m_autoSave->minutes());
    std::sort(choices.begin(), choices.end());
    for (const int minutes : qAsConst(choices))
        addChoice(minutes);
    addChoice(0);
    addSeparator();
    addAction(m_recover);
    MenuMnemonics::add(this);
}

void RecoveryMenu::addChoice(int minutes)
{
    const QString text = minutes == 0 ? tr("&Never") : tr("Every %n Minutes", nullptr, minutes);
    // Queued: the handler refills the menu that owns the entry.
    QAction *entry = addAction(text);
    connect(
        entry, &QAction::triggered, m_autoSave,
        [save = m_autoSave, minutes] { save->setMinutes(minutes); }, Qt::QueuedConnection);
    entry->setCheckable(true);
    entry->setChecked(minutes == m_autoSave->minutes());
    m_group->addAction(entry);
}
