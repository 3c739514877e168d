#include "vxtimelineactions/vxanimationaction.h"

#include <QtCore/QPointer>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimelineactions/animationmenuorder.h"

VxAnimationAction::VxAnimationAction(const QString &text, const QString &description,
                                     bool checkable)
    : VxAction(text, description, checkable)
{
}

VxAnimationAction::~VxAnimationAction() = default;

void VxAnimationAction::init()
{
    requireTimePaneForInit(VX_HERE);
}

QString VxAnimationAction::getDefaultMenuPath() const
{
    return QStringLiteral("Animation");
}

QString VxAnimationAction::getActionGroup() const
{
    return QStringLiteral("VxTimePane::");
}

int VxAnimationAction::getMenuOrder() const
{
    return animationMenuOrder(metaObject()->className());
}

QString VxAnimationAction::getMenuFolder() const
{
    return animationMenuFolder(metaObject()->className());
}

VxTimePane *VxAnimationAction::findTimePane()
{
    // Guarded, so that a destroyed pane is looked up again.
    static QPointer<VxTimePane> found;
    if (!found) {
        VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
        VxPaneMgr *panes = window ? window->getPaneMgr() : nullptr;
        if (panes)
            found = qobject_cast<VxTimePane *>(panes->findPane(QStringLiteral("VxTimePane")));
    }
    return found;
}

void VxAnimationAction::completeConstruction()
{
    setObjectName(QString::fromLatin1(metaObject()->className()));
    updateInlineHelp();
}

VxTimePane *VxAnimationAction::requireTimePane(const VxSourcePosition &position)
{
    VxTimePane *pane = findTimePane();
    if (!pane) {
        vxWarning(position, QStringLiteral("No VxTimePane instance found in %1()")
                                .arg(vxMethodName(QString::fromUtf8(position.function))));
    }
    return pane;
}

VxTimePane *VxAnimationAction::requireTimePaneForInit(const VxSourcePosition &position)
{
    VxTimePane *pane = requireTimePane(position);
    if (pane)
        pane->registerAction(this);
    return pane;
}
