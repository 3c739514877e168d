#ifndef KEYTOOLS_ISOLATEACTION_H
#define KEYTOOLS_ISOLATEACTION_H

#include <vxcore/vxaction.h>

/// Shows the rows and curves of the selected nodes alone in the timeline; again: of all nodes.
class VxKeyToolsIsolateAction : public VxAction
{
    Q_OBJECT
public:
    VxKeyToolsIsolateAction();
    void init() override;
    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    QString getMenuFolder() const override;

protected:
    void toggleAction(bool onOff) override;

private:
    void followState();
};

#endif
