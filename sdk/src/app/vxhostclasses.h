#ifndef VXHOSTCLASSES_H
#define VXHOSTCLASSES_H

#include <QtCore/QVector>

class VxClassFactory;

/// The factories of the panes and actions that the host offers without any plug-in, in the order in
/// which they are registered. They live as long as the library.
QVector<VxClassFactory *> vxHostClassFactories();

#endif
