#ifndef MENUMNEMONICS_H
#define MENUMNEMONICS_H

#include <QString>

class QWidget;

/// Mnemonics for entries without them: the menus of actions and the names of panes are assembled at
/// run time, so that unique letters cannot be chosen in advance.
namespace MenuMnemonics {

/// A menu entry's text with a mark before a letter or digit that is not in taken: the first free
/// one at the start of a word, else the first free one. The text itself when it has a mark or none
/// is free. The resulting letter is added to taken, lower case.
QString marked(const QString &text, QString *taken);

/// Marks the entries of a menu or menu bar that have no mark. Actions of plug-ins are skipped:
/// their texts must not change.
void add(QWidget *menu);

} // namespace MenuMnemonics

#endif
