#include "shell/scriptwatchdog.h"

#include "shell/commandline.h"
#include "widgets/studiotext.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>
#include <vxcore/vxscriptengine.h>

namespace {

constexpr std::chrono::milliseconds Interval(20);
constexpr qint64 Megabyte = 1024 * 1024;

/// Without cleanup: the other thread may hold any lock.
[[noreturn]] void end(const QByteArray &message)
{
    const ssize_t written = ::write(STDERR_FILENO, message.constData(), size_t(message.size()));
    Q_UNUSED(written)
    ::_exit(CommandLine::Failure);
}

} // namespace

ScriptWatchdog::ScriptWatchdog(const QString &scriptFile, const Limits &limits)
    : m_limits(limits)
    , m_timeMessage(StudioText::tr("%1: the script has exceeded its time limit of %2 s\n")
                        .arg(scriptFile, QString::number(limits.seconds))
                        .toLocal8Bit())
    , m_memoryMessage(StudioText::tr("%1: the script has exceeded its memory limit of %2 MB\n")
                          .arg(scriptFile, QString::number(limits.megabytes))
                          .toLocal8Bit())
    , m_firstBytes(VxScriptEngine::memoryInUse())
    , m_thread([this] { watch(); })
{
}

ScriptWatchdog::~ScriptWatchdog()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_done = true;
    }
    m_condition.notify_one();
    m_thread.join();
}

void ScriptWatchdog::watch()
{
    const auto start = std::chrono::steady_clock::now();
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_condition.wait_for(lock, Interval, [this] { return m_done; })) {
        const auto spent = std::chrono::steady_clock::now() - start;
        if (m_limits.seconds > 0 && spent >= std::chrono::seconds(m_limits.seconds))
            end(m_timeMessage);
        const qint64 used = VxScriptEngine::memoryInUse() - m_firstBytes;
        if (m_limits.megabytes > 0 && used > m_limits.megabytes * Megabyte)
            end(m_memoryMessage);
    }
}
