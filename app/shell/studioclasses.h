#ifndef STUDIOCLASSES_H
#define STUDIOCLASSES_H

#include <QVector>

class VxClassFactory;

/// The factories of the panes that the program itself brings; static objects.
QVector<VxClassFactory *> studioClassFactories();

#endif
