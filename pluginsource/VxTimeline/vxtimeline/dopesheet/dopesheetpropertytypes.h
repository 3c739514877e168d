#ifndef DOPESHEETPROPERTYTYPES_H
#define DOPESHEETPROPERTYTYPES_H

// The kinds of properties that the dope sheet lists, as bits. The numbers are those of
// VxTimePane::PropertyType, which this folder cannot include; the pane checks that they agree.
namespace DopeSheetPropertyTypes {

enum Flag {
    Translation = 0x1,
    Rotation = 0x2,
    Scale = 0x4,
    Other = 0x8,
    Alias = 0x10,
    Hidden = 0x20
};

} // namespace DopeSheetPropertyTypes

#endif
