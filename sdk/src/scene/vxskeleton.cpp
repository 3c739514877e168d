#include <vxcore/vxskeleton.h>

#include <QtGui/QIcon>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxstyle.h>

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
    return vxApp ? vxApp->getStyle()->icon(VxStyle::SP_VxSkeleton) : QIcon();
}
