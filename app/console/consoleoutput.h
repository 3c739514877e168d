#ifndef CONSOLEOUTPUT_H
#define CONSOLEOUTPUT_H

#include <QPlainTextEdit>
#include <QTimer>
#include <QVector>

/// The printed lines, results and errors of programs, to be read and copied.
///
/// Lines are shown only some times a second, and the oldest are dropped beyond a limit, so that a
/// program that prints endlessly costs no more than one that runs endlessly.
class ConsoleOutput : public QPlainTextEdit
{
    Q_OBJECT
public:
    enum class Kind { Program, Printed, Result, Error };

    static constexpr int MaxLines = 5000;

    explicit ConsoleOutput(QWidget *parent = nullptr);

    /// Text of one or several lines.
    void add(Kind kind, const QString &text);
    /// Shows pending lines at once.
    void flush();
    void clearAll();

private:
    struct Line
    {
        Kind kind;
        QString text;
    };

    QTextCharFormat formatOf(Kind kind) const;

    QVector<Line> m_pending;
    QTimer m_timer;
};

#endif
