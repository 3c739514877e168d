#include "shell/windowpicture.h"

#include "widgets/studiotext.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QImageWriter>
#include <QPixmap>
#include <QThread>
#include <QWidget>
#include <QWindow>

namespace {

constexpr int MaxWait = 3000;   // milliseconds
constexpr int StableTime = 150; // longer than the panes' own timers
constexpr int Pause = 5;

/// Detects every event that changes a window's appearance.
class ChangeWatcher : public QObject
{
public:
    ChangeWatcher() { QCoreApplication::instance()->installEventFilter(this); }

    bool testAndClearChanged()
    {
        const bool changed = m_changed;
        m_changed = false;
        return changed;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::LayoutRequest:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Paint:
            m_changed = true;
            break;
        default:
            break;
        }
        return false;
    }

private:
    bool m_changed = false;
};

/** Stable: the window is exposed and has not changed for StableTime. Waits for MaxWait at most. */
void waitUntilStable(const QWidget *window)
{
    ChangeWatcher watcher;
    QElapsedTimer total;
    QElapsedTimer stable;
    total.start();
    stable.start();
    while (total.elapsed() < MaxWait) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool exposed = window->windowHandle() && window->windowHandle()->isExposed();
        if (watcher.testAndClearChanged() || !exposed)
            stable.restart();
        else if (stable.elapsed() >= StableTime)
            return;
        QThread::msleep(Pause);
    }
}

} // namespace

bool writeWindowPicture(QWidget *window, const QSize &size, const QString &fileName, QString *error)
{
    window->setMinimumSize(size);
    window->resize(size);
    window->show();
    waitUntilStable(window);
    QImageWriter writer(fileName, "png");
    if (writer.write(window->grab().toImage()))
        return true;
    *error = StudioText::tr("Cannot write the picture %1: %2").arg(fileName, writer.errorString());
    return false;
}
