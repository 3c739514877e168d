#include <vxcore/vxsceneviews.h>

#include "scene/vxelement_p.h"
#include "undo/vxundovalueitem.h"

#include <vxcore/vxscene.h>

class VxSceneViews::Private
{
public:
    Views views;
};

VxSceneViews::VxSceneViews(VxScene *scene)
    : QObject(scene)
    , d(std::make_unique<Private>())
{
    connect(scene, &VxScene::sceneCleared, this, [this] { setViews(Views()); });
}

VxSceneViews::~VxSceneViews() = default;

VxSceneViews *VxSceneViews::of(VxScene *scene)
{
    auto *found = scene->findChild<VxSceneViews *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found : new VxSceneViews(scene);
}

VxSceneViews::Views VxSceneViews::viewsOf(const VxScene *scene)
{
    const auto *found = scene->findChild<VxSceneViews *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found->views() : Views();
}

const VxSceneViews::Views &VxSceneViews::views() const
{
    return d->views;
}

std::optional<VxTimeRange> VxSceneViews::view(int index) const
{
    return index >= 0 && index < Count ? d->views[size_t(index)] : std::nullopt;
}

void VxSceneViews::setViews(const Views &views)
{
    if (vxChange<&VxSceneViews::views, &VxSceneViews::setViews>(this, VxUndoSceneViews, &d->views,
                                                                views))
        Q_EMIT changed();
}

void VxSceneViews::setView(int index, const std::optional<VxTimeRange> &range)
{
    if (index < 0 || index >= Count)
        return;
    Views views = d->views;
    views[size_t(index)] = range;
    setViews(views);
}
