#ifndef SCRIPTWATCHDOG_H
#define SCRIPTWATCHDOG_H

#include <QString>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Ends the program, with a message and exit code 1, when a script of a run without a user exceeds
/// its limits: nobody is there to stop it, and it may be deep in a call that nothing else ends.
/// Files are replaced whole or not at all, so that none is left half written.
class ScriptWatchdog
{
public:
    struct Limits
    {
        int seconds = 0;      ///< from now on; 0 for no limit
        qint64 megabytes = 0; ///< beyond what the program has now; 0 for no limit
    };

    /// Watches from now on. scriptFile is what the message names.
    ScriptWatchdog(const QString &scriptFile, const Limits &limits);
    /// The script has ended in time.
    ~ScriptWatchdog();
    ScriptWatchdog(const ScriptWatchdog &) = delete;
    ScriptWatchdog &operator=(const ScriptWatchdog &) = delete;

private:
    void watch();

    const QByteArray m_scriptFile;
    const Limits m_limits;
    const qint64 m_firstBytes;
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_done = false;
    std::thread m_thread;
};

#endif
