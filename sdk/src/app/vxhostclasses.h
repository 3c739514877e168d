#ifndef VXHOSTCLASSES_H
#define VXHOSTCLASSES_H

#include <QtCore/QVector>

class VxClassFactory;

/// The factories of the host's own panes and actions, in the order of registration. They live as
/// long as the library.
QVector<VxClassFactory *> vxHostClassFactories();

#endif
