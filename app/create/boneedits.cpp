#include "create/boneedits.h"

#include "widgets/studiotext.h"

#include <cmath>
#include <limits>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr double ShortestDirection = 1e-6;
// The part of a bone's length within which a child node is at its end.
constexpr float EndReach = 1e-3f;

} // namespace

VxRestPose BoneEdits::restInPlace()
{
    return {0, 0, 0, 0, 0, 0, 1, 1, 1, 1};
}

BoneValues BoneEdits::valuesOf(const VxNode *node)
{
    BoneValues values{node->getOrigin(), node->getEndPoint(), {}};
    if (node->getRestPose()) {
        values.rest = *node->getRestPose();
        return values;
    }
    for (std::size_t i = 0; i < values.rest.size(); ++i)
        values.rest[i] = node->getTransformControl(int(i))->getStoredValue();
    return values;
}

void BoneEdits::setValues(VxNode *node, const BoneValues &values, bool childrenFollow)
{
    const QVector3D formerEnd = node->getEndPoint();
    const VxRestPose formerRest = valuesOf(node).rest;
    node->setOrigin(values.origin);
    node->setEndPoint(values.end);
    if (values.rest != formerRest) {
        node->setRestPose(values.rest);
        for (std::size_t i = 0; i < formerRest.size(); ++i) {
            VxFloatProperty *control = node->getTransformControl(int(i));
            if (values.rest[i] != formerRest[i] && control->getKeyHolder() == control &&
                control->getNumKeys() == 0 && !control->isLocked())
                control->setStoredValue(values.rest[i]);
        }
    }
    const float reach = formerEnd.length() * EndReach;
    for (int i = 0; childrenFollow && i < node->getNumNodeChildren(); ++i) {
        VxNode *child = node->getNodeChild(i);
        if (!formerEnd.isNull() && (child->getOrigin() - formerEnd).length() <= reach)
            child->setOrigin(values.end);
    }
}

double BoneEdits::lengthOf(const QVector3D &end)
{
    return std::sqrt(double(end.x()) * double(end.x()) + double(end.y()) * double(end.y()) +
                     double(end.z()) * double(end.z()));
}

QVector3D BoneEdits::withLength(const QVector3D &end, double length)
{
    const double present = lengthOf(end);
    if (!(present >= ShortestDirection) || !std::isfinite(present))
        return {0, float(length), 0};
    const double factor = length / present;
    return {float(double(end.x()) * factor), float(double(end.y()) * factor),
            float(double(end.z()) * factor)};
}

QString BoneEdits::setLength(VxScene *scene, double length, bool *done)
{
    *done = false;
    if (!(length >= 0) || length > double(std::numeric_limits<float>::max()))
        return StudioText::tr("The length of a bone must be a number from 0.");
    VxUndoStackHold hold;
    int changed = 0;
    for (VxNode *node : scene->getSelectedNodes()) {
        if (!qobject_cast<VxBone *>(node))
            continue;
        BoneValues values = valuesOf(node);
        values.end = withLength(values.end, length);
        setValues(node, values, true);
        ++changed;
    }
    hold.accept(StudioText::tr("Bone Length"));
    *done = changed > 0;
    return changed > 0 ? StudioText::tr("Bones of that length: %1.").arg(changed)
                       : StudioText::tr("Select the bones whose length is to be changed.");
}
