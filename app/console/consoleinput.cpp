#include "console/consoleinput.h"

#include "console/scriptcompletion.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <vxcore/vxscriptengine.h>

namespace {

constexpr int MaxLines = 8; // visible without scrolling
const QString Indent = QStringLiteral("    ");

bool isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

ConsoleInput::ConsoleInput(VxScriptEngine *engine, QWidget *parent)
    : QPlainTextEdit(parent)
    , m_engine(engine)
    , m_completer(new QCompleter(this))
{
    setObjectName(QStringLiteral("ConsoleInput"));
    setAccessibleName(tr("Script"));
    setPlaceholderText(tr("Type a script; Return runs it, Tab completes names"));
    setLineWrapMode(NoWrap);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_completer->setWidget(this);
    m_completer->setModel(&m_completions);
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setMaxVisibleItems(10);
    connect(m_completer, QOverload<const QString &>::of(&QCompleter::activated), this,
            &ConsoleInput::insertCompletion);
    connect(document(), &QTextDocument::blockCountChanged, this, &ConsoleInput::updateHeight);
    updateHeight();
}

QSize ConsoleInput::sizeHint() const
{
    const int lines = qBound(1, document()->blockCount(), MaxLines);
    const int inner = lines * fontMetrics().lineSpacing() + int(2 * document()->documentMargin());
    return {200, inner + 2 * frameWidth()};
}

void ConsoleInput::updateHeight()
{
    const bool fits = document()->blockCount() <= MaxLines;
    setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setFixedHeight(sizeHint().height());
}

void ConsoleInput::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateHeight();
}

/** Keys of the field have priority over the window's shortcuts. */
bool ConsoleInput::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool moves = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
        if (isReturn(key) || moves || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Escape) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

void ConsoleInput::keyPressEvent(QKeyEvent *event)
{
    // The open list gets the keys first and passes these on to the field.
    const bool listIsOpen = m_completer->popup()->isVisible();
    if (listIsOpen && (isReturn(event) || event->key() == Qt::Key_Tab)) {
        const QModelIndex chosen = m_completer->popup()->currentIndex();
        insertCompletion((chosen.isValid() ? chosen : m_completions.index(0)).data().toString());
        m_completer->popup()->hide();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        if (listIsOpen)
            m_completer->popup()->hide();
        else
            Q_EMIT escaped();
        return;
    }
    if (isReadOnly() || handleReturn(event) || handleHistoryKey(event) || handleTab(event))
        return;
    QPlainTextEdit::keyPressEvent(event);
    if (event->text() == QLatin1String(".") || listIsOpen)
        complete(false);
}

bool ConsoleInput::handleReturn(const QKeyEvent *event)
{
    if (!isReturn(event))
        return false;
    const bool always = event->modifiers() & Qt::ControlModifier;
    const bool never = event->modifiers() & Qt::ShiftModifier;
    if (always || (!never && VxScriptEngine::isComplete(toPlainText())))
        submit();
    else
        openLine();
    return true;
}

bool ConsoleInput::handleHistoryKey(const QKeyEvent *event)
{
    const bool up = event->key() == Qt::Key_Up;
    const bool anywhere = event->modifiers() & Qt::ControlModifier;
    if ((!up && event->key() != Qt::Key_Down) ||
        event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier))
        return false;
    const int line = textCursor().blockNumber();
    if (!anywhere && line != (up ? 0 : document()->blockCount() - 1))
        return false;
    const QString written = toPlainText();
    const QString program = up ? m_history.previous(written) : m_history.next(written);
    if (program != written)
        bringBack(program);
    return true;
}

bool ConsoleInput::handleTab(const QKeyEvent *event)
{
    if (event->key() != Qt::Key_Tab || event->modifiers() != Qt::NoModifier)
        return false;
    const QTextCursor cursor = textCursor();
    const QString before = cursor.block().text().left(cursor.positionInBlock());
    if (before.trimmed().isEmpty())
        insertPlainText(Indent);
    else
        complete(true);
    return true;
}

void ConsoleInput::submit()
{
    const QString program = toPlainText();
    clear();
    if (program.trimmed().isEmpty())
        return;
    m_history.add(program);
    Q_EMIT submitted(program);
}

/** The new line starts at the indentation of the present one, one step more after a brace. */
void ConsoleInput::openLine()
{
    const QString line = textCursor().block().text().left(textCursor().positionInBlock());
    int indent = 0;
    while (indent < line.size() && line.at(indent) == QLatin1Char(' '))
        ++indent;
    const bool opens = line.trimmed().endsWith(QLatin1Char('{'));
    insertPlainText(QLatin1Char('\n') + line.left(indent) + (opens ? Indent : QString()));
    ensureCursorVisible();
}

void ConsoleInput::bringBack(const QString &program)
{
    // As one edit of the text, so that it can be undone.
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(program);
    moveCursor(QTextCursor::End);
}

void ConsoleInput::complete(bool single)
{
    const ScriptWord word = ScriptWord::at(toPlainText(), textCursor().position());
    const QStringList found = scriptCompletions(*m_engine, word);
    const bool isDone = found.size() == 1 && found.first() == word.prefix;
    if (found.isEmpty() || isDone || (!word.hasDot && word.prefix.isEmpty())) {
        m_completer->popup()->hide();
        return;
    }
    if (single && found.size() == 1) {
        insertCompletion(found.first());
        return;
    }
    m_completions.setStringList(found);
    m_completer->setCompletionPrefix(word.prefix);
    QAbstractItemView *list = m_completer->popup();
    QRect place = cursorRect();
    place.translate(viewport()->pos());
    place.setWidth(list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() + 8);
    m_completer->complete(place);
    list->setCurrentIndex(m_completions.index(0));
}

void ConsoleInput::insertCompletion(const QString &completion)
{
    QTextCursor cursor = textCursor();
    const ScriptWord word = ScriptWord::at(toPlainText(), cursor.position());
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, word.prefix.size());
    cursor.insertText(completion);
    setTextCursor(cursor);
}
