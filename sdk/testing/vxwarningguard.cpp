#include "testing/vxwarningguard.h"

#include <QCoreApplication>
#include <QMutex>
#include <QThread>
#include <QtTest>
#include <algorithm>
#include <vector>

namespace {

struct Expectation
{
    QRegularExpression pattern;
    QString shown; // how an unmet expectation is named in the failure
};

struct Failure
{
    QByteArray text;
    QByteArray file;
    int line = 0;
};

bool onGuiThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

void failTest(const Failure &failure)
{
    if (!QTest::currentTestFunction())
        qFatal("VxWarningGuard outside a running test: %s", failure.text.constData());
    QTest::qFail(failure.text.constData(), failure.file.constData(), failure.line);
}

} // namespace

class VxWarningGuard::Private
{
public:
    mutable QMutex mutex;
    std::vector<Expectation> expectations;
    std::vector<Failure> left; // received on other threads, reported at the end
    QStringList received;

    void add(const QRegularExpression &pattern, const QString &shown)
    {
        if (!pattern.isValid())
            failTest({"VxWarningGuard: invalid pattern " + pattern.pattern().toUtf8(), __FILE__,
                      __LINE__});
        QMutexLocker locker(&mutex);
        expectations.push_back({pattern, shown});
    }

    /** Stores the message. True when it was announced; the announcement is used up then. */
    bool takeExpected(const QString &message)
    {
        QMutexLocker locker(&mutex);
        received.append(message);
        const auto met =
            std::find_if(expectations.begin(), expectations.end(),
                         [&](const Expectation &e) { return e.pattern.match(message).hasMatch(); });
        if (met == expectations.end())
            return false;
        expectations.erase(met);
        return true;
    }

    void fail(const Failure &failure)
    {
        if (onGuiThread()) {
            failTest(failure);
            return;
        }
        QMutexLocker locker(&mutex);
        left.push_back(failure);
    }
};

/**
 * The one message handler all guards share. It stays installed from the first guard to the last,
 * so that guards may end in any order: a test that replaces its guard makes the new one before the
 * old one is destroyed.
 */
class VxWarningGuardHandler
{
public:
    using Record = std::shared_ptr<VxWarningGuard::Private>;

    static void add(const Record &record)
    {
        QMutexLocker locker(&mutex());
        if (records().empty())
            former() = qInstallMessageHandler(&VxWarningGuardHandler::handle);
        records().push_back(record);
    }

    static void remove(const Record &record)
    {
        QMutexLocker locker(&mutex());
        records().erase(std::find(records().begin(), records().end(), record));
        if (!records().empty())
            return;
        const QtMessageHandler current = qInstallMessageHandler(former());
        // A handler that was installed meanwhile stays installed.
        if (current != &VxWarningGuardHandler::handle)
            qInstallMessageHandler(current);
    }

private:
    static QMutex &mutex()
    {
        static QMutex instance;
        return instance;
    }
    static std::vector<Record> &records()
    {
        static std::vector<Record> instance;
        return instance;
    }
    static QtMessageHandler &former()
    {
        static QtMessageHandler instance = nullptr;
        return instance;
    }

    static void passOn(QtMsgType type, const QMessageLogContext &context, const QString &message,
                       QtMessageHandler next)
    {
        if (next)
            next(type, context, message);
        else
            fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    }

    // What the offscreen platform says when a window is raised, sized or grabs the keyboard: a
    // limit of the platform the tests run on, not of what they test.
    static bool isPlatformNotice(const QString &message)
    {
        return message.startsWith(QLatin1String("This plugin does not support "));
    }

    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        Record innermost;
        QtMessageHandler next = nullptr;
        {
            QMutexLocker locker(&mutex());
            next = former();
            if (!records().empty())
                innermost = records().back();
        }
        const bool counts = type == QtWarningMsg || type == QtCriticalMsg;
        if (!counts || !innermost || isPlatformNotice(message)) {
            passOn(type, context, message, next);
            return;
        }
        if (innermost->takeExpected(message))
            return;
        passOn(type, context, message, next);
        innermost->fail(
            {"Unexpected warning: " + message.toUtf8(), QByteArray(context.file), context.line});
    }
};

VxWarningGuard::VxWarningGuard()
    : d(std::make_shared<Private>())
{
    VxWarningGuardHandler::add(d);
}

VxWarningGuard::~VxWarningGuard()
{
    VxWarningGuardHandler::remove(d);
    QMutexLocker locker(&d->mutex);
    for (const Failure &failure : d->left)
        failTest(failure);
    for (const Expectation &unmet : d->expectations)
        failTest(
            {"Announced warning was not emitted: " + unmet.shown.toUtf8(), __FILE__, __LINE__});
}

void VxWarningGuard::expect(const QRegularExpression &pattern)
{
    d->add(pattern, pattern.pattern());
}

void VxWarningGuard::expect(const char *text)
{
    const QString exact = QString::fromUtf8(text);
    d->add(QRegularExpression(QStringLiteral("\\A%1\\z").arg(QRegularExpression::escape(exact))),
           exact);
}

QStringList VxWarningGuard::messages() const
{
    QMutexLocker locker(&d->mutex);
    return d->received;
}
