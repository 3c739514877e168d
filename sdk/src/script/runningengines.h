#ifndef SCRIPT_RUNNINGENGINES_H
#define SCRIPT_RUNNINGENGINES_H

class QScriptContext;
class QScriptEngine;

/// The script engines of the process, to find the script that calls into the host.
namespace RunningEngines {

void add(QScriptEngine *engine);
void remove(QScriptEngine *engine);

/// The native call that a script is in, of the engine made last; null when no script calls.
QScriptContext *callingContext();

} // namespace RunningEngines

#endif
