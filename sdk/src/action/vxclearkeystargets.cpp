#include "action/vxclearkeystargets.h"

#include <QtCore/QSet>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxskeleton.h>

namespace {

QVector<VxNode *> nodesOfFigure(VxSkeleton *skeleton)
{
    QVector<VxNode *> below;
    skeleton->getNodeChildren(below, true);
    QVector<VxNode *> result{skeleton};
    for (VxNode *node : qAsConst(below)) {
        if (node->getSkeleton() == skeleton)
            result.append(node);
    }
    return result;
}

bool matches(const VxProperty *property, VxClearKeysAction::Properties which)
{
    const bool isTransform = VxPropertyHelper::getTransformAxis(property) != 0;
    switch (which) {
    case VxClearKeysAction::Properties::All:
        return true;
    case VxClearKeysAction::Properties::Pose:
        return isTransform;
    case VxClearKeysAction::Properties::Shape:
        return !isTransform;
    }
    return false;
}

} // namespace

QVector<VxNode *> VxClearKeysTargets::nodes(const QVector<VxNode *> &selected,
                                            VxClearKeysAction::Nodes which)
{
    if (which == VxClearKeysAction::Nodes::Selected)
        return selected;
    QVector<VxNode *> result;
    QSet<const VxSkeleton *> done;
    for (VxNode *node : selected) {
        VxSkeleton *skeleton = node->getSkeleton();
        if (!skeleton || done.contains(skeleton))
            continue;
        done.insert(skeleton);
        result += nodesOfFigure(skeleton);
    }
    return result;
}

QVector<VxProperty *> VxClearKeysTargets::properties(const VxNode *node,
                                                     VxClearKeysAction::Properties which)
{
    QVector<VxProperty *> result;
    for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
        if (property->getKeyHolder() == property && matches(property, which))
            result.append(property);
    }
    return result;
}
