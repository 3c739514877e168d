#ifndef TIMELINEPROPERTYTYPES_H
#define TIMELINEPROPERTYTYPES_H

class VxNode;
class VxProperty;

/// The kinds of properties that get rows and keys, as bits. The numbers are those of
/// VxTimePane::PropertyType, which this folder cannot include; the pane checks that they agree.
namespace TimelinePropertyTypes {

enum Flag {
    Translation = 0x1,
    Rotation = 0x2,
    Scale = 0x4,
    Other = 0x8,
    Alias = 0x10,
    Hidden = 0x20
};

/// A node's transform controls have the indexes 0 to TransformControls - 1.
constexpr int TransformControls = 10;
Flag ofTransformControl(int index);
/// The flag of a node's transform control; 0 for any other property.
int ofTransform(const VxProperty *property, const VxNode *node);

bool isHidden(const VxProperty *property);

} // namespace TimelinePropertyTypes

#endif
