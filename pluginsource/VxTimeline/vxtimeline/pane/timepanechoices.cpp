#include "vxtimeline/pane/timepanechoices.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QAction>

namespace {

enum class Needs { SelectedKeys, CopiedKeys };

// Actions are identified by class name here, because the pane does not include them.
const struct ActionNeed
{
    const char *className;
    Needs needs;
} actionNeeds[] = {
    {"VxTimePaneCopySelectedKeysAction", Needs::SelectedKeys},
    {"VxTimePaneDeleteSelectedKeysAction", Needs::SelectedKeys},
    {"VxTimePaneSetInterpTcbAction", Needs::SelectedKeys},
    {"VxTimePaneSetInterpLinearAction", Needs::SelectedKeys},
    {"VxTimePaneSetInterpConstantAction", Needs::SelectedKeys},
    {"VxTimePanePasteKeysAction", Needs::CopiedKeys},
};

const ActionNeed *findNeed(const QAction *action)
{
    const char *className = action->metaObject()->className();
    for (const ActionNeed &need : actionNeeds) {
        if (qstrcmp(need.className, className) == 0)
            return &need;
    }
    return nullptr;
}

} // namespace

bool TimePaneChoices::add(QAction *action)
{
    if (!action || m_actions.contains(action))
        return false;
    m_actions.append(action);
    m_enabledValid = false;
    return true;
}

void TimePaneChoices::remove(const QObject *action)
{
    for (int i = m_actions.size() - 1; i >= 0; --i) {
        if (static_cast<const QObject *>(m_actions.at(i)) == action)
            m_actions.removeAt(i);
    }
}

const TimePaneChoice *TimePaneChoices::choiceOf(const QAction *action, Family family)
{
    const auto *choice = dynamic_cast<const TimePaneChoice *>(action);
    return choice && choice->family() == family && action->isCheckable() ? choice : nullptr;
}

void TimePaneChoices::setChecked(QAction *action, bool checked)
{
    const QSignalBlocker blocker(action);
    action->setChecked(checked);
}

void TimePaneChoices::checkOnly(Family family, int value)
{
    for (QAction *action : qAsConst(m_actions)) {
        if (const TimePaneChoice *choice = choiceOf(action, family))
            setChecked(action, choice->value() == value);
    }
}

void TimePaneChoices::checkFlags(Family family, int flags)
{
    for (QAction *action : qAsConst(m_actions)) {
        const TimePaneChoice *choice = choiceOf(action, family);
        if (!choice)
            continue;
        const int value = choice->value();
        setChecked(action, (flags & value) == value && (value != 0 || flags == 0));
    }
}

QAction *TimePaneChoices::checkedAction(Family family) const
{
    for (QAction *action : m_actions) {
        if (choiceOf(action, family) && action->isChecked())
            return action;
    }
    return nullptr;
}

int TimePaneChoices::checkedValue(Family family, int fallback) const
{
    const QAction *action = checkedAction(family);
    return action ? choiceOf(action, family)->value() : fallback;
}

int TimePaneChoices::checkedFlags(Family family) const
{
    int flags = 0;
    for (const QAction *action : m_actions) {
        const TimePaneChoice *choice = choiceOf(action, family);
        if (choice && action->isChecked())
            flags |= choice->value();
    }
    return flags;
}

// An action of the same family may have checked itself before this one was added.
void TimePaneChoices::restoreScope(QAction *action, int value)
{
    if (!m_requestedScope)
        return;
    if (value == *m_requestedScope)
        checkOnly(TimePaneChoice::KeyScopeFamily, value);
    else
        setChecked(action, false);
}

void TimePaneChoices::restoreTypes(QAction *action, int value) const
{
    if (m_requestedTypes)
        setChecked(action, (*m_requestedTypes & value) != 0);
}

void TimePaneChoices::updateEnabled(bool hasSelectedKeys, bool hasCopiedKeys)
{
    if (m_enabledValid && hasSelectedKeys == m_hasSelectedKeys && hasCopiedKeys == m_hasCopiedKeys)
        return;
    m_enabledValid = true;
    m_hasSelectedKeys = hasSelectedKeys;
    m_hasCopiedKeys = hasCopiedKeys;
    for (QAction *action : qAsConst(m_actions)) {
        if (const ActionNeed *need = findNeed(action))
            action->setEnabled(need->needs == Needs::SelectedKeys ? hasSelectedKeys
                                                                  : hasCopiedKeys);
    }
}
