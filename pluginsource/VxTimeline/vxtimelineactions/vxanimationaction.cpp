#include "vxtimelineactions/vxanimationaction.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimelineactions/animationmenuorder.h"

#include <QtCore/QPointer>
#include <utility>
#include <vxcore/vxmainwindow.h>

VxAnimationAction::VxAnimationAction(const QString &text, const QString &description,
                                     Command command, const char *shortcut)
    : VxAction(text, description)
    , m_command(std::move(command))
    , m_shortcut(QString::fromLatin1(shortcut))
{
}

void VxAnimationAction::init()
{
    requireTimePaneForInit(metaObject()->superClass());
}

QString VxAnimationAction::getDefaultAccel() const
{
    return m_shortcut;
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
    if (!found)
        found = qobject_cast<VxTimePane *>(vxFindPane(QStringLiteral("VxTimePane")));
    return found;
}

void VxAnimationAction::executeAction()
{
    // A script can make an option one that is not checkable.
    if (!m_command)
        return;
    if (VxTimePane *pane = requireTimePane(metaObject(), "executeAction"))
        m_command(pane);
}

VxTimePane *VxAnimationAction::requireTimePane(const QMetaObject *caller, const char *method)
{
    VxTimePane *pane = findTimePane();
    if (!pane) {
        vxWarning(VX_HERE, QStringLiteral("No VxTimePane instance found in %1::%2()")
                               .arg(QLatin1String(caller->className()), QLatin1String(method)));
    }
    return pane;
}

VxTimePane *VxAnimationAction::requireTimePaneForInit(const QMetaObject *caller)
{
    VxTimePane *pane = requireTimePane(caller, "init");
    if (pane)
        pane->registerAction(this);
    return pane;
}
