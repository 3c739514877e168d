#ifndef VXCOPIEDKEYS_H
#define VXCOPIEDKEYS_H

#include <QtCore/QString>
#include <vxcore/vxkeyarrays.h>

/// The keys copied from one property: plain data without references, which outlives it.
/// Strictly ascending times, at least one, and a type for each key.
struct VxCopiedKeys : VxKeyArrays<double>
{
    QString path;     ///< of the row: names of nodes, property groups and property, with slashes
    QString node;     ///< name of the node; empty for a property of none
    QString property; ///< name
};

#endif
