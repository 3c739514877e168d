#ifndef TIMEPANECHOICES_H
#define TIMEPANECHOICES_H

#include <QtCore/QVector>
#include <optional>

#include "vxtimeline/pane/timepanechoice.h"

class QAction;
class QObject;

// The actions that are registered with the pane: the check marks of those that stand for a choice,
// and which of the others can be used at present.
//
// For key scope and property types the check marks are the pane's state. So what was asked for last
// is kept beside them, for actions that are registered afterwards.
class TimePaneChoices
{
public:
    using Family = TimePaneChoice::Family;

    const QVector<QAction *> &actions() const { return m_actions; }
    bool contains(QAction *action) const { return m_actions.contains(action); }
    void add(QAction *action);
    // Only the QObject part may be left of it.
    void remove(const QObject *action);

    // The choice that an action stands for when it is of that family and can be checked.
    static const TimePaneChoice *choiceOf(const QAction *action, Family family);
    // Sets a check mark without any signal.
    static void setChecked(QAction *action, bool checked);

    // Checks the actions of a family whose value is the given one, and no other.
    void checkOnly(Family family, int value);
    // Checks the actions of a family whose bits are all in flags; one without bits for no flags.
    void checkFlags(Family family, int flags);
    // The first action of a family that is checked; null when none is.
    QAction *checkedAction(Family family) const;
    // Its value; fallback when none is checked.
    int checkedValue(Family family, int fallback) const;
    // The bits of all actions of a family that are checked.
    int checkedFlags(Family family) const;

    // Gives a newly added action the mark of the scope or types that were asked for last.
    void restoreScope(QAction *action, int value);
    void restoreTypes(QAction *action, int value) const;
    void setWantedScope(int scope) { m_wantedScope = scope; }
    void setWantedTypes(int types) { m_wantedTypes = types; }

    // Enables the actions that need selected keys, and those that need copied ones. Next to free
    // while nothing differs from the last call: a selection is reported once for each row.
    void updateEnabled(bool hasSelectedKeys, bool hasCopiedKeys);

private:
    QVector<QAction *> m_actions;
    std::optional<int> m_wantedScope;
    std::optional<int> m_wantedTypes;
    // What the actions are enabled for; not valid after one was added.
    bool m_enabledValid = false;
    bool m_hasSelectedKeys = false;
    bool m_hasCopiedKeys = false;
};

#endif
