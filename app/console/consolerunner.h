#ifndef CONSOLERUNNER_H
#define CONSOLERUNNER_H

#include <QObject>

class VxScriptEngine;
struct VxScriptError;

/// Runs programs for a console, one at a time, and lets the window live meanwhile.
///
/// What a program changes in the scene is one entry of the history, named by the program's first
/// line; a program that works on the history itself, by `Undo`, is left to make its own entries.
class ConsoleRunner : public QObject
{
    Q_OBJECT
public:
    /// The engine is borrowed and must outlive the runner.
    explicit ConsoleRunner(VxScriptEngine *engine, QObject *parent = nullptr);

    bool isRunning() const;
    /// Returns when the program has ended; false when another one is running.
    bool run(const QString &program);
    /// Ends the running program at its next statement.
    void stop();

    /// The text of a program's entry in the history.
    static QString entryText(const QString &program);

    /// Ends the program when the main window is closed.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void started();
    /// Exactly one of these two, before finished(); result is empty when there is none.
    void succeeded(const QString &result);
    void failed(const VxScriptError &error);
    void finished();

private:
    VxScriptEngine *const m_engine;
    bool m_isRunning = false;
};

#endif
