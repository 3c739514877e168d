#ifndef VXPANESOURCE_H
#define VXPANESOURCE_H

class VxPluginMgr;

/// The plug-in manager of the current application; null without an application.
const VxPluginMgr *vxCurrentPluginMgr();

#endif
