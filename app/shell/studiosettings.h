#ifndef STUDIOSETTINGS_H
#define STUDIOSETTINGS_H

#include <QString>

class UserMessages;
class VxSettings;

/// Where the settings are kept, and whether they are kept at all.
///
/// A file that cannot be read is reported and then left alone: it is not overwritten at the end.
class StudioSettings
{
public:
    /// fileName: empty for settings that live only as long as the program.
    explicit StudioSettings(const QString &fileName);

    /// The user's own file, in the folder that the system has for such files.
    static QString defaultFileName();

    void load(VxSettings *settings, const UserMessages &messages);
    /// What a first start shows: the panes' options where nobody has chosen any yet.
    static void fillDefaults(VxSettings *settings);
    void save(const VxSettings &settings, const UserMessages &messages) const;

private:
    QString m_fileName;
};

#endif
