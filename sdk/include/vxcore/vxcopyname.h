#ifndef VXCOPYNAME_H
#define VXCOPYNAME_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

/// The parts of a node's name as copies of nodes are numbered.
///
/// A copy's number follows an underscore: "Hips_2". In a name of the left or right side whose side
/// is at the end, it precedes the side, so that mirrored names remain pairs: "Hand_2_L". Numbers
/// with a leading zero, below 2 or of more than six digits are part of the stem.
struct VXCORE_EXPORT VxCopyName
{
    QString stem;
    QString side;   ///< "_L" at the end of "Hand_L"; usually empty
    int number = 1; ///< 1 without a number

    static VxCopyName read(const QString &name);
    QString text() const;
    /// The name of the original: "Hips" for "Hips_2", "Hand_L" for "Hand_2_L".
    QString original() const { return stem + side; }
};

#endif
