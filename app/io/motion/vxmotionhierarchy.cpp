#include "io/motion/vxmotionhierarchy.h"

#include "io/vxfiletext.h"

#include <vxcore/vxeuler.h>

namespace {

bool isIdentity(const VxMotionQuaternion &q)
{
    return q[0] == 0.0 && q[1] == 0.0 && q[2] == 0.0;
}

/// The targets of a node's channels after nodes were added.
struct Place
{
    int position = 0; ///< index of the node with the translation
    int rest = 0;     ///< of the node with the rotation and all other values
};

int placeOf(const VxMotionChannel &channel, const Place &place)
{
    return channel.target <= VxMotionTarget::ZTranslate ? place.position : place.rest;
}

void moveChannels(const std::vector<Place> &places, VxImportedMotion *motion)
{
    for (VxMotionClip &clip : motion->clips) {
        for (VxMotionChannel &channel : clip.channels)
            channel.node = placeOf(channel, places[std::size_t(channel.node)]);
    }
}

void splitOrientations(VxImportedMotion *motion)
{
    std::vector<VxMotionNode> nodes;
    std::vector<Place> places;
    nodes.reserve(motion->nodes.size());
    for (VxMotionNode &node : motion->nodes) {
        if (node.parent >= 0)
            node.parent = places[std::size_t(node.parent)].rest;
        Place place{int(nodes.size()), int(nodes.size())};
        if (!isIdentity(node.orientation)) {
            VxMotionNode mount;
            mount.name = QStringLiteral("%1 orientation").arg(node.name);
            mount.parent = node.parent;
            mount.translation = node.translation;
            const VxMotionQuaternion &q = node.orientation;
            mount.rotation =
                vxEulerAngles(VxQuaternion{q[3], q[0], q[1], q[2]}, VxRotationOrder(mount.order));
            mount.visible = node.visible;
            nodes.push_back(std::move(mount));
            node.parent = place.position;
            node.translation = {{0.0, 0.0, 0.0}};
            node.orientation = {{0.0, 0.0, 0.0, 1.0}};
            place.rest = int(nodes.size());
        }
        nodes.push_back(std::move(node));
        places.push_back(place);
    }
    motion->nodes = std::move(nodes);
    moveChannels(places, motion);
}

/// Inserts a parent for all roots for which `isBelow` is true.
template <class Predicate>
void addRoot(VxMotionNode root, VxImportedMotion *motion, Predicate isBelow)
{
    for (std::size_t i = 0; i < motion->nodes.size(); ++i) {
        VxMotionNode &node = motion->nodes[i];
        const bool isRoot = node.parent < 0;
        node.parent = isRoot ? (isBelow(i) ? 0 : -1) : node.parent + 1;
    }
    motion->nodes.insert(motion->nodes.begin(), std::move(root));
    for (VxMotionClip &clip : motion->clips) {
        for (VxMotionChannel &channel : clip.channels)
            ++channel.node;
    }
}

/** The top bones have neither a bone nor a figure's root above them. */
void addFigureRoots(const QString &figureName, VxImportedMotion *motion)
{
    std::vector<VxMotionNode> &nodes = motion->nodes;
    std::vector<bool> isInFigure(nodes.size(), false);
    bool needsRoot = false;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        VxMotionNode &node = nodes[i];
        const bool isBelow = node.parent >= 0 && isInFigure[std::size_t(node.parent)];
        isInFigure[i] = isBelow || node.kind != VxMotionNode::Node;
        if (isBelow || node.kind != VxMotionNode::Bone)
            continue;
        if (node.parent >= 0) {
            // Bones in other branches below this node then have a figure's root, too.
            nodes[std::size_t(node.parent)].kind = VxMotionNode::Skeleton;
            isInFigure[std::size_t(node.parent)] = true;
        } else {
            needsRoot = true;
        }
    }
    if (!needsRoot)
        return;
    VxMotionNode root;
    root.name = figureName;
    root.kind = VxMotionNode::Skeleton;
    addRoot(std::move(root), motion,
            [&nodes](std::size_t i) { return nodes[i].kind == VxMotionNode::Bone; });
}

bool rotateUpAxis(VxImportedMotion *motion)
{
    if (motion->facts.upAxis == 'Y' || motion->nodes.empty())
        return false;
    VxMotionNode top;
    top.name = motion->facts.upAxis == 'Z' ? VxFileText::tr("Z up") : VxFileText::tr("X up");
    if (motion->facts.upAxis == 'Z')
        top.rotation[0] = -90.0;
    else
        top.rotation[2] = 90.0;
    addRoot(std::move(top), motion, [](std::size_t) { return true; });
    return true;
}

void nameNodes(VxImportedMotion *motion)
{
    for (std::size_t i = 0; i < motion->nodes.size(); ++i) {
        VxMotionNode &node = motion->nodes[i];
        if (node.name.trimmed().isEmpty())
            node.name = (node.kind == VxMotionNode::Bone ? VxFileText::tr("Bone %1")
                                                         : VxFileText::tr("Node %1"))
                            .arg(i + 1);
    }
}

} // namespace

bool vxArrangeHierarchy(const QString &figureName, VxImportedMotion *motion)
{
    nameNodes(motion);
    splitOrientations(motion);
    addFigureRoots(figureName, motion);
    return rotateUpAxis(motion);
}
