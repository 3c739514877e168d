#ifndef VXSCRIPTENGINE_H
#define VXSCRIPTENGINE_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class QScriptEngine;

/// An error in a script: position and message.
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
/// Edits made by a script use the same operations as those made by hand.
class VXCORE_EXPORT VxScriptEngine : public QObject
{
    Q_OBJECT
public:
    explicit VxScriptEngine(QObject *parent = nullptr);
    ~VxScriptEngine() override;

    QScriptEngine *engine() const;

    /// Binds `Scene`, `App` and `Undo` to the current application's objects and registers the
    /// classes of the plug-in manager. Call it after plug-ins were loaded; again to add those
    /// loaded since.
    void registerHost();

    /// Runs a program. fileName and firstLine appear in errors. Returns the value of the last
    /// statement as text, an empty string for undefined. On an error (syntax or uncaught
    /// exception) error is filled, when given.
    QString evaluate(const QString &program, const QString &fileName = QString(),
                     VxScriptError *error = nullptr, int firstLine = 1);

    /// Reads and runs a file (UTF-8). A file that cannot be read is an error without a line.
    bool runFile(const QString &fileName, VxScriptError *error = nullptr);

    /// The contents of the global array `arguments`.
    void setArguments(const QStringList &arguments);

    /// The names of the global object's properties, sorted: for completion.
    QStringList globalNames() const;

    /// The names that can follow a dot after an expression of names and indexes joined by dots
    /// and brackets, such as `Scene` or `nodes[0].label`, sorted: for completion. Evaluation only
    /// reads properties; empty when the expression is of another form, or has no value.
    QStringList memberNames(const QString &expression) const;

    /// False when a program is valid so far but incomplete, such as one with an open brace.
    static bool isComplete(const QString &program);
    /// True while a program runs.
    bool isRunning() const;

    /// With true, running programs process events periodically, so that abort() can be called;
    /// without (the default) they run to their end without events.
    void setStoppable(bool stoppable);
    /// Stops the running program at its next statement, with an error.
    void abort();

    /// Stops a stoppable program, with an error, when the process has grown by more than this many
    /// bytes since its start; 0 for no limit. 2 GB unless set. Sampled ten times a second, between
    /// statements: a single call can exceed it.
    void setMemoryLimit(qint64 bytes);
    /// The process's memory in bytes, as reported by the system; 0 when unavailable.
    static qint64 memoryInUse();

Q_SIGNALS:
    /// A line that a script printed, without its line end.
    void printed(const QString &text);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
