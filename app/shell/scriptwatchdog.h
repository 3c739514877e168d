#ifndef SCRIPTWATCHDOG_H
#define SCRIPTWATCHDOG_H

#include <QString>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Ends the program, with a message and exit code 1, when a script of a run without a user exceeds
/// its limits: no user can stop it, and it may be deep in a call that cannot be interrupted. Files
/// are replaced atomically, so that none is left half written.
class ScriptWatchdog
{
public:
    struct Limits
    {
        int seconds = 0;      ///< from now on; 0 for no limit
        qint64 megabytes = 0; ///< beyond what the program has now; 0 for no limit
    };

    /// Starts watching. The message contains scriptFile.
    ScriptWatchdog(const QString &scriptFile, const Limits &limits);
    /// The script has ended in time.
    ~ScriptWatchdog();
    ScriptWatchdog(const ScriptWatchdog &) = delete;
    ScriptWatchdog &operator=(const ScriptWatchdog &) = delete;

private:
    void watch();

    const Limits m_limits;
    const QByteArray m_timeMessage;
    const QByteArray m_memoryMessage;
    const qint64 m_firstBytes;
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_done = false;
    std::thread m_thread;
};

#endif
