#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <memory>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnodehelper.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

QScriptValue getProperties(ScriptArguments &arguments)
{
    auto *element = arguments.self<VxElement>();
    return toScriptArray(arguments.engine(), element->getPropertyGroups()->collectAllProperties());
}

/// Adds a new property of a kind to the element that the function is called on.
template <class Property, class Value>
QScriptValue addProperty(ScriptArguments &arguments, const Value &defaultValue)
{
    auto *element = arguments.self<VxElement>();
    const QString name = arguments.text(0, "name");
    const QString path = arguments.text(1, "path");
    if (path.count(QLatin1Char('/')) > VxProperty::MaxGroupDepth)
        arguments.fail(ScriptText::tr("accepts at most %1 groups, one in another, as argument 2 "
                                      "(path)")
                           .arg(VxProperty::MaxGroupDepth));
    auto property = std::make_unique<Property>(name, defaultValue);
    if (!element->addProperty(property.get(), path))
        arguments.fail(ScriptText::tr("cannot use the name \"%1\": it is in use").arg(name));
    return toScript(arguments.engine(), property.release());
}

QScriptValue addFloatProperty(ScriptArguments &arguments)
{
    return addProperty<VxFloatProperty>(
        arguments, static_cast<float>(arguments.number(2, "defaultValue", 0.0)));
}

QScriptValue addIntProperty(ScriptArguments &arguments)
{
    return addProperty<VxIntProperty>(arguments, arguments.integer(2, "defaultValue", 0));
}

QScriptValue addBoolProperty(ScriptArguments &arguments)
{
    return addProperty<VxBoolProperty>(arguments, arguments.boolean(2, "defaultValue", false));
}

QScriptValue addStringProperty(ScriptArguments &arguments)
{
    return addProperty<VxStringProperty>(arguments,
                                         arguments.has(2) ? arguments.text(2, "value") : QString());
}

QScriptValue getChildren(ScriptArguments &arguments)
{
    auto *node = arguments.self<VxNode>();
    const bool recursive = arguments.boolean(0, "recursive", false);
    QVector<VxNode *> children;
    node->getNodeChildren(children, recursive);
    return toScriptArray(arguments.engine(), children);
}

QScriptValue setParent(ScriptArguments &arguments)
{
    auto *node = arguments.self<VxNode>();
    auto *parent = arguments.objectOrNull<VxNode>(0, "parent");
    const int index = arguments.integer(1, "index", -1);
    const bool keepPlace = arguments.boolean(2, "keepPlace", false);
    const VxNode *oldParent = node->getNodeParent();
    if (!node->setNodeParent(parent, index))
        return false;
    const VxTime now = vxScene ? vxScene->getTime() : 0;
    return !keepPlace || VxNodeHelper::keepWorldTransform(node, oldParent, parent, now);
}

QScriptValue select(ScriptArguments &arguments)
{
    auto *node = arguments.self<VxNode>();
    node->select(arguments.boolean(0, "onOff", true));
    return {};
}

QScriptValue addObject(ScriptArguments &arguments)
{
    auto *node = arguments.self<VxNode>();
    const QString name = arguments.text(0, "name");
    auto *object = new VxObject(name);
    node->setObject(object);
    return toScript(arguments.engine(), object);
}

QScriptValue addMorph(ScriptArguments &arguments)
{
    auto *object = arguments.self<VxObject>();
    const QString name = arguments.text(0, "name");
    auto *morph = new VxMorph(name);
    object->addSubElement(morph);
    return toScript(arguments.engine(), morph);
}

const ScriptFunction elementFunctions[] = {
    {"getProperties()", getProperties, 0},         {"addFloatProperty()", addFloatProperty, 3},
    {"addIntProperty()", addIntProperty, 3},       {"addBoolProperty()", addBoolProperty, 3},
    {"addStringProperty()", addStringProperty, 3},
};

const ScriptFunction nodeFunctions[] = {
    {"getChildren()", getChildren, 1},
    {"setParent()", setParent, 3},
    {"select()", select, 1},
    {"addObject()", addObject, 1},
};

const ScriptFunction objectFunctions[] = {
    {"addMorph()", addMorph, 1},
};

} // namespace

void ScriptBindings::registerNodes(QScriptEngine *engine)
{
    QScriptValue element = engine->newObject();
    installFunctions(engine, element, elementFunctions);
    for (const int type : {qMetaTypeId<VxElement *>(), qMetaTypeId<VxMorph *>()})
        engine->setDefaultPrototype(type, element);

    QScriptValue node = engine->newObject();
    node.setPrototype(element);
    installFunctions(engine, node, nodeFunctions);
    for (const int type :
         {qMetaTypeId<VxNode *>(), qMetaTypeId<VxBone *>(), qMetaTypeId<VxSkeleton *>()})
        engine->setDefaultPrototype(type, node);

    QScriptValue object = engine->newObject();
    object.setPrototype(element);
    installFunctions(engine, object, objectFunctions);
    engine->setDefaultPrototype(qMetaTypeId<VxObject *>(), object);
}
