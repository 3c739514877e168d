#include <vxcore/vxsettings.h>

#include "settings/vxsettingsfile.h"
#include "settings/vxsettingstext.h"

#include <QtCore/QMap>
#include <map>

class VxSettings::Private
{
public:
    // Every value is stored as its text in the file.
    QMap<QString, QString> values;
    // A sub-store stays when it is cleared: its users have pointers to it.
    std::map<QString, std::unique_ptr<VxSettings>> subStores;

    bool isEmpty() const
    {
        if (!values.isEmpty())
            return false;
        for (const auto &subStore : subStores) {
            if (!subStore.second->d->isEmpty())
                return false;
        }
        return true;
    }

    void collect(const QStringList &names, VxSettingsFile::Values &collected) const
    {
        for (auto it = values.begin(); it != values.end(); ++it)
            collected.insert(VxSettingsFile::path(names + QStringList(it.key())), it.value());
        for (const auto &subStore : subStores)
            subStore.second->d->collect(names + QStringList(subStore.first), collected);
    }
};

VxSettings::VxSettings()
    : d(new Private)
{
}

VxSettings::~VxSettings() = default;

bool VxSettings::getBoolValue(const QString &key, bool defaultValue) const
{
    return VxSettingsText::toBool(d->values.value(key), defaultValue);
}

void VxSettings::setBoolValue(const QString &key, bool value)
{
    d->values.insert(key, VxSettingsText::fromBool(value));
}

int VxSettings::getIntValue(const QString &key, int defaultValue) const
{
    bool ok = false;
    const int value = d->values.value(key).toInt(&ok);
    return ok ? value : defaultValue;
}

void VxSettings::setIntValue(const QString &key, int value)
{
    d->values.insert(key, QString::number(value));
}

QString VxSettings::getStringValue(const QString &key, const QString &defaultValue) const
{
    return d->values.value(key, defaultValue);
}

void VxSettings::setStringValue(const QString &key, const QString &value)
{
    d->values.insert(key, value);
}

QStringList VxSettings::getStringListValue(const QString &key) const
{
    return VxSettingsText::toList(d->values.value(key));
}

void VxSettings::setStringListValue(const QString &key, const QStringList &value)
{
    d->values.insert(key, VxSettingsText::fromList(value));
}

QByteArray VxSettings::getBytesValue(const QString &key) const
{
    return VxSettingsText::toBytes(d->values.value(key));
}

void VxSettings::setBytesValue(const QString &key, const QByteArray &value)
{
    d->values.insert(key, VxSettingsText::fromBytes(value));
}

void VxSettings::removeValue(const QString &key)
{
    d->values.remove(key);
}

QStringList VxSettings::getKeys() const
{
    return d->values.keys();
}

VxSettings *VxSettings::getSettings(const QString &name)
{
    std::unique_ptr<VxSettings> &subStore = d->subStores[name];
    if (!subStore)
        subStore.reset(new VxSettings);
    return subStore.get();
}

const VxSettings *VxSettings::findSettings(const QString &name) const
{
    const auto found = d->subStores.find(name);
    const bool exists = found != d->subStores.end() && !found->second->d->isEmpty();
    return exists ? found->second.get() : nullptr;
}

QStringList VxSettings::getSettingsNames() const
{
    QStringList names;
    for (const auto &subStore : d->subStores) {
        if (!subStore.second->d->isEmpty())
            names.append(subStore.first);
    }
    return names;
}

void VxSettings::clear()
{
    d->values.clear();
    for (const auto &subStore : d->subStores)
        subStore.second->clear();
}

bool VxSettings::load(const QString &fileName, QString *error)
{
    VxSettingsFile file(fileName);
    VxSettingsFile::Values values;
    const bool ok = file.read(values);
    if (error)
        *error = file.error();
    if (!ok)
        return false;
    clear();
    for (auto it = values.begin(); it != values.end(); ++it) {
        QStringList names = VxSettingsFile::names(it.key());
        const QString key = names.takeLast();
        VxSettings *store = this;
        for (const QString &name : qAsConst(names))
            store = store->getSettings(name);
        store->setStringValue(key, it.value());
    }
    return true;
}

bool VxSettings::save(const QString &fileName, QString *error) const
{
    VxSettingsFile::Values values;
    d->collect({}, values);
    VxSettingsFile file(fileName);
    const bool ok = file.write(values);
    if (error)
        *error = file.error();
    return ok;
}
