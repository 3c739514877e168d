#include <vxcore/vxscriptengine.h>

#include "script/runningengines.h"
#include "script/scriptbindings.h"
#include "script/scriptmembers.h"

#include <QtCore/QFile>
#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtScript/QScriptEngine>
#include <QtScript/QScriptValueIterator>
#include <unistd.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxundostack.h>

namespace {

Q_LOGGING_CATEGORY(log, "vx.scripts", QtWarningMsg)

/// Milliseconds between event processing of a running script, so that it can be stopped.
constexpr int AbortInterval = 100;
constexpr qint64 DefaultMemoryLimit = qint64(2) << 30;
constexpr qint64 Megabyte = 1024 * 1024;

QScriptValue print(QScriptContext *context, QScriptEngine *engine, void *owner)
{
    QStringList words;
    for (int i = 0; i < context->argumentCount(); ++i)
        words.append(context->argument(i).toString());
    Q_EMIT static_cast<VxScriptEngine *>(owner)->printed(words.join(QLatin1Char(' ')));
    return engine->undefinedValue();
}

VxScriptError syntaxError(const QString &program, const QString &fileName, int firstLine)
{
    const QScriptSyntaxCheckResult check = QScriptEngine::checkSyntax(program);
    if (check.state() == QScriptSyntaxCheckResult::Valid)
        return {};
    const QString message = check.errorMessage();
    return {fileName, check.errorLineNumber() + firstLine - 1,
            message.isEmpty() ? VxScriptEngine::tr("Syntax error: unexpected end of the script")
                              : VxScriptEngine::tr("Syntax error: %1").arg(message)};
}

/// Closes holds that a program left open, by an error or mistake: later edits by hand would not
/// become undo entries, nor mark the scene as changed.
class HoldCloser
{
public:
    HoldCloser()
        : m_stack(VxUndoStack::current())
        , m_isOther(m_stack && m_stack->isRecording())
    {
    }
    ~HoldCloser()
    {
        for (int i = 0; i < MaxHolds && isOpen(); ++i)
            m_stack->acceptHold(VxScriptEngine::tr("Script"));
    }
    HoldCloser(const HoldCloser &) = delete;
    HoldCloser &operator=(const HoldCloser &) = delete;

private:
    static constexpr int MaxHolds = 20; // nested
    bool isOpen() const { return m_stack && !m_isOther && m_stack->isRecording(); }

    const QPointer<VxUndoStack> m_stack;
    const bool m_isOther;
};

} // namespace

QString VxScriptError::toString() const
{
    const QString file = fileName.isEmpty() ? VxScriptEngine::tr("script") : fileName;
    return line > 0 ? QStringLiteral("%1:%2: %3").arg(file, QString::number(line), message)
                    : QStringLiteral("%1: %2").arg(file, message);
}

class VxScriptEngine::Private
{
public:
    void stop(const QString &reason)
    {
        if (depth == 0)
            return;
        aborted = true;
        abortReason = reason;
        engine.abortEvaluation();
    }

    QScriptEngine engine;
    int depth = 0; // of evaluate() calls: a script may run an action that runs a script
    bool aborted = false;
    QString abortReason;
    QTimer memoryTimer; // active while a stoppable program runs
    qint64 memoryLimit = DefaultMemoryLimit;
    qint64 memoryAtStart = 0;
};

VxScriptEngine::VxScriptEngine(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    QScriptEngine *engine = &d->engine;
    RunningEngines::add(engine);
    QScriptValue global = engine->globalObject();
    global.setProperty(QStringLiteral("print"), engine->newFunction(print, this));
    ScriptBindings::registerTypes(engine);
    ScriptBindings::registerProperties(engine);
    ScriptBindings::registerNodes(engine);
    ScriptBindings::registerScene(engine);
    ScriptBindings::registerMarkers(engine);
    setArguments({});
    d->memoryTimer.setInterval(AbortInterval);
    connect(&d->memoryTimer, &QTimer::timeout, this, [this] {
        if (d->memoryLimit > 0 && memoryInUse() - d->memoryAtStart > d->memoryLimit)
            d->stop(tr("Stopped: the program has exceeded its memory limit of %1 MB")
                        .arg(d->memoryLimit / Megabyte));
    });
}

