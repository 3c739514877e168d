#include "console/consolerunner.h"

#include <QEvent>
#include <QPointer>
#include <QRegularExpression>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int LongestText = 40;

bool usesHistory(const QString &program)
{
    static const QRegularExpression name(QStringLiteral("\\bUndo\\b"));
    return program.contains(name);
}

} // namespace

ConsoleRunner::ConsoleRunner(VxScriptEngine *engine, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
{
    connect(vxApp, &VxApp::closing, this, &ConsoleRunner::stop);
}

bool ConsoleRunner::run(const QString &program)
{
    if (m_isRunning || m_engine->isRunning())
        return false;
    m_isRunning = true;
    Q_EMIT started();
    // A program must not outlive the window that shows its output.
    const QPointer<VxMainWindow> window = vxApp->getInterface();
    if (window)
        window->installEventFilter(this);
    VxScriptError error;
    QString result;
    m_engine->setStoppable(true);
    if (usesHistory(program)) {
        result = m_engine->evaluate(program, QStringLiteral("console"), &error);
    } else {
        VxUndoStackHold hold;
        result = m_engine->evaluate(program, QStringLiteral("console"), &error);
        // Changes before an error can be undone, too.
        hold.accept(entryText(program));
    }
    m_engine->setStoppable(false);
    if (window)
        window->removeEventFilter(this);
    m_isRunning = false;
    if (error.isNull())
        Q_EMIT succeeded(result);
    else
        Q_EMIT failed(error);
    Q_EMIT finished();
    return true;
}

bool ConsoleRunner::eventFilter(QObject *watched, QEvent *event)
{
    // Minimising hides the window too, but spontaneously.
    if (event->type() == QEvent::Hide && !event->spontaneous())
        stop();
    return QObject::eventFilter(watched, event);
}

void ConsoleRunner::stop()
{
    if (m_isRunning)
        m_engine->abort();
}

QString ConsoleRunner::entryText(const QString &program)
{
    QString line = program.trimmed().section(QLatin1Char('\n'), 0, 0).simplified();
    if (line.size() > LongestText)
        line = line.left(LongestText - 1) + QChar(0x2026);
    return tr("Script: %1").arg(line);
}
