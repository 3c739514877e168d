#include <vxcore/vxpaneaction.h>

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

class VxPaneAction::Private
{
public:
    QString paneClassName;
};

VxPaneAction::VxPaneAction(const QString &paneClassName)
    : VxAction(paneClassName)
    , d(new Private{paneClassName})
{
}

VxPaneAction::~VxPaneAction() = default;

QString VxPaneAction::getPaneClassName() const
{
    return d->paneClassName;
}

void VxPaneAction::init()
{
    VxAction::init();
    const VxPane *pane = vxFindPane(d->paneClassName);
    const QString title = pane ? pane->getTitle() : d->paneClassName;
    setText(title);
    // Also sets the other help texts.
    setDescription(tr("Opens the pane \"%1\" and brings it to the front.").arg(title));
}

QString VxPaneAction::getDefaultMenuPath() const
{
    return QStringLiteral("Window/Panes");
}

QString VxPaneAction::getActionGroup() const
{
    return QStringLiteral("Panes");
}

void VxPaneAction::executeAction()
{
    VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    if (!window) {
        qWarning("VxPaneAction: the pane \"%s\" cannot be opened without a main window",
                 qUtf8Printable(d->paneClassName));
        return;
    }
    if (VxPane *pane = window->getPaneMgr()->findOrCreatePane(d->paneClassName))
        window->getPaneMgr()->showPane(pane);
    else
        window->showStatusMessage(tr("There is no pane \"%1\".").arg(d->paneClassName));
}
