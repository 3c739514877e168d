#include "action/vxactiontext.h"

#include <QtGui/QKeySequence>

QString VxActionText::withoutMnemonics(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        plain.append(text.at(i));
    }
    return plain;
}

QString VxActionText::asUndoText(const QString &text)
{
    QString plain = withoutMnemonics(text).trimmed();
    while (plain.endsWith(QLatin1Char('.')) || plain.endsWith(QChar(0x2026)))
        plain.chop(1);
    return plain.trimmed();
}

QString VxActionText::withShortcut(const QString &text, const QKeySequence &shortcut)
{
    QString plain = withoutMnemonics(text);
    if (shortcut.isEmpty())
        return plain;
    return QStringLiteral("%1 (%2)").arg(plain, shortcut.toString(QKeySequence::NativeText));
}

QString VxActionText::help(const QString &title, const QString &description)
{
    const QString heading = QStringLiteral("<b>%1</b>").arg(title.toHtmlEscaped());
    return description.isEmpty() ? heading
                                 : heading + QStringLiteral("<br>") + description.toHtmlEscaped();
}
