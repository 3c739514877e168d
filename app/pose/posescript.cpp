#include "pose/posescript.h"

#include "create/boneedits.h"
#include "pose/inbetween.h"
#include "widgets/studiotext.h"

#include <QScriptContext>
#include <QScriptEngine>
#include <cmath>
#include <vxcore/vxscene.h>

namespace {

QScriptValue toScript(QScriptEngine *engine, const PoseResult &result)
{
    QScriptValue object = engine->newObject();
    object.setProperty(QStringLiteral("done"), result.done);
    object.setProperty(QStringLiteral("message"), result.message);
    return object;
}

template <PoseResult (*command)(VxScene *)>
QScriptValue run(QScriptContext *, QScriptEngine *engine)
{
    return toScript(engine, command(vxScene));
}

PoseResult copyPose(VxScene *scene)
{
    return PoseCommands::copy(scene);
}

PoseResult pastePose(VxScene *scene)
{
    return PoseCommands::paste(scene, false);
}

PoseResult pastePoseMirrored(VxScene *scene)
{
    return PoseCommands::paste(scene, true);
}

QScriptValue breakdown(QScriptContext *context, QScriptEngine *engine)
{
    const QScriptValue percent = context->argument(0);
    if (!percent.isNumber() || !std::isfinite(percent.toNumber()))
        return context->throwError(
            StudioText::tr("breakdown() expects a finite number as argument 1 (percent)"));
    static const char *const names[] = {"neighbours", "rest", "average"};
    const QString requested = context->argument(1).isUndefined() ? QLatin1String(names[0])
                                                                 : context->argument(1).toString();
    for (int i = 0; i < 3; ++i) {
        if (requested == QLatin1String(names[i]))
            return toScript(engine, InBetween::breakdown(vxScene, percent.toNumber() / 100,
                                                         Breakdown::Toward(i)));
    }
    return context->throwError(
        StudioText::tr("breakdown() expects neighbours, rest or average as argument 2 (toward)"));
}

QScriptValue cycle(QScriptContext *context, QScriptEngine *engine)
{
    const double count = context->argument(0).toNumber();
    if (!context->argument(0).isNumber() || count != std::floor(count) || std::abs(count) > 1e9)
        return context->throwError(
            StudioText::tr("cycle() expects a whole number as argument 1 (count)"));
    return toScript(engine, InBetween::cycle(vxScene, int(count), context->argument(1).toBool()));
}

QScriptValue setBoneLength(QScriptContext *context, QScriptEngine *engine)
{
    const QScriptValue length = context->argument(0);
    if (!length.isNumber() || !std::isfinite(length.toNumber()))
        return context->throwError(
            StudioText::tr("setBoneLength() expects a finite number as argument 1 (length)"));
    PoseResult result;
    result.message = BoneEdits::setLength(vxScene, length.toNumber(), &result.done);
    return toScript(engine, result);
}

QScriptValue differingEnds(QScriptContext *, QScriptEngine *)
{
    return InBetween::differingEnds(vxScene);
}

} // namespace

void addPoseFunctions(QScriptEngine *engine)
{
    const struct
    {
        const char *name;
        QScriptEngine::FunctionSignature function;
    } functions[] = {{"copy", run<copyPose>},
                     {"paste", run<pastePose>},
                     {"pasteMirrored", run<pastePoseMirrored>},
                     {"mirrorSelected", run<PoseCommands::mirrorSelected>},
                     {"resetToRest", run<PoseCommands::resetToRest>},
                     {"setRest", run<PoseCommands::setRest>},
                     {"setBoneLength", setBoneLength},
                     {"selectMirror", run<PoseCommands::selectMirror>},
                     {"selectChildren", run<PoseCommands::selectChildren>},
                     {"selectParents", run<PoseCommands::selectParents>},
                     {"breakdown", breakdown},
                     {"hold", run<InBetween::hold>},
                     {"cycle", cycle},
                     {"matchEnds", run<InBetween::matchEnds>},
                     {"differingEnds", differingEnds}};
    QScriptValue poses = engine->newObject();
    for (const auto &each : functions)
        poses.setProperty(QLatin1String(each.name), engine->newFunction(each.function));
    engine->globalObject().setProperty(QStringLiteral("Poses"), poses);
}
