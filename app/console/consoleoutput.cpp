#include "console/consoleoutput.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>

namespace {

constexpr int ShowEvery = 50; // milliseconds
// Readable on dark and on light backgrounds.
const QColor ErrorColor(0xe0, 0x52, 0x48);

} // namespace

ConsoleOutput::ConsoleOutput(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("ConsoleOutput"));
    setAccessibleName(tr("Output of Scripts"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setMaximumBlockCount(MaxLines);
    setTabStopDistance(4 * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    m_timer.setSingleShot(true);
    m_timer.setInterval(ShowEvery);
    connect(&m_timer, &QTimer::timeout, this, &ConsoleOutput::flush);
}

void ConsoleOutput::add(Kind kind, const QString &text)
{
    m_pending.append({kind, text});
    if (m_pending.size() > 2 * MaxLines)
        m_pending.remove(0, MaxLines);
    if (!m_timer.isActive())
        m_timer.start();
}

void ConsoleOutput::flush()
{
    m_timer.stop();
    if (m_pending.isEmpty())
        return;
    // Keeps the position of a user who has scrolled up.
    QScrollBar *bar = verticalScrollBar();
    const bool follows = bar->value() >= bar->maximum() - 1;
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (const Line &line : qAsConst(m_pending)) {
        if (!document()->isEmpty())
            cursor.insertBlock();
        cursor.insertText(line.text, formatOf(line.kind));
    }
    cursor.endEditBlock();
    m_pending.clear();
    if (follows)
        bar->setValue(bar->maximum());
}

void ConsoleOutput::clearAll()
{
    m_pending.clear();
    m_timer.stop();
    clear();
}

QTextCharFormat ConsoleOutput::formatOf(Kind kind) const
{
    QTextCharFormat format;
    if (kind == Kind::Error)
        format.setForeground(ErrorColor);
    else if (kind == Kind::Program)
        format.setForeground(palette().color(QPalette::Disabled, QPalette::Text));
    else if (kind == Kind::Result)
        format.setFontItalic(true);
    return format;
}
