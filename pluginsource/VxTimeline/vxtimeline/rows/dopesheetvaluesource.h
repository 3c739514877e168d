#ifndef DOPESHEETVALUESOURCE_H
#define DOPESHEETVALUESOURCE_H

class VxProperty;

/// The property that supplies the value of another one: the aliased one instead of an alias, and
/// from there along the links that replace values, at most 100 of them. The property itself when
/// there are none; where a link has no target, the property at which the links began.
VxProperty *dopeSheetValueSource(VxProperty *property);

#endif
