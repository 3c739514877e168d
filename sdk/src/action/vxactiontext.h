#ifndef VXACTIONTEXT_H
#define VXACTIONTEXT_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

class QKeySequence;

/// The texts that are made of an action's text: plain functions, so that menus, help and undo
/// entries agree.
namespace VxActionText {

/** The text as it is read: without mnemonic marks; "&&" stands for one "&". */
VXCORE_EXPORT QString withoutMnemonics(const QString &text);

/** The text as the name of what was done: without mnemonic marks and without trailing dots. */
VXCORE_EXPORT QString asUndoText(const QString &text);

/** "Text (Ctrl+C)", the shortcut in the user's language; only the text for an empty shortcut. */
VXCORE_EXPORT QString withShortcut(const QString &text, const QKeySequence &shortcut);

/** Rich text: the title in bold, the description below it. */
VXCORE_EXPORT QString help(const QString &title, const QString &description);

} // namespace VxActionText

#endif
