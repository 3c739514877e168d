#ifndef SCRIPT_SCRIPTMEMBERS_H
#define SCRIPT_SCRIPTMEMBERS_H

#include <QtCore/QStringList>

class QScriptValue;

/// What can follow a dot in a script, found by reading properties only: completion must not run
/// anything.
namespace ScriptMembers {

/// The steps of an expression such as `nodes[0].label`: names and indexes. Empty when it is none.
QStringList steps(const QString &expression);
/// The value that an expression leads to from the global object; invalid when it leads nowhere.
QScriptValue resolve(const QScriptValue &global, const QString &expression);
/// The names of a value's own members and those of its prototypes, sorted, each once. Only those
/// that can be written behind a dot.
QStringList names(const QScriptValue &value);

} // namespace ScriptMembers

#endif
