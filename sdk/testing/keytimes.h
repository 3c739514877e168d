#ifndef KEYTIMES_H
#define KEYTIMES_H

#include <QVector>
#include <vxcore/vxproperty.h>

using Times = QVector<VxTime>;

/** The times of the keys of a property in ticks, ascending. */
inline Times keyTimes(const VxProperty *property)
{
    Times times;
    for (int i = 0; i < property->getNumKeys(); ++i)
        times.append(property->getKeyTime(i));
    return times;
}

#endif
