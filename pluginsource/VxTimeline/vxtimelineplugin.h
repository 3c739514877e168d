#ifndef VXTIMELINEPLUGIN_H
#define VXTIMELINEPLUGIN_H

#include <vxcore/vxversion.h>

class VxPlugin;

// The two entry points by which a host takes up the plug-in, and all that the library exports.

// The version of the host library that the plug-in was built against. Asked for first.
extern "C" Q_DECL_EXPORT VxVersion getSDKVersion();

// The plug-in's record: name, author, version, description and one factory a class. Never null, the
// same at each call, alive until the library is unloaded.
extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition();

#endif
