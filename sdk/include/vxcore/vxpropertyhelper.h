#ifndef VXPROPERTYHELPER_H
#define VXPROPERTYHELPER_H

#include <vxcore/vxcoreglobal.h>

class VxNode;
class VxProperty;

/// Functions on a property that depend on elements.
namespace VxPropertyHelper {

/// The node that a property belongs to: its owner, or the node of the object or of the
/// sub-element that owns it. Null when there is none.
VXCORE_EXPORT VxNode *getNode(const VxProperty *property);

/// True when the property's owner is a morph.
VXCORE_EXPORT bool isMorphProperty(const VxProperty *property);

/// The axis code of a transform channel: 1 X, 2 Y, 3 Z, 4 all; 0 for any other property.
VXCORE_EXPORT int getTransformAxis(const VxProperty *property);

} // namespace VxPropertyHelper

#endif
