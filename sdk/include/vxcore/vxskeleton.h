#ifndef VXSKELETON_H
#define VXSKELETON_H

#include <vxcore/vxnode.h>

class VxBone;

/// The root node of a figure.
class VXCORE_EXPORT VxSkeleton : public VxNode
{
    Q_OBJECT
public:
    explicit VxSkeleton(const QString &name);
    ~VxSkeleton() override;

    VxSkeleton *getSkeleton() const override;
    /// Every bone below, each followed by its own; bones below another skeleton are left out.
    QVector<VxBone *> getAllBones() const;
    QIcon getIcon() const override;
};

#endif
