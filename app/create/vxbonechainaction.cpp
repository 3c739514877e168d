#include "create/vxbonechainaction.h"

#include "create/bonechaintool.h"
#include "viewport/emptysceneoffer.h"
#include "viewport/viewportwidget.h"

#include <vxcore/vxscene.h>

VxBoneChainAction::VxBoneChainAction()
    : VxViewportAction("Create", tr("Bone Chain"),
                       tr("Creates bones from click to click in the viewport. Return, Escape or a "
                          "double click ends the chain, Backspace takes the last click back."),
                       "Ctrl+Alt+C", "Nodes")
{
    // Not a plain key: it acts wherever the focus is.
    setShortcutContext(Qt::WindowShortcut);
}

void VxBoneChainAction::init()
{
    VxViewportAction::init();
    ViewportWidget *view = ViewportWidget::current();
    if (m_tool || !view)
        return;
    m_tool = new BoneChainTool(vxScene, view);
    connect(m_tool, &BoneChainTool::finished, this, &VxBoneChainAction::end, Qt::QueuedConnection);
    connect(view, &ViewportWidget::toolChanged, this, [this, view](const ViewportTool *tool) {
        const bool isDrawing = m_tool && tool == m_tool;
        setChecked(isDrawing);
        if (auto *offer = view->findChild<EmptySceneOffer *>())
            offer->setSuppressed(isDrawing);
    });
}

void VxBoneChainAction::toggleAction(bool onOff)
{
    ViewportWidget *view = ViewportWidget::current();
    if (!view || !m_tool)
        return;
    if (!onOff) {
        m_tool->finish();
        end();
        return;
    }
    m_former = view->tool();
    view->setTool(m_tool);
    view->setFocus();
    m_tool->begin();
}

void VxBoneChainAction::end()
{
    ViewportWidget *view = ViewportWidget::current();
    if (view && m_tool && view->tool() == m_tool)
        view->setTool(m_former);
}
