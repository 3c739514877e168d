#ifndef VXOWNCONTENTS_H
#define VXOWNCONTENTS_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxkey.h>

class VxFloatProperty;
class VxIntProperty;
class VxStringProperty;

/// The stored value and the keys that a property itself has, whether or not it shows those of
/// another one as an alias or overridden property. For writers of files and copies.
template <class V> struct VxOwnContents
{
    V stored = V();       ///< the value without keys
    VxKeyColumns<V> keys; ///< borrowed, valid until the next change of the property's keys
};

/// Without limits and links applied. The property must not be null.
VXCORE_EXPORT VxOwnContents<float> vxOwnContents(const VxFloatProperty *property);
/// The same for whole numbers: types and tcb are null.
VXCORE_EXPORT VxOwnContents<qint32> vxOwnContents(const VxIntProperty *property);
/// The text that the property itself has. The property must not be null.
VXCORE_EXPORT QString vxOwnText(const VxStringProperty *property);

#endif
