#include <vxcore/vxapp.h>

#include "app/vxhostclasses.h"
#include "widgets/wheelfocusfilter.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

VxApp *vxApp = nullptr;

namespace {

// Inside a function, because a plug-in's static objects may read the name before ours are made.
QString &appName()
{
    static QString name = QStringLiteral("VxStudio");
    return name;
}

} // namespace

class VxApp::Private
{
public:
    // Made in this order and destroyed in reverse: scripts refer to everything, nodes that are
    // removed from the scene check whether the history is recording.
    std::unique_ptr<VxSettings> settings = std::make_unique<VxSettings>();
    std::unique_ptr<VxPluginMgr> pluginMgr = std::make_unique<VxPluginMgr>();
    std::unique_ptr<VxKeySelection> keySelection = std::make_unique<VxKeySelection>();
    std::unique_ptr<VxUndoStack> undoStack = std::make_unique<VxUndoStack>();
    std::unique_ptr<VxScene> scene = std::make_unique<VxScene>();
    std::unique_ptr<VxScriptEngine> scriptEngine;  // made on demand
    QPointer<VxStyle> style;                       // QApplication's
    std::unique_ptr<WheelFocusFilter> wheelFilter; // null without a QApplication
    QPointer<VxMainWindow> interface;
    bool isClosing = false;
    bool isStarted = false;
};

VxApp::VxApp()
{
    if (vxApp)
        qWarning("VxApp: an application object already exists; it remains the current one");
    else
        vxApp = this;
    d.reset(new Private);
    for (VxClassFactory *factory : vxHostClassFactories())
        d->pluginMgr->addClassFactory(factory);
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        setStyle(new VxStyle);
        d->wheelFilter = std::make_unique<WheelFocusFilter>();
    }
}

VxApp::~VxApp()
{
    beginClosing();
    // Destructors may still access the remaining parts of this object.
    d->scriptEngine.reset();
    // Removed nodes in the history are destroyed while their scene exists.
    d->undoStack->clear();
    d->scene.reset();
    d->undoStack.reset();
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

VxScene *VxApp::getScene() const
{
    return d->scene.get();
}

VxUndoStack *VxApp::getUndoStack() const
{
    return d->undoStack.get();
}

VxKeySelection *VxApp::getKeySelection() const
{
    return d->keySelection.get();
}

VxSettings *VxApp::getSettings() const
{
    return d->settings.get();
}

VxPluginMgr *VxApp::getPluginMgr() const
{
    return d->pluginMgr.get();
}

VxScriptEngine *VxApp::getScriptEngine() const
{
    if (!d->scriptEngine && d->scene) {
        d->scriptEngine = std::make_unique<VxScriptEngine>();
        d->scriptEngine->registerHost();
        connect(d->pluginMgr.get(), &VxPluginMgr::pluginAdded, d->scriptEngine.get(),
                &VxScriptEngine::registerHost);
    }
    return d->scriptEngine.get();
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
    // polish() sets its palette.
    QApplication::setStyle(style);
    // Text sizes change metrics of the style.
    connect(style, &VxStyle::textSizeChanged, this, [this, style] { Q_EMIT styleChanged(style); });
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
