#include "viewport/figurelines.h"

#include "viewport/pointbox.h"

#include <QMatrix4x4>
#include <algorithm>
#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

struct Visit
{
    VxNode *node;
    QMatrix4x4 parentWorld;
    QVector3D parentAt;
    VxNode *parentBone; // null when the parent is no bone
};

// The part of a bone's length within which a child bone is at its end.
constexpr float AtEnd = 1e-3f;

bool isBone(const VxNode *node)
{
    return qobject_cast<const VxBone *>(node) != nullptr;
}

bool hasBoneBelow(const VxNode *bone)
{
    for (int i = 0; i < bone->getNumNodeChildren(); ++i) {
        if (isBone(bone->getNodeChild(i)))
            return true;
    }
    return false;
}

FigureLines::Axes axesOf(VxNode *node, const QMatrix4x4 &world, const QVector3D &at)
{
    FigureLines::Axes axes{at, {}, node, node->isSelected()};
    for (int i = 0; i < 3; ++i) {
        const QVector3D direction = world.column(i).toVector3D();
        axes.directions[size_t(i)] = isPlace(direction) ? direction.normalized() : QVector3D();
    }
    return axes;
}

/** The axis of a bone's matrix that is most nearly at right angles to a direction. */
QVector3D sideOf(const QMatrix4x4 &world, const QVector3D &along)
{
    QVector3D best;
    float least = 2;
    const QVector3D direction = along.normalized();
    for (const int axis : {0, 2, 1}) {
        const QVector3D side = world.column(axis).toVector3D().normalized();
        const float slant = std::abs(QVector3D::dotProduct(side, direction));
        if (!side.isNull() && slant < least - 0.1f) {
            best = side;
            least = slant;
        }
    }
    return best;
}

/** The line from a bone to a child bone: a link, or the bone itself if it has no end point. */
void addChildLine(const Visit &visit, const QVector3D &at, FigureLines *lines)
{
    VxNode *bone = visit.parentBone;
    const bool isSelected = bone->isSelected();
    const QVector3D end = visit.parentWorld.map(bone->getEndPoint());
    if (bone->getEndPoint().isNull() || !isPlace(end)) {
        lines->bones.append(
            {visit.parentAt, at, bone, isSelected, sideOf(visit.parentWorld, at - visit.parentAt)});
        return;
    }
    const float fromEnd = (at - end).length();
    if (fromEnd <= (end - visit.parentAt).length() * AtEnd)
        return;
    const bool isNearEnd = fromEnd < (at - visit.parentAt).length();
    lines->links.append({isNearEnd ? end : visit.parentAt, at, bone, isSelected});
}

void addNode(VxNode *node, const QMatrix4x4 &world, const QVector3D &at, FigureLines *lines)
{
    const bool bone = isBone(node);
    const bool figure = qobject_cast<const VxSkeleton *>(node) != nullptr;
    if ((!bone && !figure) || node == node->getScene()->getPrimarySelection())
        lines->axes.append(axesOf(node, world, at));
    const QVector3D end = world.map(node->getEndPoint());
    if (bone && !node->getEndPoint().isNull() && isPlace(end))
        lines->bones.append({at, end, node, node->isSelected(), sideOf(world, end - at)});
    // A figure's own position is no joint of it; it is shown only without children.
    if (!figure || node->getNumNodeChildren() == 0)
        lines->joints.append({at, node, node->isSelected()});
}

/// A bone without a parent bone, child bones and an end point.
struct LoneBone
{
    VxNode *node;
    QVector3D at;
    QVector3D direction; ///< of length 1, or 0
};

/** The longest side of the box around all joints. */
float extent(const FigureLines &lines)
{
    QVector<QVector3D> joints;
    for (const FigureLines::Joint &joint : lines.joints)
        joints.append(joint.at);
    const PointBox box(joints);
    const QVector3D size = box.high - box.low;
    return std::max({size.x(), size.y(), size.z()});
}

/** Along the Y axis, so that their rotation is visible. */
void addLoneBones(const QVector<LoneBone> &lone, FigureLines *lines)
{
    constexpr float UsualLength = 10;
    const float size = lone.isEmpty() ? 0 : extent(*lines);
    const float length = size > 0 ? size / 10 : UsualLength;
    for (const LoneBone &bone : lone) {
        if (!bone.direction.isNull())
            lines->bones.append(
                {bone.at, bone.at + bone.direction * length, bone.node, bone.node->isSelected()});
    }
}

} // namespace

FigureLines FigureLines::collect(const VxScene &scene, VxTime time)
{
    FigureLines lines;
    QVector<LoneBone> lone;
    QVector<Visit> open;
    const QVector<VxNode *> roots = scene.getRootNodes();
    for (int i = roots.size() - 1; i >= 0; --i)
        open.append({roots.at(i), QMatrix4x4(), QVector3D(), nullptr});
    while (!open.isEmpty()) {
        const Visit visit = open.takeLast();
        VxNode *node = visit.node;
        const QMatrix4x4 world = visit.parentWorld * node->getLocalTransform(time);
        const QVector3D at = world.column(3).toVector3D();
        if (!isPlace(at))
            continue;
        // The line to a bone belongs to its parent, and is drawn even if the bone is hidden.
        if (visit.parentBone && isBone(node))
            addChildLine(visit, at, &lines);
        if (!node->isVisible())
            continue;
        addNode(node, world, at, &lines);
        VxNode *bone = isBone(node) ? node : nullptr;
        if (bone && !visit.parentBone && !hasBoneBelow(bone) && bone->getEndPoint().isNull())
            lone.append({bone, at, axesOf(bone, world, at).directions[1]});
        for (int i = node->getNumNodeChildren() - 1; i >= 0; --i)
            open.append({node->getNodeChild(i), world, at, bone});
    }
    addLoneBones(lone, &lines);
    return lines;
}

QVector<QVector3D> FigureLines::selectedPoints() const
{
    // Selecting a node includes everything below it: framing a figure shows its bones.
    const auto counts = [](const VxNode *node) {
        while (node && !node->isSelected())
            node = node->getNodeParent();
        return node != nullptr;
    };
    QVector<QVector3D> chosen;
    for (const Joint &joint : joints) {
        if (counts(joint.node))
            chosen.append(joint.at);
    }
    for (const Bone &bone : bones) {
        if (counts(bone.node))
            chosen.append(bone.to);
    }
    return chosen;
}

QVector<QVector3D> FigureLines::figurePoints() const
{
    QVector<QVector3D> ofBones;
    for (const Joint &joint : joints) {
        if (isBone(joint.node))
            ofBones.append(joint.at);
    }
    for (const Bone &bone : bones)
        ofBones.append(bone.to);
    return ofBones;
}

QVector<QVector3D> FigureLines::points() const
{
    QVector<QVector3D> all;
    all.reserve(joints.size() + bones.size());
    for (const Joint &joint : joints)
        all.append(joint.at);
    for (const Bone &bone : bones)
        all.append(bone.to);
    return all;
}
