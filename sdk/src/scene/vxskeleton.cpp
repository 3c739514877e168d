#include <vxcore/vxskeleton.h>

#include "scene/vxnode_p.h"

#include <vxcore/vxbone.h>

VxSkeleton::VxSkeleton(const QString &name)
    : VxNode(name)
{
}

VxSkeleton::~VxSkeleton() = default;

VxSkeleton *VxSkeleton::getSkeleton() const
{
    return const_cast<VxSkeleton *>(this);
}

QVector<VxBone *> VxSkeleton::getAllBones() const
{
    QVector<VxBone *> bones;
    QVector<VxNode *> open;
    const auto addChildren = [&open](const VxNode *node) {
        for (int i = node->getNumNodeChildren() - 1; i >= 0; --i)
            open.append(node->getNodeChild(i));
    };
    addChildren(this);
    while (!open.isEmpty()) {
        VxNode *node = open.takeLast();
        if (qobject_cast<VxSkeleton *>(node))
            continue;
        if (auto *bone = qobject_cast<VxBone *>(node))
            bones.append(bone);
        addChildren(node);
    }
    return bones;
}

QIcon VxSkeleton::getIcon() const
{
    return vxNodeIcon(NodeIcon::Skeleton);
}
