#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

#include <memory>

namespace {

QScriptValue getNodes(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "getNodes()");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : toScriptArray(engine, scene->getNodes());
}

QScriptValue getRootNodes(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "getRootNodes()");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : toScriptArray(engine, scene->getRootNodes());
}

QScriptValue getSelectedNodes(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "getSelectedNodes()");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error()
                              : toScriptArray(engine, scene->getSelectedNodes());
}

template <class Node> QScriptValue addNode(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    const QString name = arguments.text(0, "name");
    const bool hasParent = arguments.has(1) && !arguments.context()->argument(1).isNull();
    auto *parent = hasParent ? arguments.object<VxNode>(1, "parent") : nullptr;
    if (arguments.failed())
        return arguments.error();
    auto node = std::make_unique<Node>(name);
    const bool fits =
        !parent || (parent->getScene() == scene && parent->getDepth() < VxNode::MaxDepth);
    if (!fits || !scene->addNode(node.get(), parent)) {
        arguments.fail(
            parent && parent->getDepth() >= VxNode::MaxDepth
                ? QStringLiteral("cannot nest nodes deeper than %1 levels").arg(VxNode::MaxDepth)
                : QStringLiteral("cannot add a node below one that is not in the scene"));
        return arguments.error();
    }
    return toScript(arguments.engine(), node.release());
}

QScriptValue addPlainNode(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "addNode()");
    return addNode<VxNode>(arguments);
}

QScriptValue addBone(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "addBone()");
    return addNode<VxBone>(arguments);
}

QScriptValue addSkeleton(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "addSkeleton()");
    return addNode<VxSkeleton>(arguments);
}

QScriptValue getPlayRange(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "getPlayRange()");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : engine->toScriptValue(scene->getPlayRange());
}

QScriptValue getAnimRange(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "getAnimRange()");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : engine->toScriptValue(scene->getAnimRange());
}

QScriptValue getMarkers(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "markers");
    auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : toScript(engine, VxMarkers::of(scene));
}

QScriptValue setRange(ScriptArguments &arguments, void (VxScene::*setter)(const VxTimeRange &))
{
    auto *scene = arguments.self<VxScene>();
    const int start = arguments.integer(0, "start");
    const VxTimeRange range(start, arguments.integer(1, "end"));
    if (arguments.failed())
        return arguments.error();
    (scene->*setter)(range);
    return arguments.engine()->undefinedValue();
}

QScriptValue setPlayTicks(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setPlayTicks()");
    return setRange(arguments, &VxScene::setPlayRange);
}

QScriptValue setAnimTicks(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setAnimTicks()");
    return setRange(arguments, &VxScene::setAnimRange);
}

const ScriptFunction sceneFunctions[] = {
    {"getNodes", getNodes, 0},
    {"getRootNodes", getRootNodes, 0},
    {"getSelectedNodes", getSelectedNodes, 0},
    {"addNode", addPlainNode, 2},
    {"addBone", addBone, 2},
    {"addSkeleton", addSkeleton, 2},
    {"getPlayRange", getPlayRange, 0},
    {"getAnimRange", getAnimRange, 0},
    {"setPlayTicks", setPlayTicks, 2},
    {"setAnimTicks", setAnimTicks, 2},
};

} // namespace

void ScriptBindings::registerScene(QScriptEngine *engine)
{
    QScriptValue prototype = engine->newObject();
    installFunctions(engine, prototype, sceneFunctions);
    prototype.setProperty(QStringLiteral("markers"), engine->newFunction(getMarkers),
                          QScriptValue::PropertyGetter | QScriptValue::SkipInEnumeration);
    engine->setDefaultPrototype(qMetaTypeId<VxScene *>(), prototype);
}
