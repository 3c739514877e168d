#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
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
                ? ScriptText::tr("cannot nest nodes deeper than %1 levels").arg(VxNode::MaxDepth)
                : ScriptText::tr("cannot add a node below one that is not in the scene"));
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

const char *const DisplayUnits[] = {"frames", "seconds", "ticks", "timecode"};

// Getters and setters in one: a setter is called with the new value.

QScriptValue displayUnit(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "displayUnit");
    auto *scene = arguments.self<VxScene>();
    if (arguments.failed())
        return arguments.error();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return QString::fromLatin1(DisplayUnits[display.unit]);
    const QString unit = arguments.text(0, "unit");
    for (int i = 0; i < 4; ++i) {
        if (unit != QLatin1String(DisplayUnits[i]))
            continue;
        display.unit = VxTimeDisplay::Unit(i);
        VxSceneTimeDisplay::of(scene)->setDisplay(display);
        return engine->undefinedValue();
    }
    arguments.fail(ScriptText::tr("expects frames, seconds, ticks or timecode, not %1").arg(unit));
    return arguments.error();
}

QScriptValue displayRate(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "displayRate");
    auto *scene = arguments.self<VxScene>();
    if (arguments.failed())
        return arguments.error();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return display.rate.isValid() ? display.rate.value() : 0.0;
    const double number = arguments.number(0, "framesPerSecond");
    display.rate = VxFrameRate::of(number);
    if (number != 0 && !display.rate.isValid())
        arguments.fail(ScriptText::tr("expects a rate up to %1 frames a second, or 0 for that of "
                                      "the time step")
                           .arg(VxFrameRate::MaxRate));
    if (arguments.failed())
        return arguments.error();
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    return engine->undefinedValue();
}

QScriptValue dropFrame(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "dropFrame");
    auto *scene = arguments.self<VxScene>();
    if (arguments.failed())
        return arguments.error();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return display.dropsFrames;
    display.dropsFrames = arguments.boolean(0, "dropFrame");
    if (arguments.failed())
        return arguments.error();
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    return engine->undefinedValue();
}

QScriptValue timeText(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "timeText()");
    const auto *scene = arguments.self<VxScene>();
    const int time = arguments.integer(0, "time");
    return arguments.failed() ? arguments.error() : VxSceneTimeDisplay::textOf(scene, time);
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

QScriptValue setRangeObject(ScriptArguments &arguments,
                            void (VxScene::*setter)(const VxTimeRange &))
{
    auto *scene = arguments.self<VxScene>();
    const VxTimeRange range = arguments.range(0, "range");
    if (arguments.failed())
        return arguments.error();
    (scene->*setter)(range);
    return arguments.engine()->undefinedValue();
}

QScriptValue setPlayRange(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setPlayRange()");
    return setRangeObject(arguments, &VxScene::setPlayRange);
}

QScriptValue setAnimRange(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setAnimRange()");
    return setRangeObject(arguments, &VxScene::setAnimRange);
}

QScriptValue setTicks(ScriptArguments &arguments, const char *name, void (VxScene::*setter)(int))
{
    auto *scene = arguments.self<VxScene>();
    const int ticks = arguments.integer(0, name);
    if (arguments.failed())
        return arguments.error();
    (scene->*setter)(ticks);
    return arguments.engine()->undefinedValue();
}

QScriptValue setTime(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setTime()");
    return setTicks(arguments, "time", &VxScene::setTime);
}

QScriptValue setTimeStep(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "setTimeStep()");
    return setTicks(arguments, "ticksPerFrame", &VxScene::setTimeStep);
}

QScriptValue timeProperty(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "time");
    if (arguments.count() > 0)
        return setTicks(arguments, "time", &VxScene::setTime);
    const auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : scene->getTime();
}

QScriptValue timeStepProperty(QScriptContext *context, QScriptEngine *)
{
    ScriptArguments arguments(context, "timeStep");
    if (arguments.count() > 0)
        return setTicks(arguments, "ticksPerFrame", &VxScene::setTimeStep);
    const auto *scene = arguments.self<VxScene>();
    return arguments.failed() ? arguments.error() : scene->getTimeStep();
}

QScriptValue stepTime(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "stepTime()");
    auto *scene = arguments.self<VxScene>();
    const int frames = arguments.integer(0, "frames");
    const bool forward = arguments.boolean(1, "forward");
    if (arguments.failed())
        return arguments.error();
    scene->stepTime(frames, forward);
    return engine->undefinedValue();
}

QScriptValue setPrimarySelection(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "setPrimarySelection()");
    auto *scene = arguments.self<VxScene>();
    const bool isNone = arguments.count() > 0 && context->argument(0).isNull();
    VxNode *node = isNone ? nullptr : arguments.object<VxNode>(0, "node");
    if (arguments.failed())
        return arguments.error();
    scene->setPrimarySelection(node);
    return engine->undefinedValue();
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
    {"setPlayRange", setPlayRange, 1},
    {"setAnimRange", setAnimRange, 1},
    {"setTime", setTime, 1},
    {"setTimeStep", setTimeStep, 1},
    {"stepTime", stepTime, 2},
    {"setPrimarySelection", setPrimarySelection, 1},
    {"setPlayTicks", setPlayTicks, 2},
    {"setAnimTicks", setAnimTicks, 2},
    {"timeText", timeText, 1},
};

} // namespace

void ScriptBindings::registerScene(QScriptEngine *engine)
{
    QScriptValue prototype = engine->newObject();
    installFunctions(engine, prototype, sceneFunctions);
    const auto addProperty = [&](const char *name, QScriptEngine::FunctionSignature function,
                                 QScriptValue::PropertyFlags flags) {
        prototype.setProperty(QLatin1String(name), engine->newFunction(function),
                              flags | QScriptValue::SkipInEnumeration);
    };
    const auto both = QScriptValue::PropertyGetter | QScriptValue::PropertySetter;
    addProperty("time", timeProperty, both);
    addProperty("timeStep", timeStepProperty, both);
    addProperty("markers", getMarkers, QScriptValue::PropertyGetter);
    addProperty("displayUnit", displayUnit, both);
    addProperty("displayRate", displayRate, both);
    addProperty("dropFrame", dropFrame, both);
    engine->setDefaultPrototype(qMetaTypeId<VxScene *>(), prototype);
}
