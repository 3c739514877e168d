#include "create/createedits.h"

#include "create/boneedits.h"
#include "create/namenumbers.h"
#include "create/nodecopy.h"
#include "create/standardfigure.h"
#include "scenetree/sceneedits.h"
#include "widgets/studiotext.h"

#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

namespace {

QString depthMessage()
{
    return StudioText::tr("Nodes cannot be nested deeper than %1 levels.").arg(VxNode::MaxDepth);
}

/** Takes one node into the scene, as one undo entry. */
CreateResult enter(VxScene *scene, std::unique_ptr<VxNode> node, VxNode *parent)
{
    if (parent && parent->getDepth() >= VxNode::MaxDepth)
        return {{}, depthMessage()};
    VxNode *made = node.get();
    VxUndoStackHold hold;
    if (!scene->addNode(made, parent))
        return {{}, StudioText::tr("The node could not be added.")};
    node.release();
    hold.accept(StudioText::tr("Create \"%1\"").arg(made->getLabel()));
    SceneEdits::selectOnly(scene, {made});
    return {{made}, {}};
}

/** Of length BoneLength; up where the parent bone has no direction. */
QVector3D boneDirection(const VxNode *parent)
{
    const QVector3D end = parent ? parent->getEndPoint() : QVector3D();
    const double length =
        std::sqrt(double(end.x()) * double(end.x()) + double(end.y()) * double(end.y()) +
                  double(end.z()) * double(end.z()));
    if (!std::isfinite(length) || length < 1e-6)
        return {0, CreateEdits::BoneLength, 0};
    const double factor = double(CreateEdits::BoneLength) / length;
    return {float(double(end.x()) * factor), float(double(end.y()) * factor),
            float(double(end.z()) * factor)};
}

VxNode *commonParent(const QVector<VxNode *> &tops)
{
    VxNode *parent = tops.first()->getNodeParent();
    while (parent && !std::all_of(tops.cbegin(), tops.cend(), [parent](const VxNode *node) {
               return parent->isAncestorOf(node);
           }))
        parent = parent->getNodeParent();
    return parent;
}

} // namespace

CreateResult CreateEdits::addNode(VxScene *scene, VxNode *parent)
{
    NameNumbers names(scene);
    return enter(scene, std::make_unique<VxNode>(names.unique(QStringLiteral("Node"))), parent);
}

CreateResult CreateEdits::addSkeleton(VxScene *scene)
{
    NameNumbers names(scene);
    return enter(scene, std::make_unique<VxSkeleton>(names.unique(QStringLiteral("Skeleton"))),
                 nullptr);
}

CreateResult CreateEdits::addBone(VxScene *scene, VxNode *parent)
{
    if (!parent)
        return {{}, StudioText::tr("Select the bone or skeleton that the new bone is a child of.")};
    NameNumbers names(scene);
    auto bone = std::make_unique<VxBone>(names.unique(QStringLiteral("Bone")));
    const VxNode *above = qobject_cast<VxBone *>(parent);
    if (above && std::isfinite(above->getEndPoint().lengthSquared()))
        bone->setOrigin(above->getEndPoint());
    bone->setEndPoint(boneDirection(above));
    bone->setRestPose(BoneEdits::restInPlace());
    return enter(scene, std::move(bone), parent);
}

CreateResult CreateEdits::addFigure(VxScene *scene)
{
    NameNumbers names(scene);
    return enter(scene, makeStandardFigure(&names), nullptr);
}

CreateResult CreateEdits::duplicate(VxScene *scene, const QVector<VxNode *> &nodes)
{
    const QVector<VxNode *> tops = SceneEdits::topmost(scene, nodes);
    if (tops.isEmpty())
        return {{}, StudioText::tr("Select the nodes to duplicate.")};
    QVector<VxNode *> sources;
    for (VxNode *top : tops) {
        sources.append(top);
        top->getNodeChildren(sources, true);
    }
    NodeCopy copy(sources, NameNumbers(scene).copies(sources));
    CreateResult result;
    VxUndoStackHold hold;
    for (std::unique_ptr<VxNode> &top : copy.takeTops()) {
        VxNode *made = top.get();
        if (scene->addNode(made, copy.sourceOf(made)->getNodeParent()))
            result.nodes.append(top.release());
    }
    hold.accept(tops.size() == 1 ? StudioText::tr("Duplicate \"%1\"").arg(tops.first()->getLabel())
                                 : StudioText::tr("Duplicate %1 Nodes").arg(tops.size()));
    SceneEdits::selectOnly(scene, result.nodes);
    return result;
}

CreateResult CreateEdits::group(VxScene *scene, const QVector<VxNode *> &nodes)
{
    const QVector<VxNode *> tops = SceneEdits::topmost(scene, nodes);
    if (tops.isEmpty())
        return {{}, StudioText::tr("Select the nodes to group.")};
    VxNode *parent = commonParent(tops);
    // The group is a level more; a subtree that does not fit would be left outside.
    NameNumbers names(scene);
    auto made = std::make_unique<VxNode>(names.unique(QStringLiteral("Group")));
    VxNode *group = made.get();
    VxUndoStackHold hold;
    if (!scene->addNode(group, parent))
        return {{}, depthMessage()};
    made.release();
    QVector<VxNode *> displaced;
    if (!SceneEdits::move(scene, tops, group, -1, SceneEdits::Kept::WorldPlace, &displaced)) {
        hold.rollBack();
        return {{}, depthMessage()};
    }
    hold.accept(tops.size() == 1 ? StudioText::tr("Group \"%1\"").arg(tops.first()->getLabel())
                                 : StudioText::tr("Group %1 Nodes").arg(tops.size()));
    SceneEdits::selectOnly(scene, {group});
    const QString message = displaced.isEmpty() ? QString()
                            : displaced.size() == 1
                                ? StudioText::tr("\"%1\" could not keep its world position.")
                                      .arg(displaced.first()->getLabel())
                                : StudioText::tr("%1 nodes could not keep their world positions.")
                                      .arg(displaced.size());
    return {{group}, message};
}
