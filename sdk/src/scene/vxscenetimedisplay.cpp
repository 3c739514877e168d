#include <vxcore/vxscenetimedisplay.h>

#include "scene/markerinput.h"
#include "scene/vxelement_p.h"
#include "undo/vxundovalueitem.h"

#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>

class VxSceneTimeDisplay::Private
{
public:
    VxTimeDisplay display;
};

VxSceneTimeDisplay::VxSceneTimeDisplay(VxScene *scene)
    : QObject(scene)
    , d(std::make_unique<Private>())
{
    connect(scene, &VxScene::sceneCleared, this, [this] { setDisplay(VxTimeDisplay()); });
}

VxSceneTimeDisplay::~VxSceneTimeDisplay() = default;

VxSceneTimeDisplay *VxSceneTimeDisplay::of(VxScene *scene)
{
    auto *found = scene->findChild<VxSceneTimeDisplay *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found : new VxSceneTimeDisplay(scene);
}

VxTimeDisplay VxSceneTimeDisplay::displayOf(const VxScene *scene)
{
    const auto *found =
        scene->findChild<VxSceneTimeDisplay *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found->display() : VxTimeDisplay();
}

QString VxSceneTimeDisplay::textOf(const VxScene *scene, VxTime time)
{
    return displayOf(scene).text(time, scene->getTimeStep());
}

QString VxSceneTimeDisplay::labelOf(const VxScene *scene, VxTime time)
{
    const VxTimeDisplay display = displayOf(scene);
    const QString text = vxLocalNumber(display.text(time, scene->getTimeStep()));
    return display.unit == VxTimeDisplay::Frames ? tr("Frame %1").arg(text) : text;
}

VxTypedInput VxSceneTimeDisplay::read(const VxScene *scene, const QString &text,
                                      VxTypedInput::Signs signs)
{
    QString times = text;
    if (text.contains(QLatin1Char('@'))) {
        const auto *markers = scene->findChild<VxMarkers *>(QString(), Qt::FindDirectChildrenOnly);
        times = markers ? withMarkerTimes(text, *markers, scene->getTime()) : QString();
        if (times.isNull())
            return {VxTypedInput::Unreadable, 0};
    }
    return displayOf(scene).read(times, scene->getTimeStep(), signs);
}

const VxTimeDisplay &VxSceneTimeDisplay::display() const
{
    return d->display;
}

void VxSceneTimeDisplay::setDisplay(const VxTimeDisplay &display)
{
    if (vxChange<&VxSceneTimeDisplay::display, &VxSceneTimeDisplay::setDisplay>(
            this, VxUndoSceneTimeDisplay, &d->display, display))
        Q_EMIT changed();
}
