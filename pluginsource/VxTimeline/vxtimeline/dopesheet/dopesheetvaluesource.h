#ifndef DOPESHEETVALUESOURCE_H
#define DOPESHEETVALUESOURCE_H

class VxProperty;

// The property from which the value of another one comes: the aliased one instead of an alias, and
// from there along the links that replace values, at most 100 of them. The property itself when
// there are none; where a link leads nowhere, the property that the links began at.
VxProperty *dopeSheetValueSource(VxProperty *property);

#endif
