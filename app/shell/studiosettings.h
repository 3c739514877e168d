#ifndef STUDIOSETTINGS_H
#define STUDIOSETTINGS_H

#include <QString>

class UserMessages;
class VxSettings;

/// The settings file, and whether settings are saved.
///
/// A file that cannot be read is reported and then not overwritten.
class StudioSettings
{
public:
    /// fileName: empty for settings that are not saved.
    explicit StudioSettings(const QString &fileName);

    /// The user's own file, in the system's folder for settings.
    static QString defaultFileName();

    void load(VxSettings *settings, const UserMessages &messages);
    /// Sets defaults for a first start: the panes' options that are not stored yet.
    static void fillDefaults(VxSettings *settings);
    void save(const VxSettings &settings, const UserMessages &messages) const;

    /// The file that load() reads: that of a former version until there is a present one.
    QString fileToLoad() const;

private:
    QString m_fileName;
};

#endif
