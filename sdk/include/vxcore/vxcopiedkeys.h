#ifndef VXCORE_VXCOPIEDKEYS_H
#define VXCORE_VXCOPIEDKEYS_H

#include <QtCore/QString>
#include <vector>
#include <vxcore/vxkey.h>

/// The keys copied from one property: plain data without references, which outlives it.
struct VxCopiedKeys
{
    QString path;     ///< of the row: names of nodes, property groups and property, with slashes
    QString node;     ///< name of the node; empty for a property of none
    QString property; ///< name
    std::vector<VxTime> times;  ///< ticks, strictly ascending, never empty
    std::vector<double> values; ///< a value a key
    std::vector<quint8> types;  ///< a VxKeyInterp::Type a key
    std::vector<VxTcb> tcb;     ///< empty when all are zero
};

#endif
