#ifndef KEYSKIP_H
#define KEYSKIP_H

#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxNode;

/// The keys before and after a time, among all keys of some nodes and of their objects.
namespace KeySkip {

/// The latest key before now and after limit; limit when there is none.
VxTime previousKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit);
/// The earliest key after now and before limit; limit when there is none.
VxTime nextKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit);

} // namespace KeySkip

#endif
