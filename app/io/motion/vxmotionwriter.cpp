#include "io/motion/vxmotionwriter.h"

#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>

QVector<const VxNode *> vxNodesToExport(const VxScene *scene, const VxNode *root)
{
    QVector<const VxNode *> nodes;
    for (const VxNode *node : scene->getNodes()) {
        if (!root || node == root || root->isAncestorOf(node))
            nodes.append(node);
    }
    return nodes;
}

std::array<const VxFloatProperty *, 3> vxControlsOf(const VxNode *node, VxMotionTarget first)
{
    const auto control = [=](int axis) { return node->getTransformControl(int(first) + axis); };
    return {{control(0), control(1), control(2)}};
}

QVector<const VxMorph *> vxMorphsOf(const VxNode *node)
{
    QVector<const VxMorph *> morphs;
    const VxObject *object = node->getObject();
    for (int i = 0; object && i < object->getNumSubElements(); ++i) {
        if (const auto *morph = qobject_cast<const VxMorph *>(object->getSubElement(i)))
            morphs.append(morph);
    }
    return morphs;
}
