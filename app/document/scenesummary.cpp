#include "document/scenesummary.h"

#include "widgets/studiotext.h"

#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>

namespace {

void countElement(const VxElement *element, SceneCounts *counts)
{
    for (const VxProperty *property : element->getMadeProperties()) {
        if (property->getKeyHolder() != property || property->getNumKeys() == 0)
            continue;
        ++counts->keyedProperties;
        counts->keys += property->getNumKeys();
    }
    const VxObject *object = qobject_cast<const VxObject *>(element);
    for (int i = 0; object && i < object->getNumSubElements(); ++i)
        countElement(object->getSubElement(i), counts);
}

} // namespace

SceneCounts SceneCounts::of(const VxScene &scene)
{
    SceneCounts counts;
    VxNodeListIterator nodes = scene.nodeListIterator();
    while (nodes.hasNext()) {
        const VxNode *node = nodes.next();
        ++counts.nodes;
        countElement(node, &counts);
        if (const VxObject *object = node->getObject())
            countElement(object, &counts);
    }
    return counts;
}

QString sceneSummary(const VxScene &scene)
{
    const SceneCounts counts = SceneCounts::of(scene);
    const VxTime step = scene.getTimeStep();
    return StudioText::tr("%1, %2, %3, frames %4 to %5 at %L6 frames per second",
                          "nodes, keyed properties and keys, each with its number")
        .arg(StudioText::tr("%n nodes", nullptr, counts.nodes),
             StudioText::tr("%n keyed properties", nullptr, counts.keyedProperties),
             StudioText::tr("%n keys", nullptr, counts.keys))
        .arg(scene.getAnimRange().getStart() / step)
        .arg(scene.getAnimRange().getEnd() / step)
        .arg(double(VxTicksPerSecond) / step);
}
