#include "settings/vxsettingstext.h"

QString VxSettingsText::fromBool(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

bool VxSettingsText::toBool(const QString &text, bool defaultValue)
{
    const QString word = text.trimmed().toLower();
    if (word == QLatin1String("true") || word == QLatin1String("1"))
        return true;
    if (word == QLatin1String("false") || word == QLatin1String("0"))
        return false;
    return defaultValue;
}

QString VxSettingsText::fromList(const QStringList &list)
{
    QString text;
    for (QString entry : list) {
        entry.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
        entry.replace(QLatin1Char(','), QLatin1String("\\,"));
        text += entry + QLatin1Char(',');
    }
    return text;
}

QStringList VxSettingsText::toList(const QString &text)
{
    QStringList list;
    QString entry;
    bool isOpen = false;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char(',')) {
            list.append(entry);
            entry.clear();
            isOpen = false;
            continue;
        }
        if (text.at(i) == QLatin1Char('\\') && i + 1 < text.size())
            ++i;
        entry.append(text.at(i));
        isOpen = true;
    }
    if (isOpen)
        list.append(entry);
    return list;
}

QString VxSettingsText::fromBytes(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray VxSettingsText::toBytes(const QString &text)
{
    const auto result =
        QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return result ? *result : QByteArray();
}
