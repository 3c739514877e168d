#include "vxtimeline/keys/timelinepropertytypes.h"

#include <array>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertyhelper.h>

namespace TimelinePropertyTypes {

static_assert(TransformControls == std::tuple_size<VxRestPose>::value);

Flag ofTransformControl(int index)
{
    if (index < 3)
        return Translation;
    return index < 6 ? Rotation : Scale;
}

int ofTransform(const VxProperty *property, const VxNode *node)
{
    if (VxPropertyHelper::getTransformAxis(property) == VxFloatProperty::NoAxis)
        return 0;
    for (int i = 0; i < TransformControls; ++i) {
        if (property == node->getTransformControl(i))
            return ofTransformControl(i);
    }
    return 0;
}

bool isHidden(const VxProperty *property)
{
    return property->isHidden() || property->isDynamicallyHidden();
}

} // namespace TimelinePropertyTypes
