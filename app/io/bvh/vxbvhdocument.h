#ifndef VXBVHDOCUMENT_H
#define VXBVHDOCUMENT_H

#include <QString>
#include <QVector3D>
#include <vector>

/// The target of one number of a motion frame. The file's spelling is "Xposition", "Zrotation" ...
enum class VxBvhChannel : quint8 {
    XPosition,
    YPosition,
    ZPosition,
    XRotation,
    YRotation,
    ZRotation
};

constexpr int VxBvhChannelKinds = 6;

/// Joints nested deeper than this are refused: no figure needs it, and code that traverses a scene
/// may be recursive.
constexpr std::size_t VxBvhMaxDepth = 512;

inline bool vxBvhIsRotation(VxBvhChannel channel)
{
    return channel >= VxBvhChannel::XRotation;
}

/// 0 X, 1 Y, 2 Z.
inline int vxBvhAxis(VxBvhChannel channel)
{
    return static_cast<int>(channel) % 3;
}

/// One ROOT or JOINT of the hierarchy. Names need not be unique.
struct VxBvhJoint
{
    QString name;     ///< not empty, one line, no blanks at either end
    int parent = -1;  ///< index of the parent joint, -1 for a ROOT
    QVector3D offset; ///< its position in its parent, in the file's unit of length
    std::vector<VxBvhChannel> channels; ///< in the file's order, each kind at most once
    std::vector<QVector3D> endSites;    ///< their positions in the joint; usually none or one

    bool operator==(const VxBvhJoint &other) const;
};

/// The content of a BVH motion file, independent of any scene.
///
/// Joints have the order of the file, which is the hierarchy in pre-order: a parent always precedes
/// its children and a joint's descendants follow it without a gap. The values are one array in
/// channel-major order, to match key tracks: the value of channel c at frame f is
/// values[c * frameCount + f], channels counted over all joints in order.
///
/// A document without frames is legal; it describes a rest pose.
class VxBvhDocument
{
public:
    std::vector<VxBvhJoint> joints;
    int frameCount = 0;
    double frameTime = 1.0 / 30.0; ///< seconds, above 0 and finite
    std::vector<float> values;     ///< channelCount() * frameCount finite numbers

    /// Channels of all joints together.
    int channelCount() const;

    /// The values of channel \a channel, frameCount of them; null when there are no frames.
    const float *channelValues(int channel) const;

    /// True when all conditions above hold; otherwise false, with the first violated one in
    /// \a message (may be null). Cost: one pass over the document.
    bool isValid(QString *message = nullptr) const;

    bool operator==(const VxBvhDocument &other) const;
    bool operator!=(const VxBvhDocument &other) const { return !(*this == other); }

private:
    bool areJointsValid(QString *message) const;
    bool areValuesValid(QString *message) const;
};

#endif
