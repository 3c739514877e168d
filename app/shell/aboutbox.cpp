#include "shell/aboutbox.h"

#include "widgets/studiotext.h"

#include <QFile>
#include <QMessageBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxversion.h>

namespace {

QString paragraph(const QString &text)
{
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

QString aboutText(const VxPluginMgr &plugins)
{
    QString text =
        QStringLiteral("<h3>%1 %2</h3>")
            .arg(VxApp::getAppName().toHtmlEscaped(), QString::fromLatin1(VX_STUDIO_VERSION));
    text += paragraph(StudioText::tr("Composes and animates scenes."));
    text += paragraph(StudioText::tr("Host library %1, Qt %2")
                          .arg(VxVersion::sdk().toString(), QLatin1String(qVersion())));
    const QVector<VxPlugin *> loaded = plugins.getPlugins();
    if (loaded.isEmpty())
        return text + paragraph(StudioText::tr("No plug-ins are loaded."));
    for (const VxPlugin *plugin : loaded)
        text += paragraph(StudioText::tr("%1 %2: %3")
                              .arg(plugin->getName(), plugin->getVersion().toString(),
                                   QCoreApplication::translate(
                                       "VxPlugin", qUtf8Printable(plugin->getDescription()))));
    return text;
}

QString changesText()
{
    Q_INIT_RESOURCE(changes);
    QFile file(QStringLiteral(":/shell/changes"));
    QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    return text.replace(QLatin1String("\n  "), QLatin1String(" ")).trimmed();
}

void showAboutBox(QWidget *parent, const VxPluginMgr &plugins)
{
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("AboutBox"));
    box.setWindowTitle(StudioText::tr("About %1").arg(VxApp::getAppName()));
    box.setTextFormat(Qt::RichText);
    box.setText(aboutText(plugins));
    box.setDetailedText(changesText());
    box.setStandardButtons(QMessageBox::Close);
    box.setDefaultButton(QMessageBox::Close);
    box.exec();
}
