#include "keytools/keytoolscript.h"

#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <QtScript/QScriptContext>

namespace {

QScriptValue resultObject(QScriptEngine *engine, const KeyToolResult &result)
{
    QScriptValue object = engine->newObject();
    object.setProperty(QStringLiteral("done"), result.done);
    object.setProperty(QStringLiteral("message"), result.message);
    object.setProperty(QStringLiteral("keys"), result.keys);
    object.setProperty(QStringLiteral("channels"), result.channels);
    object.setProperty(QStringLiteral("after"), result.after);
    object.setProperty(QStringLiteral("merged"), result.merged);
    object.setProperty(QStringLiteral("error"), result.error);
    return object;
}

QScriptValue runTool(QScriptContext *context, QScriptEngine *engine, void *entry)
{
    const KeyTool &tool = *static_cast<const KeyTool *>(entry);
    QVariantMap arguments;
    if (context->argumentCount() > 0) {
        if (!context->argument(0).isObject())
            return context->throwError(
                KeyToolText::tr("KeyTools.%1: the argument must be an object with the parameters")
                    .arg(tool.name));
        arguments = context->argument(0).toVariant().toMap();
    }
    const KeyToolResult result = tool.runWith(arguments);
    if (result.isArgumentError)
        return context->throwError(
            QStringLiteral("KeyTools.%1: %2").arg(tool.name, result.message));
    return resultObject(engine, result);
}

} // namespace

void registerKeyToolScript(QScriptEngine *engine)
{
    QScriptValue tools = engine->newObject();
    for (const KeyTool &tool : KeyTool::all()) {
        // Not as the function's data, which scripts can replace.
        void *entry = const_cast<KeyTool *>(&tool); // runTool() only reads
        QScriptValue function = engine->newFunction(&runTool, entry);
        function.setProperty(QStringLiteral("length"), 1,
                             QScriptValue::ReadOnly | QScriptValue::Undeletable |
                                 QScriptValue::SkipInEnumeration);
        tools.setProperty(tool.name, function);
    }
    engine->globalObject().setProperty(QStringLiteral("KeyTools"), tools);
}
