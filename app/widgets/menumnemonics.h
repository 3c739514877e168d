#ifndef MENUMNEMONICS_H
#define MENUMNEMONICS_H

#include <QString>

class QWidget;

/// Underlined letters for entries that come without: the menus of actions and the names of panes
/// are put together at run time, so that nobody can choose letters that do not meet beforehand.
namespace MenuMnemonics {

/// A menu entry's text with a mark before a letter or digit that is not in taken: the first of a
/// word where one is free, else the first that is. The text itself when it has a mark or none is
/// free. taken, lower case, grows by the letter that the text has in the end.
QString marked(const QString &text, QString *taken);

/// Marks the entries of a menu or menu bar that have none. Actions of plug-ins are left alone:
/// their texts are their own.
void add(QWidget *menu);

} // namespace MenuMnemonics

#endif
