#include "shell/endsignals.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

int writeEnd = -1;

/// Only async-signal-safe calls; the event loop does the rest.
void handle(int number)
{
    const auto byte = static_cast<char>(number);
    if (::write(writeEnd, &byte, 1) != 1)
        ::_exit(128 + number);
}

} // namespace

EndSignals::EndSignals(QObject *parent)
    : QObject(parent)
{
    // Without a pipe the signals keep their default effect.
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &EndSignals::read);
    writeEnd = m_pipe[1];
    struct sigaction action = {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < Numbers.size(); ++i) {
        ::sigaction(Numbers[i], nullptr, &m_former[i]);
        // Keeps signals ignored that the parent process disabled, as nohup does.
        if (m_former[i].sa_handler != SIG_IGN)
            ::sigaction(Numbers[i], &action, nullptr);
    }
}

EndSignals::~EndSignals()
{
    if (!m_notifier)
        return;
    for (std::size_t i = 0; i < Numbers.size(); ++i)
        ::sigaction(Numbers[i], &m_former[i], nullptr);
    m_notifier.reset();
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

void EndSignals::read()
{
    char number = 0;
    if (::read(m_pipe[0], &number, 1) == 1)
        Q_EMIT received(number);
}
