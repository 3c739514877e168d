#ifndef SOUNDSCENE_H
#define SOUNDSCENE_H

#include "io/vxscenereader.h"

#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

/// Keys sorted and finite, the stored value finite.
inline bool isSound(const VxFloatProperty &property)
{
    const VxKeyColumns<float> keys = property.getKeys();
    for (int i = 0; i < keys.count; ++i) {
        if (!std::isfinite(keys.values[i]) || (i > 0 && keys.times[i] <= keys.times[i - 1]))
            return false;
    }
    return std::isfinite(property.getStoredValue());
}

/// So are the properties of all nodes.
inline bool isSound(const VxSceneContents &contents)
{
    for (const auto &root : contents.rootNodes) {
        QVector<VxNode *> nodes{root.get()};
        root->getNodeChildren(nodes, true);
        for (const VxNode *node : qAsConst(nodes)) {
            for (int i = 0; i < node->getNumProperties(); ++i) {
                const auto *property = qobject_cast<const VxFloatProperty *>(node->getProperty(i));
                if (property && !isSound(*property))
                    return false;
            }
        }
    }
    return true;
}

#endif
