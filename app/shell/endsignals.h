#ifndef ENDSIGNALS_H
#define ENDSIGNALS_H

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <memory>

/// Reports the system's requests to end: the machine shuts down, the terminal is closed or
/// interrupted. During its lifetime they do not end the program at once, but the second of the same
/// kind does, so that a program that hangs can still be ended. Ignored requests stay ignored.
class EndSignals : public QObject
{
    Q_OBJECT
public:
    /// One at a time.
    explicit EndSignals(QObject *parent = nullptr);
    /// Restores the former effect of the requests.
    ~EndSignals() override;

Q_SIGNALS:
    /// From the event loop; number: the system's, such as SIGTERM.
    void received(int number);

private:
    void read();

    static constexpr std::array<int, 3> Numbers = {SIGTERM, SIGHUP, SIGINT};

    std::array<int, 2> m_pipe = {-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::array<struct sigaction, Numbers.size()> m_former = {};
};

#endif
