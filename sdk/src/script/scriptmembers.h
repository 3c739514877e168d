#ifndef SCRIPTMEMBERS_H
#define SCRIPTMEMBERS_H

#include <QtCore/QStringList>

class QScriptValue;

/// The possible names after a dot in a script, found by reading properties only: completion must
/// not run code.
namespace ScriptMembers {

/// The steps of an expression such as `nodes[0].label`: names and indexes. Empty for other forms.
QStringList steps(const QString &expression);
/// The value of an expression, starting at the global object; invalid when there is none.
QScriptValue resolve(const QScriptValue &global, const QString &expression);
/// The names of a value's own members and those of its prototypes, sorted, each once. Only valid
/// identifiers.
QStringList names(const QScriptValue &value);

} // namespace ScriptMembers

#endif
