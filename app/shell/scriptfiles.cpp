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

Request readRequest(QScriptContext *context)
{
    Request request;
    request.file = context->argument(0).toString();
    if (!context->argument(0).isString() || request.file.isEmpty())
        request.error = StudioText::tr("argument 1 must be the name of a file");
    const QScriptValue options = context->argument(1);
    if (options.isUndefined() || options.isNull())
        return request;
    if (!options.isObject())
        request.error = StudioText::tr("argument 2 must be an object with options");
    QScriptValueIterator members(options);
    while (members.hasNext() && request.error.isEmpty()) {
        members.next();
        readOption(members.name(), members.value(), &request);
    }
    return request;
}

DocumentController *documentOf(QScriptContext *context)
{
    return qobject_cast<DocumentController *>(context->callee().data().toQObject());
}

QScriptValue fail(QScriptContext *context, const char *function, const QString &error)
{
    return context->throwError(QStringLiteral("%1: %2").arg(QLatin1String(function), error));
}

QScriptValue open(QScriptContext *context, QScriptEngine *)
{
    const Request request = readRequest(context);
    if (!request.error.isEmpty())
        return fail(context, "open()", request.error);
    DocumentController *document = documentOf(context);
    if (!document->open(request.file, request.options, request.choices))
        return fail(context, "open()", document->lastError());
    return true;
}

QScriptValue importFile(QScriptContext *context, QScriptEngine *engine)
{
    const Request request = readRequest(context);
    if (!request.error.isEmpty())
        return fail(context, "importFile()", request.error);
    DocumentController *document = documentOf(context);
    if (!document->importMotion(request.file, request.options, request.choices))
        return fail(context, "importFile()", document->lastError());
    // Through JSON: a plain object that scripts can modify.
    const QByteArray json = QJsonDocument(document->importReport().toJson()).toJson();
    QScriptValue parse =
        engine->globalObject().property(QStringLiteral("JSON")).property(QStringLiteral("parse"));
    return parse.call(QScriptValue(), QScriptValueList{QScriptValue(QString::fromUtf8(json))});
}

/** Fills the options; an error text otherwise. */
QString readExport(const QScriptValue &options, const VxScene *scene, VxMotionExportOptions *out)
{
    if (options.isUndefined() || options.isNull())
        return {};
    if (!options.isObject())
        return StudioText::tr("argument 2 must be an object with options");
    QScriptValueIterator members(options);
    while (members.hasNext()) {
        members.next();
        const QString name = members.name();
        if (name == QLatin1String("node")) {
            out->root = scene->findNode(members.value().toString());
            if (!out->root)
                return StudioText::tr("there is no node \"%1\"").arg(members.value().toString());
        } else if (name == QLatin1String("playRange")) {
            out->playRangeOnly = members.value().toBool();
        } else if (name == QLatin1String("rowPerFrame")) {
            out->hasRowPerFrame = members.value().toBool();
        } else {
            return StudioText::tr("there is no option \"%1\"").arg(name);
        }
    }
    return {};
}

QScriptValue exportFile(QScriptContext *context, QScriptEngine *)
{
    const QString file = context->argument(0).toString();
    if (!context->argument(0).isString() || file.isEmpty())
        return fail(context, "exportFile()",
                    StudioText::tr("argument 1 must be the name of a file"));
    DocumentController *document = documentOf(context);
    VxMotionExportOptions options;
    const QString error = readExport(context->argument(1), document->scene(), &options);
    if (!error.isEmpty())
        return fail(context, "exportFile()", error);
    if (!document->exportMotion(options, file))
        return fail(context, "exportFile()", document->lastError());
    return true;
}

QScriptValue importMarkers(QScriptContext *context, QScriptEngine *)
{
    const QString file = context->argument(0).toString();
    if (!context->argument(0).isString() || file.isEmpty())
        return fail(context, "Scene.markers.importFile()",
                    StudioText::tr("argument 1 must be the name of a file"));
    VxFileError error;
    const QString done = MarkerFiles::importFile(vxScene, file, &error);
    return error.isSet() ? fail(context, "Scene.markers.importFile()", error.text())
                         : QScriptValue(done);
}

QScriptValue exportMarkers(QScriptContext *context, QScriptEngine *)
{
    const QString file = context->argument(0).toString();
    if (!context->argument(0).isString() || file.isEmpty())
        return fail(context, "Scene.markers.exportFile()",
                    StudioText::tr("argument 1 must be the name of a file"));
    VxFileError error;
    if (!MarkerFiles::exportFile(vxScene, file, &error))
        return fail(context, "Scene.markers.exportFile()", error.text());
    return true;
}

void add(QScriptEngine *engine, const char *object, const char *name,
         QScriptEngine::FunctionSignature function, DocumentController *document)
{
    QScriptValue callable = engine->newFunction(function);
    callable.setData(engine->newQObject(document));
    engine->globalObject()
        .property(QLatin1String(object))
        .setProperty(QLatin1String(name), callable);
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
