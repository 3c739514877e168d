#ifndef CHANNELLIMITS_H
#define CHANNELLIMITS_H

#include "pose/nodechannels.h"

/// What a channel accepts: its locks, links and limits.
namespace ChannelLimits {

/// True for values that differ by no more than what single precision leaves of them.
bool isSame(double a, double b);

/// True when the channel cannot be set: it or its key holder is locked, or an open link gives its
/// value.
bool isDriven(const VxFloatProperty *property);
/// The channel's own part of a value at a time: without what a terminal link adds.
double ownPart(const VxFloatProperty *property, VxTime time, double value);
/// True when a value at a time is outside of limits that apply.
bool isOutside(const VxFloatProperty *property, VxTime time, double value);

/// The nearest value within limits that apply.
double limited(const VxFloatProperty *property, VxTime time, double value);

/// By how many degrees the channels would miss the angles. present: of the channels as they are.
double excess(const NodeChannels &channels, VxTime time, const VxEuler &angles,
              const VxEuler &present);
/// The angles of a rotation that are nearest to the present ones; where limits and locks do not
/// allow these, the other angles of the same rotation that are allowed, or missed by least.
VxEuler angles(const NodeChannels &channels, VxTime time, const VxRotation &rotation,
               VxRotationOrder order, const VxEuler &present);

} // namespace ChannelLimits

#endif
