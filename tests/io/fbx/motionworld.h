#ifndef MOTIONWORLD_H
#define MOTIONWORLD_H

#include "fbxworld.h"
#include "io/motion/vximportedmotion.h"

/// Evaluates an imported motion: curves, local and world transforms.
namespace motionworld {

using fbxworld::Mat;
using fbxworld::operator*;
using fbxworld::Vec;

inline double valueAt(const VxMotionCurve &curve, double t)
{
    const std::size_t count = curve.times.size();
    if (t <= curve.times.front())
        return curve.values.front();
    if (t >= curve.times.back())
        return curve.values.back();
    std::size_t i = 0;
    while (i + 2 < count && curve.times[i + 1] <= t)
        ++i;
    const double h = curve.times[i + 1] - curve.times[i];
    const double u = (t - curve.times[i]) / h;
    const double y0 = curve.values[i];
    const double y1 = curve.values[i + 1];
    const VxMotionShape from = curve.shapes.empty() ? VxMotionShape() : curve.shapes[i];
    if (from.segment == VxMotionSegment::Step)
        return y0;
    if (from.segment == VxMotionSegment::Linear)
        return y0 + u * (y1 - y0);
    const VxMotionShape &to = curve.shapes[i + 1];
    double low = 0;
    double high = 1;
    const auto bezier = [](double s, double b, double c, double d0, double d1) {
        return (1 - s) * (1 - s) * (1 - s) * d0 + 3 * (1 - s) * (1 - s) * s * b +
               3 * (1 - s) * s * s * c + s * s * s * d1;
    };
    for (int step = 0; step < 100; ++step) {
        const double s = (low + high) / 2;
        (bezier(s, from.outWeight, 1 - to.inWeight, 0, 1) < u ? low : high) = s;
    }
    return bezier(low, y0 + from.outSlope * from.outWeight * h, y1 - to.inSlope * to.inWeight * h,
                  y0, y1);
}

inline Mat orientationOf(const VxMotionQuaternion &q)
{
    const double x = q[0], y = q[1], z = q[2], w = q[3];
    Mat m = fbxworld::identity();
    m[0] = {{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w), 0}};
    m[1] = {{2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w), 0}};
    m[2] = {{2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y), 0}};
    return m;
}

/// The axis on the left in the order's name is multiplied on the left.
inline Mat rotationOf(const Vec &degrees, VxNode::RotationOrder order)
{
    static const char *const names[] = {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};
    Mat m = fbxworld::identity();
    for (int i = 0; i < 3; ++i) {
        const auto axis = std::size_t(names[order][i] - 'X');
        m = m * fbxworld::axisRotation(axis, degrees[axis]);
    }
    return m;
}

/// World matrices of all nodes; clip -1: at rest.
inline QVector<Mat> worlds(const VxImportedMotion &motion, int clip, double t)
{
    struct Local
    {
        Vec translation;
        Vec rotation;
        Vec scale;
    };
    std::vector<Local> locals;
    for (const VxMotionNode &node : motion.nodes)
        locals.push_back({node.translation, node.rotation, node.scale});
    for (std::size_t i = 0; clip >= 0 && i < motion.clips[std::size_t(clip)].channels.size(); ++i) {
        const VxMotionChannel &channel = motion.clips[std::size_t(clip)].channels[i];
        const int target = int(channel.target);
        Local &local = locals[std::size_t(channel.node)];
        if (channel.target <= VxMotionTarget::ZTranslate)
            local.translation[std::size_t(target)] = valueAt(channel.curve, t);
        else if (channel.target <= VxMotionTarget::ZRotate)
            local.rotation[std::size_t(target - int(VxMotionTarget::XRotate))] =
                valueAt(channel.curve, t);
        else if (channel.target >= VxMotionTarget::XScale &&
                 channel.target <= VxMotionTarget::ZScale)
            local.scale[std::size_t(target - int(VxMotionTarget::XScale))] =
                valueAt(channel.curve, t);
    }
    QVector<Mat> result;
    for (std::size_t i = 0; i < motion.nodes.size(); ++i) {
        const VxMotionNode &node = motion.nodes[i];
        const Mat local = fbxworld::moved(locals[i].translation) * orientationOf(node.orientation) *
                          rotationOf(locals[i].rotation, node.order) *
                          fbxworld::scaled(locals[i].scale);
        result.append(node.parent < 0 ? local : result[node.parent] * local);
    }
    return result;
}

/// The node that has a model's world transform: the last of its helpers.
inline int endOf(const VxImportedMotion &motion, const QByteArray &name, int node)
{
    for (const char *suffix : {" pivot", " scale", " scale pivot"}) {
        for (std::size_t i = std::size_t(node) + 1; i < motion.nodes.size(); ++i) {
            if (motion.nodes[i].parent == node &&
                motion.nodes[i].name == QString::fromUtf8(name + suffix)) {
                node = int(i);
                break;
            }
        }
    }
    return node;
}

} // namespace motionworld

#endif
