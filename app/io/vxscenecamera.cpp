#include "io/vxscenecamera.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxscene.h>

VxCameraState VxCameraState::corrected() const
{
    const VxCameraState initial;
    const auto finite = [](float value, float otherwise) {
        return std::isfinite(value) ? value : otherwise;
    };
    VxCameraState result = *this;
    for (int axis = 0; axis < 3; ++axis)
        result.target[axis] =
            std::clamp(finite(target[axis], initial.target[axis]), -MaxDistance, MaxDistance);
    result.distance = std::clamp(finite(distance, initial.distance), MinDistance, MaxDistance);
    result.yaw = std::fmod(finite(yaw, initial.yaw), 360.0f);
    result.pitch = std::clamp(finite(pitch, initial.pitch), -90.0f, 90.0f);
    result.fieldOfView =
        std::clamp(finite(fieldOfView, initial.fieldOfView), MinFieldOfView, MaxFieldOfView);
    return result;
}

VxSceneCamera::VxSceneCamera(VxScene *scene)
    : QObject(scene)
{
    connect(scene, &VxScene::sceneCleared, this, [this] { setState({}); });
}

VxSceneCamera *VxSceneCamera::of(VxScene *scene)
{
    auto *found = scene->findChild<VxSceneCamera *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found : new VxSceneCamera(scene);
}

std::optional<VxCameraState> VxSceneCamera::stateOf(const VxScene *scene)
{
    const auto *found = scene->findChild<VxSceneCamera *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found->state() : std::nullopt;
}

void VxSceneCamera::setState(const std::optional<VxCameraState> &state)
{
    m_state = state ? std::optional<VxCameraState>(state->corrected()) : std::nullopt;
}
