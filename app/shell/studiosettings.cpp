#include "shell/studiosettings.h"

#include "widgets/studiotext.h"
#include "widgets/usermessages.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <vxcore/vxsettings.h>

StudioSettings::StudioSettings(const QString &fileName)
    : m_fileName(fileName)
{
}

QString StudioSettings::defaultFileName()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("vxstudio.json"));
}

/// The settings of a version before 1.8.1 are read until there are present ones.
QString StudioSettings::fileToLoad() const
{
    const QString former = QFileInfo(m_fileName).dir().filePath(QStringLiteral("vxstudio.ini"));
    const bool isFormer = m_fileName == defaultFileName() && !QFileInfo::exists(m_fileName) &&
                          QFileInfo::exists(former);
    return isFormer ? former : m_fileName;
}

void StudioSettings::load(VxSettings *settings, const UserMessages &messages)
{
    QString error;
    if (m_fileName.isEmpty() || settings->load(fileToLoad(), &error))
        return;
    messages.showNotice(StudioText::tr("The settings will not be used or saved: %1").arg(error));
    m_fileName.clear();
}

// A pane without stored options starts plain; the first start of the program shows the Timeline's
// features.
void StudioSettings::fillDefaults(VxSettings *settings)
{
    VxSettings *pane =
        settings->getSettings(QStringLiteral("Panes"))->getSettings(QStringLiteral("VxTimePane"));
    if (!pane->getKeys().isEmpty())
        return;
    for (const char *name : {"AdvancedView", "GraphOpen", "PropTranslate", "PropRotate",
                             "PropScale", "PropOther", "PropAlias"})
        pane->setBoolValue(QLatin1String(name), true);
}

void StudioSettings::save(const VxSettings &settings, const UserMessages &messages) const
{
    if (m_fileName.isEmpty())
        return;
    QString error;
    const QString folder = QFileInfo(m_fileName).absolutePath();
    if (!QDir().mkpath(folder))
        error = StudioText::tr("cannot create the folder %1").arg(folder);
    else if (settings.save(m_fileName, &error))
        return;
    messages.showNotice(StudioText::tr("The settings could not be saved: %1").arg(error));
}
