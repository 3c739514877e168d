#ifndef POSESCRIPT_H
#define POSESCRIPT_H

class QScriptEngine;

/// Gives scripts the global object Poses with a function for each command on poses. Every function
/// returns an object with `done` and `message`; a wrong argument is an error.
void addPoseFunctions(QScriptEngine *engine);

#endif
