#ifndef CAMERASCRIPT_H
#define CAMERASCRIPT_H

class QScriptEngine;

/// Gives scripts the global object Camera: get() returns the camera of the scene as an object,
/// set() changes the members that an object has, frameSelection() and frameAll() work in a window.
/// A wrong member is an error, and nothing is changed.
void addCameraFunctions(QScriptEngine *engine);

#endif
