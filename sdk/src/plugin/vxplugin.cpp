#include <vxcore/vxplugin.h>

class VxPlugin::Private
{
public:
    QString name;
    QString author;
    QString description;
    VxVersion version;
    QVector<VxClassFactory *> factories;
};

VxPlugin::VxPlugin(const QString &name, const QString &author, const QString &description,
                   quint16 majorVersion, quint16 minorVersion, quint16 revision, quint16 build)
    : d(new Private{name, author, description, {majorVersion, minorVersion, revision, build}, {}})
{
}

VxPlugin::~VxPlugin() = default;

QString VxPlugin::getName() const
{
    return d->name;
}

QString VxPlugin::getAuthor() const
{
    return d->author;
}

QString VxPlugin::getDescription() const
{
    return d->description;
}

VxVersion VxPlugin::getVersion() const
{
    return d->version;
}

void VxPlugin::setAuthor(const QString &author)
{
    d->author = author;
}

void VxPlugin::setVersion(quint16 majorVersion, quint16 minorVersion, quint16 revision,
                          quint16 build)
{
    d->version = VxVersion(majorVersion, minorVersion, revision, build);
}

void VxPlugin::setDescription(const QString &description)
{
    d->description = description;
}

void VxPlugin::addClassFactory(VxClassFactory *factory)
{
    if (factory && !d->factories.contains(factory))
        d->factories.append(factory);
}

QVector<VxClassFactory *> VxPlugin::getClassFactories() const
{
    return d->factories;
}
