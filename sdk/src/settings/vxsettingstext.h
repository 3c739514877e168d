#ifndef VXSETTINGSTEXT_H
#define VXSETTINGSTEXT_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

/// How values are written as text in the settings, and read again.
namespace VxSettingsText {

/** "true" and "false"; reading takes "1" and "0" too, in any case of letters. Any other text gives
 *  the default. */
QString fromBool(bool value);
bool toBool(const QString &text, bool defaultValue);

/** As many digits as it takes to read the same number again. */
QString fromDouble(double value);

/** Each entry followed by a comma; a backslash before commas and backslashes within an entry. So
 *  an empty list differs from a list of one empty entry. Reading does without the last comma. */
QString fromList(const QStringList &list);
QStringList toList(const QString &text);

/** Base64; a text that is not gives no bytes. */
QString fromBytes(const QByteArray &bytes);
QByteArray toBytes(const QString &text);

} // namespace VxSettingsText

#endif
