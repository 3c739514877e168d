#include "vxtimeline/keys/keyskip.h"

#include <vxcore/vxproperty.h>

#include "vxtimeline/keys/nodeproperties.h"

namespace KeySkip {

VxTime previousKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit)
{
    VxTime best = limit;
    for (const VxNode *node : nodes) {
        NodeProperties::visitAll(node, [&best, now](const VxProperty *property) {
            const int before = property->getFirstKeyFrom(now) - 1;
            if (before >= 0)
                best = qMax(best, property->getKeyTime(before));
        });
    }
    return best;
}

VxTime nextKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit)
{
    VxTime best = limit;
    if (now == VxTimeMax)
        return best;
    for (const VxNode *node : nodes) {
        NodeProperties::visitAll(node, [&best, now](const VxProperty *property) {
            const int after = property->getFirstKeyFrom(now + 1);
            if (after < property->getNumKeys())
                best = qMin(best, property->getKeyTime(after));
        });
    }
    return best;
}

} // namespace KeySkip
