#ifndef MONKEY_H
#define MONKEY_H

#include "monkeylog.h"
#include "monkeymouse.h"
#include "monkeyrandom.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

class QDockWidget;
class QMenu;
class StudioWindow;

/// Works the whole program with random input: mouse, wheel, keys, menus, docks that are moved by
/// program, windows and scripts, everywhere where something can be seen. Each event is one step of
/// the event loop, so that it continues within menus, dialogs and drags that run loops of their
/// own.
///
/// The same seed makes the same choices; their effect may differ with timing.
class Monkey : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        quint32 seed = 1;
        qint64 events = 10000;
        int redocks = 0;  ///< percent of the events that move docks beyond those of the mixture
        QString document; ///< opened anew from time to time; may be written to
        QString logFile;  ///< MonkeyLog; empty for none
    };

    /// The window is not owned.
    Monkey(StudioWindow *window, const Options &options);

    /// Begins with the next iteration of the event loop.
    void start();

    qint64 events() const { return m_done; }
    /// Kinds of events with their counts, one line each, sorted by name.
    QString report() const;
    /// What was found wrong by the checks between events; empty when nothing was.
    QStringList failures() const { return m_failures; }

Q_SIGNALS:
    void finished();

private:
    using Act = void (Monkey::*)();
    struct Kind
    {
        Act act;
        int weight;
    };

    void step();
    void act();
    void count(const char *kind, const QString &what = QString());
    bool closeDialogs();

    void moveMouse();
    void pressMouse();
    void clickTwice();
    void releaseMouse();
    void turnWheel();
    void pressKey();
    void openMenu();
    void triggerAction();
    void moveDock();
    void resizeSomething();
    void runScript();
    void reopen();
    void checkScene();

    void dockByProgram(QDockWidget *dock, QDockWidget *other);
    QWidget *targetWindow();
    QPoint targetPosition(const QWidget *top);
    Qt::KeyboardModifiers modifiers();
    QWidget *randomWidget(const QWidget *top);

    QPointer<StudioWindow> m_window;
    const Options m_options;
    MonkeyRandom m_random;
    MonkeyMouse m_mouse;
    MonkeyLog m_log;
    QMap<QByteArray, qint64> m_counts;
    QStringList m_failures;
    QVector<QPointer<QWidget>> m_widgets; // some that were visible a short while ago
    QPointer<QWidget> m_widgetsOf;
    qint64 m_done = 0;
    int m_depth = 0; // steps within steps
    int m_heldMoves = 0;
};

#endif
