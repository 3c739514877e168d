#include "shell/scriptfiles.h"

#include "document/documentcontroller.h"
#include "markers/markerfiles.h"
#include "widgets/studiotext.h"

#include <QJsonDocument>
#include <QScriptContext>
#include <QScriptEngine>
#include <QScriptValue>
#include <QScriptValueIterator>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>

namespace {

/// A script's file request.
struct Request
{
    QString file;
    VxMotionBuildOptions options;
    VxImportChoices choices;
    QString error;
};

void readOption(const QString &name, const QScriptValue &value, Request *request)
{
    if (name == QLatin1String("animation"))
        request->options.clip = value.toString();
    else if (name == QLatin1String("startsAtZero"))
        request->options.startsAtZero = value.toBool();
    else if (name == QLatin1String("snapToFrames"))
        request->choices.snapsToFrames = value.toBool();
    else if (name == QLatin1String("matchRate"))
        request->choices.matchesRate = value.toBool();
    else if (name == QLatin1String("rotationsOnly"))
        request->choices.rotationsOnly = value.toBool();
    else
        request->error = StudioText::tr("there is no option \"%1\"").arg(name);
}

/** Argument 1; else an error text. */
QString readFileName(const QScriptContext *context, QString *error)
{
    const QScriptValue file = context->argument(0);
    if (!file.isString() || file.toString().isEmpty())
        *error = StudioText::tr("argument 1 must be the name of a file");
    return file.toString();
}

/** Calls `read` for each member of argument 2, an object that may be left out, without an error. */
template <class Read>
void readOptions(const QScriptContext *context, QString *error, const Read &read)
{
    const QScriptValue options = context->argument(1);
    if (options.isUndefined() || options.isNull())
        return;
    if (!options.isObject())
        *error = StudioText::tr("argument 2 must be an object with options");
    QScriptValueIterator members(options);
    while (members.hasNext() && error->isEmpty()) {
        members.next();
        read(members.name(), members.value());
    }
}

Request readRequest(const QScriptContext *context)
{
    Request request;
    request.file = readFileName(context, &request.error);
    readOptions(context, &request.error, [&](const QString &name, const QScriptValue &value) {
        readOption(name, value, &request);
    });
    return request;
}

QScriptValue fail(QScriptContext *context, const char *function, const QString &error)
{
    return context->throwError(QStringLiteral("%1: %2").arg(QLatin1String(function), error));
}

QScriptValue open(QScriptContext *context, QScriptEngine *, void *controller)
{
    const Request request = readRequest(context);
    if (!request.error.isEmpty())
        return fail(context, "open()", request.error);
    auto *document = static_cast<DocumentController *>(controller);
    if (!document->open(request.file, request.options, request.choices))
        return fail(context, "open()", document->lastError());
    return true;
}

QScriptValue importFile(QScriptContext *context, QScriptEngine *engine, void *controller)
{
    const Request request = readRequest(context);
    if (!request.error.isEmpty())
        return fail(context, "importFile()", request.error);
    auto *document = static_cast<DocumentController *>(controller);
    if (!document->importMotion(request.file, request.options, request.choices))
        return fail(context, "importFile()", document->lastError());
    // Through JSON: a plain object that scripts can modify.
    const QByteArray json = QJsonDocument(document->importReport().toJson()).toJson();
    QScriptValue parse =
        engine->globalObject().property(QStringLiteral("JSON")).property(QStringLiteral("parse"));
    return parse.call(QScriptValue(), QScriptValueList{QScriptValue(QString::fromUtf8(json))});
}

QScriptValue exportFile(QScriptContext *context, QScriptEngine *, void *controller)
{
    QString error;
    const QString file = readFileName(context, &error);
    if (!error.isEmpty())
        return fail(context, "exportFile()", error);
    auto *document = static_cast<DocumentController *>(controller);
    VxMotionExportOptions options;
    readOptions(context, &error, [&](const QString &name, const QScriptValue &value) {
        if (name == QLatin1String("node")) {
            options.root = document->scene()->findNode(value.toString());
            if (!options.root)
                error = StudioText::tr("there is no node \"%1\"").arg(value.toString());
        } else if (name == QLatin1String("playRange")) {
            options.playRangeOnly = value.toBool();
        } else if (name == QLatin1String("rowPerFrame")) {
            options.hasRowPerFrame = value.toBool();
        } else {
            error = StudioText::tr("there is no option \"%1\"").arg(name);
        }
    });
    if (!error.isEmpty())
        return fail(context, "exportFile()", error);
    if (!document->exportMotion(options, file))
        return fail(context, "exportFile()", document->lastError());
    return true;
}

QScriptValue importMarkers(QScriptContext *context, QScriptEngine *)
{
    QString invalid;
    const QString file = readFileName(context, &invalid);
    if (!invalid.isEmpty())
        return fail(context, "Scene.markers.importFile()", invalid);
    VxFileError error;
    const QString done = MarkerFiles::importFile(vxScene, file, &error);
    return error.isSet() ? fail(context, "Scene.markers.importFile()", error.text())
                         : QScriptValue(done);
}

QScriptValue exportMarkers(QScriptContext *context, QScriptEngine *)
{
    QString invalid;
    const QString file = readFileName(context, &invalid);
    if (!invalid.isEmpty())
        return fail(context, "Scene.markers.exportFile()", invalid);
    VxFileError error;
    if (!MarkerFiles::exportFile(vxScene, file, &error))
        return fail(context, "Scene.markers.exportFile()", error.text());
    return true;
}

void add(QScriptEngine *engine, const char *object, const char *name,
         QScriptEngine::FunctionWithArgSignature function, DocumentController *document)
{
    // Not as the function's data, which scripts can replace.
    engine->globalObject()
        .property(QLatin1String(object))
        .setProperty(QLatin1String(name), engine->newFunction(function, document));
}

} // namespace

void addFileFunctions(VxScriptEngine *engine, DocumentController *document)
{
    add(engine->engine(), "App", "open", open, document);
    add(engine->engine(), "Scene", "importFile", importFile, document);
    add(engine->engine(), "Scene", "exportFile", exportFile, document);
    QScriptValue markers = engine->engine()->defaultPrototype(qMetaTypeId<VxMarkers *>());
    markers.setProperty(QStringLiteral("importFile"), engine->engine()->newFunction(importMarkers));
    markers.setProperty(QStringLiteral("exportFile"), engine->engine()->newFunction(exportMarkers));
}
