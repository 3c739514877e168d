#ifndef VXBONECHAINACTION_H
#define VXBONECHAINACTION_H

#include "viewport/viewporttool.h"
#include "viewport/vxviewportaction.h"

#include <QPointer>

class BoneChainTool;

/// Checked while a chain is drawn. Unchecking ends it; then the former tool is the viewport's
/// again.
class VxBoneChainAction : public VxViewportAction
{
    Q_OBJECT
public:
    VxBoneChainAction();
    void init() override;

private:
    void toggleAction(bool onOff) override;
    void end();

    QPointer<BoneChainTool> m_tool;
    QPointer<ViewportTool> m_former;
};

#endif
