#include "shell/aboutbox.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxversion.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("AboutBox", text);
}

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
    text += paragraph(tr("Composes and animates scenes."));
    text += paragraph(
        tr("Host library %1, Qt %2").arg(VxVersion::sdk().toString(), QLatin1String(qVersion())));
    const QVector<VxPlugin *> loaded = plugins.getPlugins();
    if (loaded.isEmpty())
        return text + paragraph(tr("No plug-ins are loaded."));
    for (const VxPlugin *plugin : loaded)
        text += paragraph(
            tr("%1 %2: %3")
                .arg(plugin->getName(), plugin->getVersion().toString(), plugin->getDescription()));
    return text;
}

void showAboutBox(QWidget *parent, const VxPluginMgr &plugins)
{
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("AboutBox"));
    box.setWindowTitle(tr("About %1").arg(VxApp::getAppName()));
    box.setTextFormat(Qt::RichText);
    box.setText(aboutText(plugins));
    box.setStandardButtons(QMessageBox::Close);
    box.exec();
}
