#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <memory>
#include <vxcore/vxbone.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxskeleton.h>

namespace {

template <QVector<VxNode *> (VxScene::*get)() const>
QScriptValue getNodes(ScriptArguments &arguments)
{
    return toScriptArray(arguments.engine(), (arguments.self<VxScene>()->*get)());
}

template <class Node> QScriptValue addNode(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    const QString name = arguments.text(0, "name");
    auto *parent = arguments.has(1) ? arguments.objectOrNull<VxNode>(1, "parent") : nullptr;
    auto node = std::make_unique<Node>(name);
    const bool fits =
        !parent || (parent->getScene() == scene && parent->getDepth() < VxNode::MaxDepth);
    if (!fits || !scene->addNode(node.get(), parent))
        arguments.fail(
            parent && parent->getDepth() >= VxNode::MaxDepth
                ? ScriptText::tr("cannot nest nodes deeper than %1 levels").arg(VxNode::MaxDepth)
                : ScriptText::tr("cannot add a node below one that is not in the scene"));
    return toScript(arguments.engine(), node.release());
}

template <VxTimeRange (VxScene::*get)() const> QScriptValue getRange(ScriptArguments &arguments)
{
    return arguments.engine()->toScriptValue((arguments.self<VxScene>()->*get)());
}

QScriptValue getMarkers(ScriptArguments &arguments)
{
    return toScript(arguments.engine(), VxMarkers::of(arguments.self<VxScene>()));
}

const char *const DisplayUnits[] = {"frames", "seconds", "ticks", "timecode"};

// Getters and setters in one: a setter is called with the new value.

QScriptValue displayUnit(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return QString::fromLatin1(DisplayUnits[display.unit]);
    const QString unit = arguments.text(0, "unit");
    for (int i = 0; i < 4; ++i) {
        if (unit != QLatin1String(DisplayUnits[i]))
            continue;
        display.unit = VxTimeDisplay::Unit(i);
        VxSceneTimeDisplay::of(scene)->setDisplay(display);
        return {};
    }
    arguments.fail(ScriptText::tr("expects frames, seconds, ticks or timecode, not %1").arg(unit));
}

QScriptValue displayRate(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return display.rate.isValid() ? display.rate.value() : 0.0;
    const double number = arguments.number(0, "framesPerSecond");
    display.rate = VxFrameRate::of(number);
    if (number != 0 && !display.rate.isValid())
        arguments.fail(ScriptText::tr("expects a rate up to %1 frames a second, or 0 for that of "
                                      "the time step")
                           .arg(VxFrameRate::MaxRate));
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    return {};
}

QScriptValue dropFrame(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    if (arguments.count() == 0)
        return display.dropsFrames;
    display.dropsFrames = arguments.boolean(0, "dropFrame");
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    return {};
}

QScriptValue timeText(ScriptArguments &arguments)
{
    const auto *scene = arguments.self<VxScene>();
    return VxSceneTimeDisplay::textOf(scene, arguments.integer(0, "time"));
}

template <void (VxScene::*set)(const VxTimeRange &)>
QScriptValue setRangeTicks(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    const int start = arguments.integer(0, "start");
    (scene->*set)(VxTimeRange(start, arguments.integer(1, "end")));
    return {};
}

template <void (VxScene::*set)(const VxTimeRange &)>
QScriptValue setRange(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    (scene->*set)(arguments.range(0, "range"));
    return {};
}

QScriptValue setTicks(ScriptArguments &arguments, const char *name, void (VxScene::*setter)(int))
{
    auto *scene = arguments.self<VxScene>();
    (scene->*setter)(arguments.integer(0, name));
    return {};
}

QScriptValue setTime(ScriptArguments &arguments)
{
    return setTicks(arguments, "time", &VxScene::setTime);
}

QScriptValue setTimeStep(ScriptArguments &arguments)
{
    return setTicks(arguments, "ticksPerFrame", &VxScene::setTimeStep);
}

QScriptValue timeProperty(ScriptArguments &arguments)
{
    if (arguments.count() > 0)
        return setTicks(arguments, "time", &VxScene::setTime);
    return arguments.self<VxScene>()->getTime();
}

QScriptValue timeStepProperty(ScriptArguments &arguments)
{
    if (arguments.count() > 0)
        return setTicks(arguments, "ticksPerFrame", &VxScene::setTimeStep);
    return arguments.self<VxScene>()->getTimeStep();
}

QScriptValue stepTime(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    const int frames = arguments.integer(0, "frames");
    scene->stepTime(frames, arguments.boolean(1, "forward"));
    return {};
}

QScriptValue setPrimarySelection(ScriptArguments &arguments)
{
    auto *scene = arguments.self<VxScene>();
    scene->setPrimarySelection(arguments.objectOrNull<VxNode>(0, "node"));
    return {};
}

const ScriptFunction sceneFunctions[] = {
    {"getNodes()", getNodes<&VxScene::getNodes>, 0},
    {"getRootNodes()", getNodes<&VxScene::getRootNodes>, 0},
    {"getSelectedNodes()", getNodes<&VxScene::getSelectedNodes>, 0},
    {"addNode()", addNode<VxNode>, 2},
    {"addBone()", addNode<VxBone>, 2},
    {"addSkeleton()", addNode<VxSkeleton>, 2},
    {"getPlayRange()", getRange<&VxScene::getPlayRange>, 0},
    {"getAnimRange()", getRange<&VxScene::getAnimRange>, 0},
    {"setPlayRange()", setRange<&VxScene::setPlayRange>, 1},
    {"setAnimRange()", setRange<&VxScene::setAnimRange>, 1},
    {"setTime()", setTime, 1},
    {"setTimeStep()", setTimeStep, 1},
    {"stepTime()", stepTime, 2},
    {"setPrimarySelection()", setPrimarySelection, 1},
    {"setPlayTicks()", setRangeTicks<&VxScene::setPlayRange>, 2},
    {"setAnimTicks()", setRangeTicks<&VxScene::setAnimRange>, 2},
    {"timeText()", timeText, 1},
};

const ScriptFunction sceneProperties[] = {
    {"time", timeProperty, 0},       {"timeStep", timeStepProperty, 0}, {"markers", getMarkers, 0},
    {"displayUnit", displayUnit, 0}, {"displayRate", displayRate, 0},   {"dropFrame", dropFrame, 0},
};

} // namespace

void ScriptBindings::registerScene(QScriptEngine *engine)
{
    QScriptValue prototype = engine->newObject();
    installFunctions(engine, prototype, sceneFunctions);
    for (const ScriptFunction &property : sceneProperties) {
        const auto access = property.function == getMarkers
                                ? QScriptValue::PropertyFlags(QScriptValue::PropertyGetter)
                                : QScriptValue::PropertyGetter | QScriptValue::PropertySetter;
        prototype.setProperty(QLatin1String(property.name), toScript(engine, property),
                              access | QScriptValue::SkipInEnumeration);
    }
    engine->setDefaultPrototype(qMetaTypeId<VxScene *>(), prototype);
}
