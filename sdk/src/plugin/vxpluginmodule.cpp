#include "plugin/vxpluginmodule.h"

#include "plugin/elffile.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <vxcore/vxversion.h>

VxPluginModule::VxPluginModule(const QString &fileName)
    : m_fileName(fileName)
{
    // A missing symbol is detected now, not in the middle of a command.
    m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
}

VxPlugin *VxPluginModule::open()
{
    if (!load())
        return nullptr;
    const QFunctionPointer definition = checkVersion() ? resolve("getPluginDefinition") : nullptr;
    if (!definition) {
        m_library.unload();
        return nullptr;
    }
    VxPlugin *plugin = reinterpret_cast<VxPlugin *(*)()>(definition)();
    if (!plugin)
        m_error = tr("%1 returned no plug-in record.").arg(m_fileName);
    return plugin;
}

bool VxPluginModule::load()
{
    const QFileInfo info(m_fileName);
    if (!info.isFile()) {
        m_error = tr("%1 does not exist or is not a file.").arg(m_fileName);
        return false;
    }
    const QString objection = ElfFile::objection(m_fileName);
    if (!objection.isEmpty()) {
        m_error = tr("%1 cannot be loaded: %2").arg(m_fileName, objection);
        return false;
    }
    // The absolute path avoids a search for the library elsewhere.
    m_library.setFileName(info.absoluteFilePath());
    if (m_library.load())
        return true;
    m_error = tr("%1 cannot be loaded: %2").arg(m_fileName, m_library.errorString());
    return false;
}

bool VxPluginModule::checkVersion()
{
    const QFunctionPointer entry = resolve("getSDKVersion");
    if (!entry)
        return false;
    const VxVersion version = reinterpret_cast<VxVersion (*)()>(entry)();
    if (version.runsIn(VxVersion::sdk()))
        return true;
    m_error = tr("%1 was built for SDK version %2, which is not compatible with SDK version %3 of "
                 "this program.")
                  .arg(m_fileName, version.toString(), VxVersion::sdk().toString());
    return false;
}

QFunctionPointer VxPluginModule::resolve(const char *symbol)
{
    const QFunctionPointer function = m_library.resolve(symbol);
    if (!function)
        m_error = tr("%1 is not a plug-in: it has no entry point \"%2\".")
                      .arg(m_fileName, QLatin1String(symbol));
    return function;
}
