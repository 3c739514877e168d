#include <vxcore/vxbone.h>

#include <QtGui/QIcon>
#include <vxcore/vxapp.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyle.h>

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
    return vxApp ? vxApp->getStyle()->icon(VxStyle::SP_VxBone) : QIcon();
}
