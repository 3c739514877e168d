#ifndef VXTIMEPANEACTION_H
#define VXTIMEPANEACTION_H

#include <vxcore/vxpaneaction.h>

// Opens the time pane. The host's pane action does all of it; this class gives it the name by which
// menus, shortcuts and scripts ask for it.
class VxTimePaneAction : public VxPaneAction
{
    Q_OBJECT
public:
    VxTimePaneAction();
    ~VxTimePaneAction() override;
};

#endif
