#ifndef VXPLUGINMODULE_H
#define VXPLUGINMODULE_H

#include <QtCore/QCoreApplication>
#include <QtCore/QLibrary>
#include <QtCore/QString>

class VxPlugin;

/// One module file on its way into the program: loaded, asked for its SDK version, asked for its
/// record. Each step may refuse, with a sentence that names the file and the reason.
///
/// A refused module is taken out of memory again as long as it was only asked for its version. Once
/// it has handed out its record it stays, because code of ours may point into it.
class VxPluginModule
{
    Q_DECLARE_TR_FUNCTIONS(VxPluginModule)
public:
    explicit VxPluginModule(const QString &fileName);

    /// The record, or null; then error() says why.
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
