#ifndef VXCURRENTTIME_H
#define VXCURRENTTIME_H

#include <vxcore/vxscene.h>

/// The scene's current time in ticks; 0 without a scene.
inline VxTime vxCurrentTime()
{
    return vxScene ? vxScene->getTime() : 0;
}

#endif
