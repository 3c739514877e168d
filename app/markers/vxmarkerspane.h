#ifndef VXMARKERSPANE_H
#define VXMARKERSPANE_H

#include <vxcore/vxpane.h>

class MarkerStrip;

/// The pane "Markers": a thin strip with the scene's markers, docked above the timeline and aligned
/// with its time axis.
class VxMarkersPane : public VxPane
{
    Q_OBJECT
public:
    VxMarkersPane();

    /// Never null; owned by the pane.
    MarkerStrip *getStrip() const { return m_strip; }

private:
    MarkerStrip *m_strip;
};

#endif
