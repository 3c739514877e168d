#include <vxcore/vxnodehelper.h>

#include "scene/worldtransformkeeper.h"

#include <vxcore/vxnode.h>

bool VxNodeHelper::isShown(const VxNode *node)
{
    while (node && node->isVisible())
        node = node->getNodeParent();
    return !node;
}

VxNode *VxNodeHelper::getHiddenAncestor(const VxNode *node)
{
    VxNode *hidden = nullptr;
    for (VxNode *above = node->getNodeParent(); above; above = above->getNodeParent()) {
        if (!above->isVisible())
            hidden = above;
    }
    return hidden;
}

bool VxNodeHelper::keepWorldTransform(VxNode *node, const VxNode *oldParent,
                                      const VxNode *newParent, VxTime time)
{
    return oldParent == newParent || WorldTransformKeeper(node, oldParent, newParent, time).keep();
}