VxScriptEngine::~VxScriptEngine()
{
    RunningEngines::remove(&d->engine);
}

QScriptEngine *VxScriptEngine::engine() const
{
    return &d->engine;
}

void VxScriptEngine::registerHost()
{
    ScriptBindings::registerApplication(&d->engine);
    if (vxApp)
        vxApp->getPluginMgr()->registerClasses(&d->engine);
}

QString VxScriptEngine::evaluate(const QString &program, const QString &fileName,
                                 VxScriptError *error, int firstLine)
{
    VxScriptError failure = syntaxError(program, fileName, firstLine);
    QString result;
    qCDebug(log).noquote() << "running" << (fileName.isEmpty() ? program.left(80) : fileName);
    if (failure.isNull()) {
        const HoldCloser holds;
        if (d->depth++ == 0 && d->engine.processEventsInterval() > 0) {
            d->memoryAtStart = memoryInUse();
            d->memoryTimer.start();
        }
        d->aborted = false;
        const QScriptValue value = d->engine.evaluate(program, fileName, firstLine);
        if (--d->depth == 0)
            d->memoryTimer.stop();
        if (d->aborted) {
            failure = {fileName, -1, d->abortReason};
        } else if (d->engine.hasUncaughtException()) {
            failure = {fileName, d->engine.uncaughtExceptionLineNumber(), value.toString()};
        } else if (!value.isUndefined()) {
            result = value.toString();
        }
        if (d->depth == 0)
            d->engine.clearExceptions();
    }
    if (!failure.isNull())
        qCInfo(log).noquote() << failure.toString();
    if (error)
        *error = failure;
    return result;
}

bool VxScriptEngine::runFile(const QString &fileName, VxScriptError *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = {fileName, -1, tr("The file cannot be read: %1").arg(file.errorString())};
        return false;
    }
    VxScriptError failure;
    evaluate(QString::fromUtf8(file.readAll()), fileName, &failure);
    if (error)
        *error = failure;
    return failure.isNull();
}

void VxScriptEngine::setArguments(const QStringList &arguments)
{
    d->engine.globalObject().setProperty(QStringLiteral("arguments"),
                                         qScriptValueFromSequence(&d->engine, arguments));
}

QStringList VxScriptEngine::globalNames() const
{
    QStringList names;
    QScriptValueIterator it(d->engine.globalObject());
    while (it.hasNext()) {
        it.next();
        names.append(it.name());
    }
    names.sort();
    return names;
}

QStringList VxScriptEngine::memberNames(const QString &expression) const
{
    const QScriptValue value = ScriptMembers::resolve(d->engine.globalObject(), expression);
    // Reading a property of a destroyed object is no error of a program.
    if (d->depth == 0)
        d->engine.clearExceptions();
    return value.isObject() ? ScriptMembers::names(value) : QStringList();
}

bool VxScriptEngine::isComplete(const QString &program)
{
    const QScriptSyntaxCheckResult check = QScriptEngine::checkSyntax(program);
    if (check.state() != QScriptSyntaxCheckResult::Error)
        return check.state() == QScriptSyntaxCheckResult::Valid;
    // The checker rejects some programs that are only incomplete: their error moves when an always
    // invalid character follows.
    const QString longer = program + QStringLiteral("\n@");
    return QScriptEngine::checkSyntax(longer).errorLineNumber() <=
           program.count(QLatin1Char('\n')) + 1;
}

bool VxScriptEngine::isRunning() const
{
    return d->depth > 0;
}

void VxScriptEngine::setStoppable(bool stoppable)
{
    d->engine.setProcessEventsInterval(stoppable ? AbortInterval : -1);
}

void VxScriptEngine::setMemoryLimit(qint64 bytes)
{
    d->memoryLimit = bytes;
}

qint64 VxScriptEngine::memoryInUse()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // The second number is the count of resident pages.
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

void VxScriptEngine::abort()
{
    d->stop(tr("Stopped"));
}
