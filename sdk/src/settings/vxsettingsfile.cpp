#include "settings/vxsettingsfile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryFile>
#include <vxcore/vxfileexchange.h>
#include <vxcore/vxsafefile.h>

namespace {

constexpr int MaxGroups = 64; // inside each other; the program uses a few
constexpr int MaxShownPath = 40;

// A lone percent sign, which encoding never leaves otherwise, represents the empty name: INI files
// have none.
QString encode(const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("%");
    QString text = name;
    text.replace(QLatin1Char('%'), QLatin1String("%25"));
    text.replace(QLatin1Char('/'), QLatin1String("%2F"));
    text.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return text;
}

QString decode(const QString &text)
{
    if (text == QLatin1String("%"))
        return QString();
    QString name = text;
    name.replace(QLatin1String("%5C"), QLatin1String("\\"));
    name.replace(QLatin1String("%2F"), QLatin1String("/"));
    name.replace(QLatin1String("%25"), QLatin1String("%"));
    return name;
}

/** An unquoted text with commas is read as a list: joins it again. */
QString textOf(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(QLatin1String(", "))
                                                : value.toString();
}

} // namespace

QString VxSettingsFile::path(const QStringList &names)
{
    QStringList parts;
    for (const QString &name : names)
        parts.append(encode(name));
    return parts.join(QLatin1Char('/'));
}

QStringList VxSettingsFile::names(const QString &path)
{
    QStringList names;
    for (const QString &part : path.split(QLatin1Char('/')))
        names.append(decode(part));
    return names;
}

bool VxSettingsFile::read(Values &values)
{
    values.clear();
    QFile file(m_fileName);
    if (!file.exists() && !VxFileExchange::finishInterrupted(m_fileName))
        return true;
    // A pipe or a device could block the program forever.
    if (!QFileInfo(m_fileName).isFile())
        return fail(tr("%1 cannot be read: it is not a regular file").arg(m_fileName));
    if (!file.open(QIODevice::ReadOnly))
        return fail(tr("%1 cannot be read: %2").arg(m_fileName, file.errorString()));
    const QByteArray contents = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fail(tr("%1 cannot be read: %2").arg(m_fileName, file.errorString()));
    return parse(contents, values);
}

bool VxSettingsFile::write(const Values &values)
{
    QJsonObject members;
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (!isReadable(it.key()))
            return false;
        members.insert(it.key(), it.value());
    }
    const QByteArray contents = QJsonDocument(members).toJson();
    VxSafeFile file(m_fileName);
    if (!file.startPrivate() || file.write(contents) != contents.size() || !file.commit())
        return fail(tr("%1 cannot be written: %2").arg(m_fileName, file.failure()));
    return true;
}

bool VxSettingsFile::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool VxSettingsFile::parse(const QByteArray &contents, Values &values)
{
    if (!contents.trimmed().startsWith('{'))
        return parseIni(contents, values);
    QJsonParseError error;
    const QJsonObject members = QJsonDocument::fromJson(contents, &error).object();
    if (error.error != QJsonParseError::NoError)
        return fail(tr("%1 is damaged at byte %2: %3")
                        .arg(m_fileName, QString::number(error.offset), error.errorString()));
    for (auto it = members.begin(); it != members.end(); ++it) {
        const QJsonValue value = it.value();
        const bool hasText = !value.isNull() && !value.isArray() && !value.isObject();
        if (hasText && !insert(it.key(), value.toVariant().toString(), values))
            return false;
    }
    return true;
}

// Through a copy: the toolkit remembers files by their names, a damaged one as an empty one.
bool VxSettingsFile::parseIni(const QByteArray &contents, Values &values)
{
    QTemporaryFile copy;
    if (!copy.open() || copy.write(contents) != contents.size() || !copy.flush())
        return fail(tr("%1 cannot be read: %2").arg(m_fileName, copy.errorString()));
    QSettings store(copy.fileName(), QSettings::IniFormat);
    store.setIniCodec("UTF-8");
    const QStringList paths = store.allKeys();
    if (store.status() != QSettings::NoError)
        return fail(tr("%1 is damaged").arg(m_fileName));
    for (const QString &path : paths) {
        if (!insert(path, textOf(store.value(path)), values))
            return false;
    }
    return true;
}

bool VxSettingsFile::insert(const QString &path, const QString &text, Values &values)
{
    if (!isReadable(path))
        return false;
    values.insert(path, text);
    return true;
}

bool VxSettingsFile::isReadable(const QString &path)
{
    return path.count(QLatin1Char('/')) <= MaxGroups ||
           fail(tr("%1: \"%2...\" has more than %3 groups inside each other")
                    .arg(m_fileName, path.left(MaxShownPath), QString::number(MaxGroups)));
}
