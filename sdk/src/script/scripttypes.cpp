#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <vxcore/vxaction.h>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxundostack.h>

namespace {

template <class Class> QScriptValue pointerToScript(QScriptEngine *engine, Class *const &object)
{
    return toScript(engine, object);
}

template <class Class> void pointerFromScript(const QScriptValue &value, Class *&object)
{
    object = qobject_cast<Class *>(value.toQObject());
}

template <class Class> void registerPointer(QScriptEngine *engine)
{
    qScriptRegisterMetaType<Class *>(engine, pointerToScript<Class>, pointerFromScript<Class>);
}

/// Host classes have their own conversions. Other objects, such as the toolkit's widgets in the
/// arguments of signals, are hidden from scripts.
template <class Class> QScriptValue toolkitObjectToScript(QScriptEngine *engine, Class *const &)
{
    return engine->nullValue();
}

template <class Class> void registerToolkitPointer(QScriptEngine *engine)
{
    qScriptRegisterMetaType<Class *>(engine, toolkitObjectToScript<Class>,
                                     pointerFromScript<Class>);
}

QScriptValue rangeToScript(QScriptEngine *engine, const VxTimeRange &range)
{
    QScriptValue value = engine->newObject();
    value.setProperty(QStringLiteral("start"), range.getStart());
    value.setProperty(QStringLiteral("end"), range.getEnd());
    return value;
}

void rangeFromScript(const QScriptValue &value, VxTimeRange &range)
{
    range = VxTimeRange(value.property(QStringLiteral("start")).toInt32(),
                        value.property(QStringLiteral("end")).toInt32());
}

} // namespace

void ScriptBindings::registerTypes(QScriptEngine *engine)
{
    qRegisterMetaType<VxTime>("VxTime");
    qScriptRegisterMetaType<VxTimeRange>(engine, rangeToScript, rangeFromScript);
    registerToolkitPointer<QObject>(engine);
    registerToolkitPointer<QWidget>(engine);
    registerPointer<VxElement>(engine);
    registerPointer<VxNode>(engine);
    registerPointer<VxBone>(engine);
    registerPointer<VxSkeleton>(engine);
    registerPointer<VxObject>(engine);
    registerPointer<VxMorph>(engine);
    registerPointer<VxProperty>(engine);
    registerPointer<VxNumericProperty>(engine);
    registerPointer<VxFloatProperty>(engine);
    registerPointer<VxIntProperty>(engine);
    registerPointer<VxBoolProperty>(engine);
    registerPointer<VxStringProperty>(engine);
    registerPointer<VxScene>(engine);
    registerPointer<VxUndoStack>(engine);
    registerPointer<VxPane>(engine);
    registerPointer<VxAction>(engine);
    registerPointer<VxActionMenu>(engine);
    qScriptRegisterSequenceMetaType<QVector<VxProperty *>>(engine);
}
