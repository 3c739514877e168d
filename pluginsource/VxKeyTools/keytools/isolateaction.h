#ifndef KEYTOOLS_ISOLATEACTION_H
#define KEYTOOLS_ISOLATEACTION_H

#include "keytools/keysmenuaction.h"

/// Shows the rows and curves of the selected nodes alone in the timeline; again: of all nodes.
class VxKeyToolsIsolateAction : public KeysMenuAction
{
    Q_OBJECT
public:
    VxKeyToolsIsolateAction();
    void init() override;

protected:
    void toggleAction(bool onOff) override;

private:
    void followState();
};

#endif
