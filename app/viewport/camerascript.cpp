#include "viewport/camerascript.h"

#include "viewport/viewportwidget.h"
#include "widgets/studiotext.h"

#include <QScriptContext>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <cmath>
#include <vxcore/vxscene.h>

namespace {

struct CameraNumber
{
    const char *name;
    float VxCameraState::*member;
};

constexpr CameraNumber CameraNumbers[] = {{"distance", &VxCameraState::distance},
                                          {"yaw", &VxCameraState::yaw},
                                          {"pitch", &VxCameraState::pitch},
                                          {"fieldOfView", &VxCameraState::fieldOfView}};

VxCameraState presentState()
{
    if (const ViewportWidget *view = ViewportWidget::current())
        return view->camera().state();
    return VxSceneCamera::stateOf(vxScene).value_or(VxCameraState());
}

void setPresentState(const VxCameraState &state)
{
    ViewportWidget *view = ViewportWidget::current();
    if (!view) {
        VxSceneCamera::of(vxScene)->setState(state);
        return;
    }
    ViewportCamera camera = view->camera();
    camera.setState(state);
    view->setCamera(camera);
}

QScriptValue cameraObject(QScriptEngine *engine)
{
    const VxCameraState state = presentState();
    QScriptValue object = engine->newObject();
    QScriptValue target = engine->newArray(3);
    for (int axis = 0; axis < 3; ++axis)
        target.setProperty(quint32(axis), double(state.target[axis]));
    object.setProperty(QStringLiteral("target"), target);
    for (const CameraNumber &number : CameraNumbers)
        object.setProperty(QLatin1String(number.name), double(state.*number.member));
    object.setProperty(QStringLiteral("orthographic"), state.orthographic);
    return object;
}

bool readNumber(const QScriptValue &value, float *number)
{
    *number = float(value.toNumber());
    return value.isNumber() && std::isfinite(*number);
}

bool readTarget(const QScriptValue &value, QVector3D *target)
{
    if (!value.isArray() || value.property(QStringLiteral("length")).toInt32() != 3)
        return false;
    for (int axis = 0; axis < 3; ++axis) {
        float number = 0;
        if (!readNumber(value.property(quint32(axis)), &number))
            return false;
        (*target)[axis] = number;
    }
    return true;
}

/** The error, or an empty text. */
QString readMember(const QString &name, const QScriptValue &value, VxCameraState *state)
{
    if (name == QLatin1String("target"))
        return readTarget(value, &state->target)
                   ? QString()
                   : StudioText::tr("set() expects an array of three finite numbers as target");
    if (name == QLatin1String("orthographic")) {
        state->orthographic = value.toBool();
        return value.isBool() ? QString()
                              : StudioText::tr("set() expects true or false as orthographic");
    }
    for (const CameraNumber &number : CameraNumbers) {
        if (name == QLatin1String(number.name))
            return readNumber(value, &(state->*number.member))
                       ? QString()
                       : StudioText::tr("set() expects a finite number as %1").arg(name);
    }
    return StudioText::tr("set() expects an object with target, distance, yaw, pitch, fieldOfView "
                          "or orthographic, not %1")
        .arg(name);
}

QScriptValue get(QScriptContext *, QScriptEngine *engine)
{
    return cameraObject(engine);
}

QScriptValue set(QScriptContext *context, QScriptEngine *engine)
{
    if (!context->argument(0).isObject())
        return context->throwError(
            StudioText::tr("set() expects an object as argument 1 (camera)"));
    VxCameraState state = presentState();
    QScriptValueIterator member(context->argument(0));
    while (member.hasNext()) {
        member.next();
        const QString error = readMember(member.name(), member.value(), &state);
        if (!error.isEmpty())
            return context->throwError(error);
    }
    setPresentState(state);
    return cameraObject(engine);
}

template <void (ViewportWidget::*frame)()>
QScriptValue run(QScriptContext *context, QScriptEngine *engine)
{
    ViewportWidget *view = ViewportWidget::current();
    if (!view)
        return context->throwError(StudioText::tr("The camera can frame nodes in a window only."));
    (view->*frame)();
    return cameraObject(engine);
}

} // namespace

void addCameraFunctions(QScriptEngine *engine)
{
    QScriptValue camera = engine->newObject();
    camera.setProperty(QStringLiteral("get"), engine->newFunction(get));
    camera.setProperty(QStringLiteral("set"), engine->newFunction(set));
    camera.setProperty(QStringLiteral("frameSelection"),
                       engine->newFunction(run<&ViewportWidget::frameSelection>));
    camera.setProperty(QStringLiteral("frameAll"),
                       engine->newFunction(run<&ViewportWidget::frameAll>));
    engine->globalObject().setProperty(QStringLiteral("Camera"), camera);
}
