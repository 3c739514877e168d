#include <vxcore/vxapp.h>

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

VxApp *vxApp = nullptr;

namespace {

// Inside a function, because a plug-in's static objects ask for the name before ours might exist.
QString &appName()
{
    static QString name = QStringLiteral("VxStudio");
    return name;
}

} // namespace

class VxApp::Private
{
public:
    std::unique_ptr<VxSettings> settings = std::make_unique<VxSettings>();
    std::unique_ptr<VxPluginMgr> pluginMgr = std::make_unique<VxPluginMgr>();
    std::unique_ptr<VxUndoStack> undoStack = std::make_unique<VxUndoStack>();
    QPointer<VxStyle> style; // QApplication's
    QPointer<VxMainWindow> interface;
    bool isClosing = false;
    bool isStarted = false;
};

VxApp::VxApp()
{
    if (vxApp)
        qWarning("VxApp: there is an application object already; it stays the current one");
    else
        vxApp = this;
    d.reset(new Private);
    if (qobject_cast<QApplication *>(QCoreApplication::instance()))
        setStyle(new VxStyle);
}

VxApp::~VxApp()
{
    beginClosing();
    // What the history kept goes while the scene it belongs to still lives.
    d->undoStack->clear();
    if (vxApp == this)
        vxApp = nullptr;
}

QString VxApp::getAppName()
{
    return appName();
}

void VxApp::setAppName(const QString &name)
{
    appName() = name;
}

VxUndoStack *VxApp::getUndoStack() const
{
    return d->undoStack.get();
}

VxSettings *VxApp::getSettings() const
{
    return d->settings.get();
}

VxPluginMgr *VxApp::getPluginMgr() const
{
    return d->pluginMgr.get();
}

VxStyle *VxApp::getStyle() const
{
    return d->style;
}

void VxApp::setStyle(VxStyle *style)
{
    if (!style || style == d->style)
        return;
    d->style = style;
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());
    Q_EMIT styleChanged(style);
}

VxMainWindow *VxApp::getInterface() const
{
    return d->interface;
}

void VxApp::setInterface(VxMainWindow *window)
{
    d->interface = window;
}

QWidget *VxApp::getDialogParent() const
{
    return d->interface;
}

bool VxApp::isClosing() const
{
    return d->isClosing;
}

bool VxApp::isStarted() const
{
    return d->isStarted;
}

void VxApp::start()
{
    if (d->isStarted)
        return;
    d->isStarted = true;
    Q_EMIT starting();
}

void VxApp::beginClosing()
{
    if (d->isClosing)
        return;
    d->isClosing = true;
    Q_EMIT closing();
}
