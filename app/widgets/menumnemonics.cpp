#include "widgets/menumnemonics.h"

#include <QAction>
#include <QKeySequence>
#include <QWidget>
#include <vxcore/vxaction.h>

namespace {

/** The letter after a text's mark, lower case; null without a mark. */
QChar mnemonicOf(const QString &text)
{
    const QKeySequence sequence = QKeySequence::mnemonic(text);
    return sequence.isEmpty() ? QChar() : QChar(sequence[0] & 0xffff).toLower();
}

bool isFree(const QString &text, int position, const QString &taken)
{
    return text.at(position).isLetterOrNumber() && !taken.contains(text.at(position).toLower());
}

bool beginsWord(const QString &text, int position)
{
    return position == 0 || !text.at(position - 1).isLetterOrNumber();
}

/** The position for a mark; -1 for none. */
int findPosition(const QString &text, const QString &taken)
{
    int found = -1;
    for (int i = text.size() - 1; i >= 0; --i) {
        const bool better = found < 0 || beginsWord(text, i) || !beginsWord(text, found);
        if (isFree(text, i, taken) && better)
            found = i;
    }
    return found;
}

} // namespace

QString MenuMnemonics::marked(const QString &text, QString *taken)
{
    QString result = text;
    if (mnemonicOf(text).isNull()) {
        const int position = findPosition(text, *taken);
        if (position < 0)
            return text;
        result.insert(position, QLatin1Char('&'));
    }
    taken->append(mnemonicOf(result));
    return result;
}

void MenuMnemonics::add(QWidget *menu)
{
    QString taken;
    // Explicit marks have priority.
    for (const QAction *entry : menu->actions()) {
        const QChar letter = mnemonicOf(entry->text());
        if (!letter.isNull())
            taken.append(letter);
    }
    for (QAction *entry : menu->actions()) {
        const bool isOwn = !qobject_cast<VxAction *>(entry) && !entry->isSeparator();
        if (isOwn && mnemonicOf(entry->text()).isNull())
            entry->setText(marked(entry->text(), &taken));
    }
}
