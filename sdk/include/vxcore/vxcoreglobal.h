#ifndef VXCOREGLOBAL_H
#define VXCOREGLOBAL_H

#include <QtCore/qglobal.h>

#ifdef VXCORE_BUILD
#define VXCORE_EXPORT Q_DECL_EXPORT
#else
#define VXCORE_EXPORT Q_DECL_IMPORT
#endif

#endif
