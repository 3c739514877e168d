#ifndef RUNNINGENGINES_H
#define RUNNINGENGINES_H

class QScriptContext;
class QScriptEngine;

/// The script engines of the process, for finding the script that calls into the host.
namespace RunningEngines {

void add(QScriptEngine *engine);
void remove(QScriptEngine *engine);

/// The native call that a script is executing, in the newest engine; null when no script calls.
QScriptContext *callingContext();

} // namespace RunningEngines

#endif
