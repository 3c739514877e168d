#ifndef CONSOLEOUTPUT_H
#define CONSOLEOUTPUT_H

#include <QPlainTextEdit>
#include <QTimer>
#include <QVector>

/// What programs have printed, given back and done wrong, as lines that can be read and copied.
///
/// Lines are shown some times a second only, and the oldest ones go when there are very many, so
/// that a program that prints without end costs no more than one that runs without end.
class ConsoleOutput : public QPlainTextEdit
{
    Q_OBJECT
public:
    enum class Kind { Program, Printed, Result, Error };

    static constexpr int MaxLines = 5000;

    explicit ConsoleOutput(QWidget *parent = nullptr);

    /// Text of one or several lines.
    void add(Kind kind, const QString &text);
    /// Shows at once what waits.
    void flush();
    void clearAll();

private:
    struct Line
    {
        Kind kind;
        QString text;
    };

    QTextCharFormat formatOf(Kind kind) const;

    QVector<Line> m_waiting;
    QTimer m_timer;
};

#endif
