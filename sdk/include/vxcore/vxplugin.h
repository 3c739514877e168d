#ifndef VXPLUGIN_H
#define VXPLUGIN_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxversion.h>

class VxClassFactory;

/// The record by which a plug-in gives the host its identity and its classes.
///
/// A plug-in library has one, as a static object, returned by its entry point
/// `extern "C" VxPlugin *getPluginDefinition()`. It also exports
/// `extern "C" VxVersion getSDKVersion()`, which the host calls first.
class VXCORE_EXPORT VxPlugin
{
public:
    VxPlugin(const QString &name, const QString &author, const QString &description,
             quint16 majorVersion, quint16 minorVersion, quint16 revision, quint16 build);
    ~VxPlugin();

    QString getName() const;
    QString getAuthor() const;
    QString getDescription() const;
    VxVersion getVersion() const;

    void setAuthor(const QString &author);
    void setVersion(quint16 majorVersion, quint16 minorVersion, quint16 revision, quint16 build);
    void setDescription(const QString &description);

    /// Appends a factory. It is borrowed: the plug-in keeps it alive until it is unloaded. Null
    /// and a factory that is already in the list are ignored.
    void addClassFactory(VxClassFactory *factory);

    /// The factories in the order in which they were added.
    QVector<VxClassFactory *> getClassFactories() const;

private:
    Q_DISABLE_COPY(VxPlugin)
    class Private;
    std::unique_ptr<Private> d;
};

#endif
