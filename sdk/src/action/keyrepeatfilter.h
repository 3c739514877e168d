#ifndef KEYREPEATFILTER_H
#define KEYREPEATFILTER_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

class QKeyEvent;

/// Keeps a held shortcut key from running on after it is let go.
///
/// While a command takes longer than the keyboard's repeats are apart, repeats pile up in the
/// window system's queue. One that comes late triggers nothing: the next in time follows. Only
/// shortcuts are held back; text fields get every repeat.
///
/// How late one is shows against the earliest of the same hold, because the window system's clock
/// is not this process's.
class KeyRepeatFilter : public QObject
{
public:
    /// Watches the whole application, when there is one.
    explicit KeyRepeatFilter(QObject *parent);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void look(const QKeyEvent *event);

    QElapsedTimer m_clock;
    qint64 m_offset = 0; // milliseconds from the window system's clock to m_clock, without delay
    bool m_isLate = false;
};

#endif
