#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <QtCore/QCoreApplication>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxversion.h>

namespace {

VxMainWindow *mainWindow()
{
    return vxApp ? vxApp->getInterface() : nullptr;
}

QScriptValue findPane(ScriptArguments &arguments)
{
    const QString name = arguments.text(0, "className");
    const VxMainWindow *window = mainWindow();
    VxPane *pane = window ? window->getPaneMgr()->findPane(name) : nullptr;
    QScriptValue value = toScript(arguments.engine(), pane);
    // The keys of the pane's enumerations, as on a pane that a script creates.
    if (pane)
        VxClassFactory::registerEnumsOnClass(arguments.engine(), pane->metaObject(), value);
    return value;
}

QScriptValue action(ScriptArguments &arguments)
{
    const QString name = arguments.text(0, "className");
    const VxMainWindow *window = mainWindow();
    return toScript(arguments.engine(),
                    window ? window->getActionMgr()->findAction(name) : nullptr);
}

QScriptValue actionNames(ScriptArguments &arguments)
{
    QScriptValue names = arguments.engine()->newArray();
    const VxMainWindow *window = mainWindow();
    for (int i = 0; window && i < window->getActionMgr()->getNumActions(); ++i) {
        const VxAction *entry = window->getActionMgr()->getAction(i);
        names.setProperty(quint32(i), QLatin1String(entry->metaObject()->className()));
    }
    return names;
}

/// Processes everything queued in the event loop, such as deferred updates of panes.
QScriptValue processEvents(ScriptArguments &)
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    return {};
}

QScriptValue status(ScriptArguments &arguments)
{
    const QString text = arguments.text(0, "text");
    if (VxMainWindow *window = mainWindow())
        window->showStatusMessage(text);
    return {};
}

const ScriptFunction applicationFunctions[] = {
    {"App.findPane()", findPane, 1},       {"App.action()", action, 1},
    {"App.actionNames()", actionNames, 0}, {"App.processEvents()", processEvents, 0},
    {"App.status()", status, 1},
};

} // namespace

void ScriptBindings::registerApplication(QScriptEngine *engine)
{
    QScriptValue application = engine->newObject();
    installFunctions(engine, application, applicationFunctions);
    application.setProperty(QStringLiteral("name"), VxApp::getAppName(), QScriptValue::ReadOnly);
    application.setProperty(QStringLiteral("sdkVersion"), VxVersion::sdk().toString(),
                            QScriptValue::ReadOnly);
    application.setProperty(QStringLiteral("keySelection"),
                            ScriptBindings::makeKeySelection(engine, VxKeySelection::current()),
                            QScriptValue::ReadOnly);
    QScriptValue global = engine->globalObject();
    global.setProperty(QStringLiteral("App"), application);
    global.setProperty(QStringLiteral("Scene"), toScript(engine, vxScene));
    global.setProperty(QStringLiteral("Undo"), toScript(engine, VxUndoStack::current()));
}
