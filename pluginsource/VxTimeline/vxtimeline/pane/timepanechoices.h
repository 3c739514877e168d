#ifndef TIMEPANECHOICES_H
#define TIMEPANECHOICES_H

#include "vxtimeline/pane/timepanechoice.h"

#include <QtCore/QVector>
#include <optional>

class QAction;
class QObject;

/// The actions registered with the pane: the check marks of choices, and the enabled state of the
/// others.
///
/// For key scope and property types the check marks are the pane's state. So the last requested
/// value is stored too, for actions that are registered afterwards.
class TimePaneChoices
{
public:
    using Family = TimePaneChoice::Family;

    const QVector<QAction *> &actions() const { return m_actions; }
    /// False for null and an action already in the list.
    bool add(QAction *action);
    /// The action may be partly destroyed, down to its QObject base.
    void remove(const QObject *action);

    /// The action's choice, if it is of that family and checkable; else null.
    static const TimePaneChoice *choiceOf(const QAction *action, Family family);
    /// Sets a check mark without any signal.
    static void setChecked(QAction *action, bool checked);

    /// Checks the actions of a family with the given value, and no other.
    void checkOnly(Family family, int value);
    /// Checks the actions of a family whose bits are all in flags; one without bits for no flags.
    void checkFlags(Family family, int flags);
    /// The first action of a family that is checked; null when none is.
    QAction *checkedAction(Family family) const;
    /// Its value; fallback when none is checked.
    int checkedValue(Family family, int fallback) const;
    /// The bits of all actions of a family that are checked.
    int checkedFlags(Family family) const;

    /// Sets the mark of a newly added action by the scope or types requested last.
    void restoreScope(QAction *action, int value);
    void restoreTypes(QAction *action, int value) const;
    void setRequestedScope(int scope) { m_requestedScope = scope; }
    void setRequestedTypes(int types) { m_requestedTypes = types; }

    /// Enables the actions that need selected keys, and those that need copied ones. Next to free
    /// without a change since the last call: a selection is reported once for each row.
    void updateEnabled(bool hasSelectedKeys, bool hasCopiedKeys);

private:
    QVector<QAction *> m_actions;
    std::optional<int> m_requestedScope;
    std::optional<int> m_requestedTypes;
    /// The arguments of the last update; invalid after an action was added.
    bool m_enabledValid = false;
    bool m_hasSelectedKeys = false;
    bool m_hasCopiedKeys = false;
};

#endif
