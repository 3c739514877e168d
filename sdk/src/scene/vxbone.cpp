#include <vxcore/vxbone.h>

#include "scene/vxnode_p.h"

#include <vxcore/vxskeleton.h>

VxBone::VxBone(const QString &name)
    : VxNode(name)
{
}

VxBone::~VxBone() = default;

VxSkeleton *VxBone::getSkeleton() const
{
    VxNode *above = getNodeParent();
    while (above && !qobject_cast<VxSkeleton *>(above))
        above = above->getNodeParent();
    return qobject_cast<VxSkeleton *>(above);
}

QIcon VxBone::getIcon() const
{
    return vxNodeIcon(NodeIcon::Bone);
}
