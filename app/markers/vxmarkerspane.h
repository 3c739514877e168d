#ifndef VXMARKERSPANE_H
#define VXMARKERSPANE_H

#include <vxcore/vxpane.h>

/// The pane "Markers": a thin strip with the scene's markers, docked above the timeline and aligned
/// with its time axis.
class VxMarkersPane : public VxPane
{
    Q_OBJECT
public:
    VxMarkersPane();
};

#endif
