#ifndef VXPOSETRANSFER_H
#define VXPOSETRANSFER_H

#include <array>
#include <optional>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxnode.h>

/// The rest pose of a node of a figure.
struct VxJointRest
{
    VxRestPose values{};   ///< of the node's transform controls
    VxRotation axes;       ///< of the node in the figure's space, without scales
    VxRotation parentAxes; ///< the same of its parent
    VxRotationOrder order = VxRotationOrder::XYZ;
};

/// A channel that depends on one channel of the source node alone: value = factor * source +
/// offset.
struct VxChannelSource
{
    int axis = 0;      ///< 0 for X to 2 for Z
    double factor = 1; ///< 1 or -1
    double offset = 0; ///< in the channel's unit
};

/// Converts the pose of one node to that of another by their rest poses: at rest both have the rest
/// pose of their own figures, so that their axes may differ. With a reflection the world transform
/// relative to the figure is the mirror image of the source's whenever this holds for the parents.
class VXCORE_EXPORT VxPoseTransfer
{
public:
    /// reflection: the identity, or I - 2 n nT with the normal n of the mirror plane in the
    /// figure's space.
    VxPoseTransfer(const VxJointRest &from, const VxJointRest &to, const VxRotation &reflection);

    /// The values of the translation controls.
    VxVector translation(const VxVector &source) const;
    /// The local rotation.
    VxRotation rotation(const VxRotation &source) const;
    /// The values of the scale controls of each axis. Exact where the node's own axes are equal or
    /// opposite to those of the other node, in any sequence; else weighted by the squared cosines
    /// between them.
    VxVector stretch(const VxVector &source) const;

    /// The source of one of these channels (axis 0 to 2); none where several contribute.
    std::optional<VxChannelSource> translationSource(int axis) const;
    std::optional<VxChannelSource> stretchSource(int axis) const;
    /// The sources of the three angles; none unless every rotation of the source is transferred by
    /// exchanging and negating its angles.
    std::optional<std::array<VxChannelSource, 3>> rotationSources() const;

private:
    VxJointRest m_from;
    VxJointRest m_to;
    VxRotation m_before; ///< from the parent's axes of the source to those of the target
    VxRotation m_after;  ///< from the axes of the target to those of the source
};

#endif
