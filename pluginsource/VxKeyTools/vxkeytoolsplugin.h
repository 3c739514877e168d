#ifndef VXKEYTOOLSPLUGIN_H
#define VXKEYTOOLSPLUGIN_H

#include <vxcore/vxversion.h>

class VxPlugin;

/// The two entry points of the module; see VxPlugin.
extern "C" Q_DECL_EXPORT VxVersion getSDKVersion();
extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition();

#endif
