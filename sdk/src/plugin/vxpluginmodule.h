#ifndef VXPLUGINMODULE_H
#define VXPLUGINMODULE_H

#include <QtCore/QCoreApplication>
#include <QtCore/QLibrary>
#include <QtCore/QString>

class VxPlugin;

/// Loads one module file in steps: the library, its SDK version, its record. Each step may fail,
/// with a sentence that names the file and the reason.
///
/// A failed module is unloaded as long as only its version was read. Once it has returned its
/// record it stays loaded, because host code may have pointers into it.
class VxPluginModule
{
    Q_DECLARE_TR_FUNCTIONS(VxPluginModule)
public:
    explicit VxPluginModule(const QString &fileName);

    /// The record, or null with the reason in error().
    VxPlugin *open();
    QString error() const { return m_error; }

private:
    bool load();
    bool checkVersion();
    QFunctionPointer resolve(const char *symbol);

    QLibrary m_library;
    QString m_fileName;
    QString m_error;
};

#endif
