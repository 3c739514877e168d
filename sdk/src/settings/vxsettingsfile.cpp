#include "settings/vxsettingsfile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

namespace {

constexpr int MaxGroups = 64; // inside each other; the program uses a few
constexpr int MaxShownPath = 40;

QString scratchFile(const QTemporaryDir &dir)
{
    return dir.filePath(QStringLiteral("settings.ini"));
}

// The toolkit treats both slashes as separators and drops empty names. A lone percent sign, which
// encoding never leaves otherwise, represents the empty name.
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
    if (!file.exists())
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
    QByteArray contents;
    if (!format(values, contents))
        return false;
    QSaveFile file(m_fileName);
    // Unbuffered: data that cannot be flushed on closing would be committed truncated. And the
    // first failure's text: after a failed commit there may be none.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(contents) != contents.size() || !file.commit())
        return fail(tr("%1 cannot be written: %2").arg(m_fileName, file.errorString()));
    return true;
}

bool VxSettingsFile::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool VxSettingsFile::parse(const QByteArray &contents, Values &values)
{
    const QTemporaryDir dir;
    QFile scratch(scratchFile(dir));
    if (!dir.isValid() || !scratch.open(QIODevice::WriteOnly) ||
        scratch.write(contents) != contents.size() || !scratch.flush())
        return fail(tr("%1 cannot be read: no temporary file can be written").arg(m_fileName));
    scratch.close();
    QSettings store(scratch.fileName(), QSettings::IniFormat);
    store.setIniCodec("UTF-8");
    const QStringList paths = store.allKeys();
    if (store.status() != QSettings::NoError)
        return fail(tr("%1 is not an INI file, or is damaged").arg(m_fileName));
    for (const QString &path : paths) {
        if (path.count(QLatin1Char('/')) > MaxGroups)
            return fail(tr("%1 cannot be read: \"%2...\" has more than %3 groups inside each other")
                            .arg(m_fileName, path.left(MaxShownPath), QString::number(MaxGroups)));
        values.insert(path, textOf(store.value(path)));
    }
    return true;
}

bool VxSettingsFile::format(const Values &values, QByteArray &contents)
{
    const QTemporaryDir dir;
    QSettings store(scratchFile(dir), QSettings::IniFormat);
    // Without a codec all non-ASCII characters are escaped; with one, surrogate pairs would be
    // lost.
    for (auto it = values.begin(); it != values.end(); ++it)
        store.setValue(it.key(), it.value());
    store.sync();
    QFile scratch(scratchFile(dir));
    // Without any value no file is written.
    const bool isComplete = dir.isValid() && store.status() == QSettings::NoError &&
                            (values.isEmpty() || scratch.open(QIODevice::ReadOnly));
    if (!isComplete)
        return fail(tr("%1 cannot be written: no temporary file can be written").arg(m_fileName));
    contents = scratch.isOpen() ? scratch.readAll() : QByteArray();
    // On a full disk the toolkit takes a truncated file for a whole one: then the last line has no
    // end, or lines are missing.
    Values complete;
    if (values.isEmpty() ||
        (contents.endsWith('\n') && parse(contents, complete) && complete.size() == values.size()))
        return true;
    return fail(tr("%1 cannot be written: the disk for temporary files is full").arg(m_fileName));
}
