#ifndef ENDSIGNALS_H
#define ENDSIGNALS_H

#include <QObject>
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

    class Private;
    std::unique_ptr<Private> d;
};

#endif
