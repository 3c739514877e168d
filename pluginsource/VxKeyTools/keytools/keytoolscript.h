#ifndef KEYTOOLSCRIPT_H
#define KEYTOOLSCRIPT_H

#include <QtScript/QScriptEngine>

/// The script object `KeyTools`: a function a tool, with the tool's name, which takes an object
/// with the tool's parameters and returns one with `done`, `message`, `keys`, `channels`, `after`,
/// `merged` and `error`. An invalid argument is a script error.
void registerKeyToolScript(QScriptEngine *engine);

#endif
