#ifndef VXTIMELINEPLUGIN_H
#define VXTIMELINEPLUGIN_H

#include <vxcore/vxversion.h>

class VxPlugin;

// The two entry points through which a host loads the plug-in: the only exports of the library.

/// The version of the host library that the plug-in was built against. Called first.
extern "C" Q_DECL_EXPORT VxVersion getSDKVersion();

/// The plug-in's record: name, author, version, description and one factory a class. Never null,
/// the same at each call, alive until the library is unloaded.
extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition();

#endif
