#ifndef VXCHANGEBLOCK_P_H
#define VXCHANGEBLOCK_P_H

#include "keys/vxproperty_p.h"

#include <functional>
#include <vxcore/vxchangeblock.h>

/// The list of properties that changed within the open block.
namespace VxPendingChanges {

/// Records a change, one entry per property, widening its range.
void add(VxProperty::Private *property, const VxTimeRange &range);
/// Sends a report at once.
void send(VxProperty::Private *property, const VxTimeRange &range);
/// Removes a property that is being destroyed.
void remove(VxProperty::Private *property);
/// Sends all reports and empties the list, then runs the deferred functions.
void flush();
/// Calls a function once, when the open block has ended and its reports are sent.
void runAfterReports(std::function<void()> function);

} // namespace VxPendingChanges

#endif
