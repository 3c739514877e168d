#ifndef VXIMPORTEDMOTION_H
#define VXIMPORTEDMOTION_H

#include <QString>
#include <QStringList>
#include <QVector>
#include <array>
#include <vector>
#include <vxcore/vxeuler.h>
#include <vxcore/vxkey.h>
#include <vxcore/vxnode.h>

/// The output of motion file readers, which vxBuildMotion() converts to nodes with keys: plain
/// values, independent of any scene and of any particular format.
///
/// A reader passes curves on as in the file. It does not round times to ticks, sample keyed values,
/// convert quaternions to angles, or change the unit of length or the up axis: the builder does all
/// of these, for every format in the same way. All numbers are finite.

/// The interpolation of a segment from its left key to the next one.
enum class VxMotionSegment : quint8 {
    Linear,
    Step,  ///< holds the left key's value
    Cubic, ///< a Bezier or Hermite curve given by slopes and weights
    Tcb    ///< Kochanek and Bartels, tangents corrected for unequal key distances
};

/// The shape of a curve at one key. `in` belongs to the segment that ends at the key, `out` and
/// `segment` to the one that begins there.
struct VxMotionShape
{
    VxMotionSegment segment = VxMotionSegment::Linear;
    double inSlope = 0.0;  ///< of a cubic segment, in the value's unit per second
    double outSlope = 0.0; ///< the same
    /// Distance of the tangent's handle from the key, from above 0 to 1, as a fraction of the
    /// segment's length in time. A third is the plain Hermite segment.
    double inWeight = 1.0 / 3.0;
    double outWeight = 1.0 / 3.0;
    VxTcb tcb; ///< of a Tcb segment's ends
};

/// The names of rotation orders in files, by VxNode::RotationOrder.
inline constexpr const char *VxRotationOrderNames[] = {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};

/// The rotation order in which these axes, a permutation, are rotated about from left to right.
VxRotationOrder vxOrderOfAxes(const std::array<int, 3> &axes);

/// A number over time.
struct VxMotionCurve
{
    std::vector<double> times;         ///< seconds, strictly ascending; may be negative
    std::vector<double> values;        ///< one a key
    std::vector<VxMotionShape> shapes; ///< one a key, or empty: all segments are linear

    bool isEmpty() const { return times.empty(); }
};

/// x, y, z, w.
using VxMotionQuaternion = std::array<double, 4>;

/// A rotation over time as quaternions: linear segments are spherical, cubic ones are component by
/// component Hermite curves that are normalised.
struct VxMotionRotationTrack
{
    std::vector<double> times;              ///< seconds, strictly ascending; may be negative
    std::vector<VxMotionQuaternion> values; ///< of unit length, one a key
    VxMotionSegment segment = VxMotionSegment::Linear; ///< of all segments; not Tcb
    std::vector<VxMotionQuaternion> inTangents;        ///< per second, one a key; only where cubic
    std::vector<VxMotionQuaternion> outTangents;       ///< the same

    bool isEmpty() const { return times.empty(); }
};

/// The target of a channel. Positions are in the file's unit of length, angles in degrees, scales
/// and morph weights are factors (1 is 100 %).
enum class VxMotionTarget : quint8 {
    XTranslate,
    YTranslate,
    ZTranslate,
    XRotate,
    YRotate,
    ZRotate,
    Scale, ///< of all axes, multiplied with those of each
    XScale,
    YScale,
    ZScale,
    Rotation, ///< the whole rotation, by a rotation track
    Morph,    ///< weight of the node's morph `index`
    Property  ///< the node's further property `index`
};

struct VxMotionChannel
{
    int node = 0; ///< index into VxImportedMotion::nodes
    VxMotionTarget target = VxMotionTarget::XTranslate;
    int index = 0;                  ///< only for Morph and Property
    VxMotionCurve curve;            ///< for every target but Rotation
    VxMotionRotationTrack rotation; ///< only for Rotation

    /// Seconds; of the keys.
    const std::vector<double> &times() const
    {
        return target == VxMotionTarget::Rotation ? rotation.times : curve.times;
    }
};

