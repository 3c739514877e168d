#ifndef VXCORE_VXSCRIPTENGINE_H
#define VXCORE_VXSCRIPTENGINE_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class QScriptEngine;
class QScriptValue;

/// What went wrong in a script: where and why.
struct VXCORE_EXPORT VxScriptError
{
    QString fileName;
    int line = -1; ///< 1-based; -1 when unknown
    QString message;

    bool isNull() const { return message.isEmpty(); }
    /// "file:line: message".
    QString toString() const;
};

/// The application's script engine: ECMAScript with the globals `Scene`, `App`, `Undo`, `print`
/// and `arguments`, nodes and properties with their keys, and every registered class.
///
/// Edits made by a script go through the same operations as those made by hand.
class VXCORE_EXPORT VxScriptEngine : public QObject
{
    Q_OBJECT
public:
    explicit VxScriptEngine(QObject *parent = nullptr);
    ~VxScriptEngine() override;

    QScriptEngine *engine() const;

    /// Makes `Scene`, `App` and `Undo` stand for the current application's objects and registers
    /// the classes of the plug-in manager. Call it after plug-ins were loaded; again to add those
    /// loaded since.
    void registerHost();

    /// Runs a program. fileName and firstLine are what errors name. Returns the value of the last
    /// statement as text, an empty string for undefined. On an error (syntax or uncaught
    /// exception) error is filled, when given.
    QString evaluate(const QString &program, const QString &fileName = QString(),
                     VxScriptError *error = nullptr, int firstLine = 1);

    /// Reads and runs a file (UTF-8). A file that cannot be read is an error without a line.
    bool runFile(const QString &fileName, VxScriptError *error = nullptr);

    /// What scripts see as the global array `arguments`.
    void setArguments(const QStringList &arguments);

    /// The names of the global object's properties, sorted: for completion.
    QStringList globalNames() const;

    /// The names that can follow a dot behind an expression of names and indexes joined by dots
    /// and brackets, such as `Scene` or `nodes[0].label`, sorted: for completion. Nothing but
    /// properties is read on the way; empty when the expression is another, or leads to nothing.
    QStringList memberNames(const QString &expression) const;

    /// False when a program is right so far but ends too early, such as one with an open brace.
    static bool isComplete(const QString &program);
    /// True while a program runs.
    bool isRunning() const;

    /// With true, running programs let events through now and then, so that abort() can be
    /// called; without (the default) they run to their end undisturbed.
    void setStoppable(bool stoppable);
    /// Stops the running program at its next statement, with an error.
    void abort();

    /// Programs that can be stopped are, with an error, when the process has grown by more than
    /// this many bytes since their start; 0 for no limit. 2 GB unless set. Sampled ten times a
    /// second, between statements: a single call can exceed it.
    void setMemoryLimit(qint64 bytes);
    /// The process's memory in bytes, as the system counts it; 0 where it does not say.
    static qint64 memoryInUse();

Q_SIGNALS:
    /// A line that a script printed, without its line end.
    void printed(const QString &text);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
