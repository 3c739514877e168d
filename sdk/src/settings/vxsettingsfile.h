#ifndef VXSETTINGSFILE_H
#define VXSETTINGSFILE_H

#include <QtCore/QCoreApplication>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Reads and writes a flat list of paths and texts as a JSON object, whose members are the paths.
/// The INI files of former versions are read too.
///
/// A path is a list of names of any characters: those of the groups, then the key. The file is
/// written atomically.
class VxSettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(VxSettingsFile)
public:
    using Values = QMap<QString, QString>; // by path()

    explicit VxSettingsFile(const QString &fileName)
        : m_fileName(fileName)
    {
    }

    /// Missing files have no values. Members other than texts, numbers and truth values are left
    /// out. False when the file cannot be read or parsed.
    bool read(Values &values);
    bool write(const Values &values);
    QString error() const { return m_error; }

    /** One text for a path, and back: names joined with "/", separator characters inside names as
     *  percent codes. */
    static QString path(const QStringList &names);
    static QStringList names(const QString &path);

private:
    bool fail(const QString &error); // always false
    bool parse(const QByteArray &contents, Values &values);
    bool parseIni(const QByteArray &contents, Values &values);
    bool insert(const QString &path, const QString &text, Values &values);
    bool isReadable(const QString &path); // not too many groups

    QString m_fileName;
    QString m_error;
};

#endif