/// One animation of a file.
struct VxMotionClip
{
    QString name;
    /// Seconds. Both 0: from the first key to the last.
    double start = 0.0;
    double end = 0.0;
    /// At most one channel for a node, target and index; not Rotation beside X, Y or ZRotate of
    /// the same node. Any order.
    std::vector<VxMotionChannel> channels;
};

/// A morph or a further property of a node.
struct VxMotionValue
{
    QString name;
    double value = 0.0; ///< without a channel
    QString path;       ///< group path, such as "/Custom"; empty for the kind's usual one
};

struct VxMotionNode
{
    enum Kind : quint8 {
        Node,
        Skeleton, ///< the root of a figure, above its bones
        Bone
    };

    QString name;    ///< need not be unique; the builder fills an empty one
    int parent = -1; ///< index of an earlier node; -1 for a root
    Kind kind = Node;

    /// Rest transform relative to the parent, translate * rotate * scale, for values without a
    /// channel.
    std::array<double, 3> translation{{0.0, 0.0, 0.0}};
    std::array<double, 3> rotation{{0.0, 0.0, 0.0}}; ///< degrees about X, Y, Z in `order`
    std::array<double, 3> scale{{1.0, 1.0, 1.0}};
    /// As VxNode has it: ZYX is Rz * Ry * Rx.
    VxNode::RotationOrder order = VxNode::XYZ;
    /// A constant rotation between translation and rotation (x, y, z, w), such as a joint's
    /// orientation: translate * orientation * rotate * scale. Unless it is the identity, the
    /// builder moves it to a separate node and keeps the curves unchanged.
    VxMotionQuaternion orientation{{0.0, 0.0, 0.0, 1.0}};

    bool hasEndPoint = false; ///< false: the middle of the children
    std::array<double, 3> endPoint{{0.0, 0.0, 0.0}};

    std::vector<VxMotionValue> morphs;
    std::vector<VxMotionValue> properties;
    bool visible = true;
};

/// Omitted contents of the file, and the reason.
struct VxMotionOmission
{
    QString what;  ///< such as "mesh"; translated
    QString why;   ///< a sentence; translated
    QString first; ///< name of the first one, for the user to find it
    int count = 0;
};

/// The file's metadata.
struct VxMotionFacts
{
    QString format;             ///< such as "glTF 2.0 (binary)"
    QString writer;             ///< the program that wrote the file; empty: unknown
    double rate = 0.0;          ///< frames per second; 0: unknown
    char upAxis = 'Y';          ///< 'X', 'Y' or 'Z'
    double metresPerUnit = 0.0; ///< of lengths in the file; 0: unknown
    /// Sentences about deviations from the file, such as an extrapolation.
    QStringList notes;
    std::vector<VxMotionOmission> omissions;

    /// Increments the count of an omission, appended if new.
    void addOmission(const QString &what, const QString &why, const QString &name);
};

/// A whole file, read in a separate importer process: a reader may use as much memory as the file's
/// size justifies, and must check every count against the available bytes.
struct VxImportedMotion
{
    std::vector<VxMotionNode> nodes; ///< a parent always before its children
    std::vector<VxMotionClip> clips; ///< none: a pose
    VxMotionFacts facts;

    /// True when all stated conditions hold; else false with the first violated one, as a sentence,
    /// in `message` (may be null). One pass.
    bool isValid(QString *message = nullptr) const;
};

/// Limits of what readers accept, so that hostile files end in a message.
namespace VxMotionLimits {
constexpr int MaxDepth = 4096;               ///< levels of nodes
constexpr int MaxNodes = 200 * 1000;         ///< nodes of a file
constexpr qint64 MaxKeys = 10 * 1000 * 1000; ///< key values of a file, all channels together
} // namespace VxMotionLimits

// A reader is a class or function of this form, in a folder of its own below app/io:
//
//   bool vxReadFbx(const QByteArray &bytes, const VxFileProgress &progress,
//                  VxImportedMotion *motion, VxFileError *error);
//
// On failure it returns false with one sentence, and the line or the offset, in `error`, and the
// motion is unchanged. The caller sets `error->file`.

#endif
