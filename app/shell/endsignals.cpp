#include "shell/endsignals.h"

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> Numbers = {SIGTERM, SIGHUP, SIGINT};

int writeEnd = -1;

/// Only async-signal-safe calls; the event loop does the rest.
void handle(int number)
{
    const auto byte = static_cast<char>(number);
    if (::write(writeEnd, &byte, 1) != 1)
        ::_exit(128 + number);
}

} // namespace

class EndSignals::Private
{
public:
    std::array<int, 2> pipe = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier;
    std::array<struct sigaction, Numbers.size()> former = {};
};

EndSignals::EndSignals(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    // Without a pipe the signals keep their default effect.
    if (::pipe2(d->pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    d->notifier = std::make_unique<QSocketNotifier>(d->pipe[0], QSocketNotifier::Read);
    connect(d->notifier.get(), &QSocketNotifier::activated, this, &EndSignals::read);
    writeEnd = d->pipe[1];
    struct sigaction action = {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < Numbers.size(); ++i) {
        ::sigaction(Numbers[i], nullptr, &d->former[i]);
        // Keeps signals ignored that the parent process disabled, as nohup does.
        if (d->former[i].sa_handler != SIG_IGN)
            ::sigaction(Numbers[i], &action, nullptr);
    }
}

EndSignals::~EndSignals()
{
    if (!d->notifier)
        return;
    for (std::size_t i = 0; i < Numbers.size(); ++i)
        ::sigaction(Numbers[i], &d->former[i], nullptr);
    d->notifier.reset();
    ::close(d->pipe[0]);
    ::close(d->pipe[1]);
}

void EndSignals::read()
{
    char number = 0;
    if (::read(d->pipe[0], &number, 1) == 1)
        Q_EMIT received(number);
}
