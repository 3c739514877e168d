#include "studiosettings.h"

#include "usermessages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <vxcore/vxsettings.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("StudioSettings", text);
}

} // namespace

StudioSettings::StudioSettings(const QString &fileName)
    : m_fileName(fileName)
{
}

QString StudioSettings::defaultFileName()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("vxstudio.ini"));
}

void StudioSettings::load(VxSettings *settings, const UserMessages &messages)
{
    QString error;
    if (m_fileName.isEmpty() || settings->load(m_fileName, &error))
        return;
    messages.showNotice(tr("The settings are not used and not saved: %1").arg(error));
    m_fileName.clear();
}

void StudioSettings::save(const VxSettings &settings, const UserMessages &messages) const
{
    if (m_fileName.isEmpty())
        return;
    QString error;
    const QString folder = QFileInfo(m_fileName).absolutePath();
    if (!QDir().mkpath(folder))
        error = tr("the folder %1 cannot be made").arg(folder);
    else if (settings.save(m_fileName, &error))
        return;
    messages.showNotice(tr("The settings are not saved: %1").arg(error));
}
