#ifndef KEYREPEATFILTER_H
#define KEYREPEATFILTER_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

class QKeyEvent;

/// Stops the effect of a held shortcut key at its release.
///
/// While a command takes longer than the interval of key repeats, repeats pile up in the window
/// system's queue. A late one triggers nothing: the next one in time does. Only shortcuts are
/// suppressed; text fields get every repeat.
///
/// The delay is measured against the earliest event of the same hold, because the window system's
/// clock is not this process's.
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
