#ifndef CONSOLEINPUT_H
#define CONSOLEINPUT_H

#include "console/consolehistory.h"

#include <QPlainTextEdit>
#include <QStringListModel>

class QCompleter;
class VxScriptEngine;

/// The field in which programs are written, of as many lines as it takes.
///
/// Return runs a program that is complete and opens a new line in one that is not; with Shift it
/// always opens a line, with Ctrl it always runs. Up in the first line and Down in the last one, or
/// anywhere with Ctrl, bring back programs that were run. Tab completes the word, or indents; so
/// does a dot, by itself, where something is known behind it.
class ConsoleInput : public QPlainTextEdit
{
    Q_OBJECT
public:
    /// The engine is borrowed and must outlive the field.
    explicit ConsoleInput(VxScriptEngine *engine, QWidget *parent = nullptr);

    ConsoleHistory &history() { return m_history; }
    const ConsoleHistory &history() const { return m_history; }
    /// The list that is offered while a word is being completed.
    QCompleter *completer() const { return m_completer; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user wants the program to be run; it is in the history and no longer in the field.
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
    /// single: puts a completion in at once when there is just one.
    void complete(bool single);
    void insertCompletion(const QString &completion);
    void updateHeight();

    VxScriptEngine *const m_engine;
    QCompleter *m_completer;
    QStringListModel m_completions;
    ConsoleHistory m_history;
};

#endif
