#ifndef VXSETTINGSTEXT_H
#define VXSETTINGSTEXT_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

/// Conversion of values to text in the settings, and back.
namespace VxSettingsText {

/** "true" and "false"; reading accepts "1" and "0" too, in any case of letters. Any other text
 *  gives the default. */
QString fromBool(bool value);
bool toBool(const QString &text, bool defaultValue);

/** Each entry followed by a comma; commas and backslashes within an entry are escaped. So an empty
 *  list differs from a list of one empty entry. The last comma is optional when reading. */
QString fromList(const QStringList &list);
QStringList toList(const QString &text);

/** Base64; invalid text gives no bytes. */
QString fromBytes(const QByteArray &bytes);
QByteArray toBytes(const QString &text);

} // namespace VxSettingsText

#endif
