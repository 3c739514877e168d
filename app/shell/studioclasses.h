#ifndef STUDIOCLASSES_H
#define STUDIOCLASSES_H

#include <QVector>

class VxClassFactory;

/// The factories of the program's own panes; static objects.
QVector<VxClassFactory *> studioClassFactories();

#endif
