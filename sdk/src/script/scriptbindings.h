#ifndef SCRIPTBINDINGS_H
#define SCRIPTBINDINGS_H

class QScriptEngine;
class QScriptValue;
class VxKeySelection;

/// Script functions of host objects beyond their properties and slots. Each function sets the
/// prototypes of one family of classes on an engine.
namespace ScriptBindings {

/// Conversions of times, ranges and pointers to host objects.
void registerTypes(QScriptEngine *engine);
/// Properties and their keys.
void registerProperties(QScriptEngine *engine);
/// Elements and nodes.
void registerNodes(QScriptEngine *engine);
/// The scene: nodes, ranges, building.
void registerScene(QScriptEngine *engine);
/// The markers of the scene, `Scene.markers`.
void registerMarkers(QScriptEngine *engine);
/// The selected keys, with entries() and set().
QScriptValue makeKeySelection(QScriptEngine *engine, VxKeySelection *selection);
/// The application: panes and actions. Sets the globals Scene, App and Undo.
void registerApplication(QScriptEngine *engine);

} // namespace ScriptBindings

#endif
