#ifndef CONSOLEINPUT_H
#define CONSOLEINPUT_H

#include "console/consolehistory.h"

#include <QPlainTextEdit>
#include <QStringListModel>

class QCompleter;
class VxScriptEngine;

/// The field for writing programs, which grows with the number of lines.
///
/// Return runs a complete program and otherwise opens a new line; with Shift it always opens a
/// line, with Ctrl it always runs. Up in the first line and Down in the last one, or anywhere with
/// Ctrl, recall earlier programs. Tab completes the word, or indents; so does a dot, automatically,
/// when the members before it can be read.
class ConsoleInput : public QPlainTextEdit
{
    Q_OBJECT
public:
    /// The engine is borrowed and must outlive the field.
    explicit ConsoleInput(VxScriptEngine *engine, QWidget *parent = nullptr);

    ConsoleHistory &history() { return m_history; }
    const ConsoleHistory &history() const { return m_history; }
    /// The popup of completions.
    QCompleter *completer() const { return m_completer; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {80, sizeHint().height()}; }

Q_SIGNALS:
    /// The user submitted the program; it is in the history and no longer in the field.
    void submitted(const QString &program);
    /// Escape, with no list open.
    void escaped();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    bool handleReturn(const QKeyEvent *event);
    bool handleHistoryKey(const QKeyEvent *event);
    bool handleTab(const QKeyEvent *event);
    void submit();
    void openLine();
    void bringBack(const QString &program);
    /// single: inserts a unique completion at once.
    void complete(bool single);
    void insertCompletion(const QString &completion);
    void updateHeight();

    VxScriptEngine *const m_engine;
    QCompleter *m_completer;
    QStringListModel m_completions;
    ConsoleHistory m_history;
};

#endif
