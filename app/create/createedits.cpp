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

// The part of a bone's length within which a joint is at its end.
constexpr float SameEnd = 1e-4f;

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
    bone->setEndPoint(
        BoneEdits::withLength(above ? above->getEndPoint() : QVector3D(), BoneLength));
    bone->setRestPose(BoneEdits::restInPlace());
    return enter(scene, std::move(bone), parent);
}

CreateResult CreateEdits::addBoneTo(VxScene *scene, VxNode *parent, const QVector3D &end)
{
    if (!parent)
        return addBone(scene, parent);
    const QVector3D start = qobject_cast<VxBone *>(parent) ? parent->getEndPoint() : QVector3D();
    return addBoneChain(scene, parent,
                        {parent->getWorldTransform(scene->getTime()).map(start), end});
}

CreateResult CreateEdits::addBoneChain(VxScene *scene, VxNode *parent,
                                       const QVector<QVector3D> &joints)
{
    bool isInvertible = true;
    const QMatrix4x4 toParent =
        parent ? parent->getWorldTransform(scene->getTime()).inverted(&isInvertible) : QMatrix4x4();
    QVector<QVector3D> local;
    for (const QVector3D &joint : joints) {
        local.append(toParent.map(joint));
        isInvertible = isInvertible && std::isfinite(local.last().lengthSquared());
    }
    if (!isInvertible)
        return {{},
                StudioText::tr("\"%1\" is scaled to nothing: a bone below it has no position.")
                    .arg(parent ? parent->getLabel() : QString())};
    if (joints.size() < 2)
        return {};
    // Rounding must not part a bone from the end of its parent.
    const QVector3D above = parent ? parent->getEndPoint() : QVector3D();
    if ((local.first() - above).length() <= above.length() * SameEnd)
        local.first() = above;
    if (parent && parent->getDepth() + joints.size() - 1 > VxNode::MaxDepth)
        return {{}, depthMessage()};
    NameNumbers names(scene);
    std::unique_ptr<VxNode> skeleton;
    if (!parent)
        skeleton = std::make_unique<VxSkeleton>(names.unique(QStringLiteral("Skeleton")));
    std::unique_ptr<VxNode> first;
    VxNode *last = nullptr;
    for (int i = 1; i < local.size(); ++i) {
        auto bone = std::make_unique<VxBone>(names.unique(QStringLiteral("Bone")));
        bone->setOrigin(i == 1 ? local.first() : last->getEndPoint());
        bone->setEndPoint(local.at(i) - local.at(i - 1));
        bone->setRestPose(BoneEdits::restInPlace());
        VxNode *made = bone.get();
        if (last)
            last->addNodeChild(bone.release());
        else
            first = std::move(bone);
        last = made;
    }
    if (skeleton) {
        skeleton->addNodeChild(first.release());
        first = std::move(skeleton);
    }
    VxUndoStackHold hold;
    if (!scene->addNode(first.get(), parent))
        return {{}, StudioText::tr("The node could not be added.")};
    VxNode *top = first.release();
    hold.accept(joints.size() == 2
                    ? StudioText::tr("Create \"%1\"").arg(last->getLabel())
                    : StudioText::tr("Create %n Bones", nullptr, int(joints.size() - 1)));
    SceneEdits::selectOnly(scene, {last});
    return {{top}, {}};
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
    const QVector<VxNode *> sources = SceneEdits::trees(scene, tops);
    NodeCopy copy(sources, NameNumbers(scene).copies(sources));
    CreateResult result;
    VxUndoStackHold hold;
    for (std::unique_ptr<VxNode> &top : copy.takeTops()) {
        VxNode *made = top.get();
        if (scene->addNode(made, copy.sourceOf(made)->getNodeParent()))
            result.nodes.append(top.release());
    }
    hold.accept(tops.size() == 1 ? StudioText::tr("Duplicate \"%1\"").arg(tops.first()->getLabel())
                                 : StudioText::tr("Duplicate %n Nodes", nullptr, tops.size()));
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
                                 : StudioText::tr("Group %n Nodes", nullptr, tops.size()));
    SceneEdits::selectOnly(scene, {group});
    const QString message = displaced.isEmpty() ? QString()
                            : displaced.size() == 1
                                ? StudioText::tr("\"%1\" could not keep its world position.")
                                      .arg(displaced.first()->getLabel())
                                : StudioText::tr("%n nodes could not keep their world positions.",
                                                 nullptr, displaced.size());
    return {{group}, message};
}
