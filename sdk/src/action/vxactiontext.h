#ifndef VXACTIONTEXT_H
#define VXACTIONTEXT_H

#include <QtCore/QString>

class QKeySequence;

/// Texts derived from an action's text: plain functions, so that menus, help and undo entries
/// agree.
namespace VxActionText {

/** The displayed text: without mnemonic marks; "&&" becomes one "&". */
QString withoutMnemonics(const QString &text);

/** The text of an undo entry: without mnemonic marks and without trailing dots. */
QString asUndoText(const QString &text);

/** "Text (Ctrl+C)", the shortcut in the user's language; only the text for an empty shortcut. */
QString withShortcut(const QString &text, const QKeySequence &shortcut);

/** Rich text: the title in bold, the description below it. */
QString help(const QString &title, const QString &description);

} // namespace VxActionText

#endif
