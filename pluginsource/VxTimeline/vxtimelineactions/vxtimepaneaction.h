#ifndef VXTIMEPANEACTION_H
#define VXTIMEPANEACTION_H

#include <vxcore/vxpaneaction.h>

/// Opens the time pane. The host's pane action implements it; this class has the name for menus,
/// shortcuts and scripts.
class VxTimePaneAction : public VxPaneAction
{
    Q_OBJECT
public:
    VxTimePaneAction();
};

#endif
