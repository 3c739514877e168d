#ifndef VXBONE_H
#define VXBONE_H

#include <vxcore/vxnode.h>

/// A node of a figure's skeleton. The bone reaches from its origin to its end point.
class VXCORE_EXPORT VxBone : public VxNode
{
    Q_OBJECT
public:
    explicit VxBone(const QString &name);
    ~VxBone() override;

    VxSkeleton *getSkeleton() const override;
    QIcon getIcon() const override;
};

#endif
