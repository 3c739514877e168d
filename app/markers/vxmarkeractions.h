#ifndef VXMARKERACTIONS_H
#define VXMARKERACTIONS_H

#include "widgets/vxsceneaction.h"

/// Adds a marker at the current time.
class VxAddMarkerAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxAddMarkerAction();
};

/// Sets the current time to the previous start or end of a marker.
class VxPreviousMarkerAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxPreviousMarkerAction();
};

/// Sets the current time to the next start or end of a marker.
class VxNextMarkerAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxNextMarkerAction();
};

#endif
