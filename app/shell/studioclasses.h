#ifndef STUDIOCLASSES_H
#define STUDIOCLASSES_H

#include <QVector>

class VxClassFactory;

/// The factories of the program's own panes and actions; static objects.
QVector<VxClassFactory *> studioClassFactories();

#endif
