#include "menu/vxmenulookup.h"
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
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxversion.h>

namespace {

QScriptValue findPane(ScriptArguments &arguments)
{
    VxPane *pane = vxFindPane(arguments.text(0, "className"));
    QScriptValue value = toScript(arguments.engine(), pane);
    // The keys of the pane's enumerations, as on a pane that a script creates.
    if (pane)
        VxClassFactory::registerEnumsOnClass(arguments.engine(), pane->metaObject(), value);
    return value;
}

QScriptValue action(ScriptArguments &arguments)
{
    return toScript(arguments.engine(), vxFindMenuAction(arguments.text(0, "className")));
}

QScriptValue actionNames(ScriptArguments &arguments)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    const auto actions = window ? window->getActionMgr()->getActions() : QVector<VxAction *>();
    return makeArray(arguments.engine(), actions.size(), [&actions](int i) {
        return QLatin1String(actions.at(i)->metaObject()->className());
    });
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
    vxShowStatusMessage(arguments.text(0, "text"));
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
