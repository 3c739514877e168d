#ifndef ISOLATEACTION_H
#define ISOLATEACTION_H

#include "keytools/keysmenuaction.h"

/// Shows only the rows and curves of the selected nodes in the timeline; a second trigger shows
/// all.
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
