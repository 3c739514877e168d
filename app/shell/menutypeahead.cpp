#include "shell/menutypeahead.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <algorithm>

namespace {

constexpr int LongestPause = 1000; // milliseconds between letters of one word

bool hasMnemonics(const QMenu &menu)
{
    const QList<QAction *> entries = menu.actions();
    return std::any_of(entries.begin(), entries.end(), [](const QAction *entry) {
        return !QKeySequence::mnemonic(entry->text()).isEmpty();
    });
}

bool canBeChosen(const QAction *entry)
{
    return !entry->isSeparator() && entry->isVisible() && entry->isEnabled();
}

bool isLetter(const QKeyEvent *event)
{
    const bool plain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    return plain && event->text().size() == 1 && event->text().at(0).isLetterOrNumber();
}

bool isOneLetter(const QString &letters)
{
    return letters.count(letters.at(0)) == letters.size();
}

} // namespace

MenuTypeAhead::MenuTypeAhead(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

QAction *MenuTypeAhead::find(const QMenu &menu, const QAction *current, const QString &letters)
{
    const QList<QAction *> entries = menu.actions();
    const int count = entries.size();
    const int at = entries.indexOf(const_cast<QAction *>(current));
    const int first = at < 0 ? 0 : at + (letters.size() > 1 ? 0 : 1);
    for (int i = 0; i < count; ++i) {
        QAction *entry = entries.at((first + i) % count);
        if (canBeChosen(entry) && entry->text().startsWith(letters, Qt::CaseInsensitive))
            return entry;
    }
    return nullptr;
}

bool MenuTypeAhead::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto *menu = qobject_cast<QMenu *>(watched);
    const auto *key = static_cast<const QKeyEvent *>(event);
    return menu && isLetter(key) && !hasMnemonics(*menu) && type(menu, key->text().toLower());
}

bool MenuTypeAhead::type(QMenu *menu, const QString &letter)
{
    if (!m_sinceLetter.isValid() || m_sinceLetter.elapsed() > LongestPause)
        m_letters.clear();
    m_sinceLetter.start();
    m_letters += letter;
    QAction *found = find(*menu, menu->activeAction(), m_letters);
    if (!found && isOneLetter(m_letters)) {
        m_letters = letter;
        found = find(*menu, menu->activeAction(), letter);
    }
    if (found)
        menu->setActiveAction(found);
    return found != nullptr;
}
