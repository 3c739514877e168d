#ifndef CONSOLERUNNER_H
#define CONSOLERUNNER_H

#include <QObject>

class VxScriptEngine;
struct VxScriptError;

/// Runs programs for a console, one at a time, while the window stays responsive.
///
/// A program's changes of the scene are one undo entry, named by the program's first line; a
/// program that uses `Undo` makes its own entries.
class ConsoleRunner : public QObject
{
    Q_OBJECT
public:
    /// The engine is borrowed and must outlive the runner.
    explicit ConsoleRunner(VxScriptEngine *engine, QObject *parent = nullptr);

    bool isRunning() const { return m_isRunning; }
    /// Returns when the program has ended; false when another one is running.
    bool run(const QString &program);
    /// Ends the running program at its next statement.
    void stop();

    /// The text of a program's undo entry.
    static QString entryText(const QString &program);

    /// Ends the program when the main window is closed.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void started();
    /// Exactly one of these two, before finished(); result is empty without a value.
    void succeeded(const QString &result);
    void failed(const VxScriptError &error);
    void finished();

private:
    VxScriptEngine *const m_engine;
    bool m_isRunning = false;
};

#endif
