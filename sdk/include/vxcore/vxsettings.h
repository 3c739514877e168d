#ifndef VXSETTINGS_H
#define VXSETTINGS_H

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A named store of simple values with sub-stores, kept in memory and written to a JSON file on
/// demand.
///
/// A value is returned as it was stored; the default replaces a missing key, or one whose text
/// cannot be read as the requested type.
class VXCORE_EXPORT VxSettings
{
public:
    VxSettings();
    ~VxSettings();

    bool getBoolValue(const QString &key, bool defaultValue = false) const;
    void setBoolValue(const QString &key, bool value);
    int getIntValue(const QString &key, int defaultValue = 0) const;
    void setIntValue(const QString &key, int value);
    QString getStringValue(const QString &key, const QString &defaultValue = QString()) const;
    void setStringValue(const QString &key, const QString &value);
    QStringList getStringListValue(const QString &key) const;
    void setStringListValue(const QString &key, const QStringList &value);
    QByteArray getBytesValue(const QString &key) const;
    void setBytesValue(const QString &key, const QByteArray &value);

    void removeValue(const QString &key);
    /// The keys of this store, sorted, without those of sub-stores.
    QStringList getKeys() const;

    /// The sub-store of a name, made when it does not exist. Owned by this store and valid as
    /// long as it, also through clear() and load(). The two functions below and save() ignore a
    /// sub-store without any value.
    VxSettings *getSettings(const QString &name);
    /// Null when there is none of that name.
    const VxSettings *findSettings(const QString &name) const;
    QStringList getSettingsNames() const;

    void clear();

    /// Replaces the contents by those of a file written by save(), or by an INI file, as former
    /// versions have written. A missing file gives an empty store and true.
    /// On a file that cannot be read or parsed: false, a text in error (when given), and the
    /// contents are unchanged.
    bool load(const QString &fileName, QString *error = nullptr);
    /// Writes everything to a JSON file, in one step: the old file stays until the new one is
    /// complete.
    bool save(const QString &fileName, QString *error = nullptr) const;

private:
    Q_DISABLE_COPY(VxSettings)
    class Private;
    std::unique_ptr<Private> d;
};

#endif
