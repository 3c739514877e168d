#ifndef VXSCENECAMERA_H
#define VXSCENECAMERA_H

#include <QObject>
#include <QVector3D>
#include <optional>

class VxScene;

/// Where a viewport's camera is and how it projects; plain data.
struct VxCameraState
{
    static constexpr float MinFieldOfView = 1;
    static constexpr float MaxFieldOfView = 150;
    static constexpr float MinDistance = 1e-6f;
    static constexpr float MaxDistance = 1e18f;

    QVector3D target{0, 1, 0}; ///< the point that the camera orbits
    float distance = 6;        ///< from the target to the eye
    float yaw = 35;            ///< degrees about the vertical axis; 0 looks along -z
    float pitch = 18;          ///< degrees above the ground, -90 to 90
    float fieldOfView = 40;    ///< degrees over the shorter side of the view
    bool orthographic = false;

    /// The nearest valid state; numbers that are not finite become those of the initial state.
    VxCameraState corrected() const;
    friend bool operator==(const VxCameraState &a, const VxCameraState &b)
    {
        return a.target == b.target && a.distance == b.distance && a.yaw == b.yaw &&
               a.pitch == b.pitch && a.fieldOfView == b.fieldOfView &&
               a.orthographic == b.orthographic;
    }
};

/// The camera that a scene was viewed with last, part of the document. None in a cleared scene and
/// until the camera is moved. Moving it is no edit: nothing is recorded for undo.
class VxSceneCamera : public QObject
{
    Q_OBJECT
public:
    /// The camera of a scene, which owns it. Never null for a scene.
    static VxSceneCamera *of(VxScene *scene);
    /// A copy of a scene's camera.
    static std::optional<VxCameraState> stateOf(const VxScene *scene);

    const std::optional<VxCameraState> &state() const { return m_state; }
    void setState(const std::optional<VxCameraState> &state);

private:
    explicit VxSceneCamera(VxScene *scene);

    std::optional<VxCameraState> m_state;
};

#endif
