#include "document/motioncommands.h"

#include "document/exportdialog.h"
#include "document/importdialog.h"
#include "document/savefiledialog.h"
#include "widgets/usermessages.h"

#include <QFileDialog>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

MotionCommands::MotionCommands(DocumentController *document, const UserMessages *messages,
                               VxScene *scene, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_messages(messages)
    , m_scene(scene)
{
}

void MotionCommands::importWithDialog(const QString &folder)
{
    const QString file = QFileDialog::getOpenFileName(
        m_messages->window(), tr("Import Motion"), folder,
        m_document->formats().motionFilters().join(QLatin1String(";;")));
    if (!file.isEmpty())
        importFile(file);
}

/** An unattended run asks nothing. */
DocumentController::ImportChooser MotionCommands::chooser() const
{
    if (m_messages->isConsole())
        return {};
    return [this](VxMotionImport *import, const QString &file, VxImportChoices *choices) {
        return ImportDialog::ask(m_messages->window(), import, file, choices);
    };
}

void MotionCommands::importFile(const QString &fileName)
{
    m_document->importMotion(fileName, {}, {}, chooser());
}

void MotionCommands::openFile(const QString &fileName)
{
    m_document->open(fileName, {}, {}, chooser());
}

void MotionCommands::showReport() const
{
    const VxImportReport &report = m_document->importReport();
    if (report.file.isEmpty())
        m_messages->showStatus(tr("No motion has been imported yet."));
    else
        showImportReport(report, m_messages->window());
}

bool MotionCommands::exportWithDialog(const QString &folder)
{
    if (m_scene->getNumNodes() == 0) {
        m_messages->showError(tr("Nothing to export: the scene is empty."));
        return false;
    }
    ExportDialog choices(*m_scene, m_messages->window());
    if (choices.exec() != QDialog::Accepted)
        return false;
    VxMotionExportOptions options = choices.options();
    const QString name = choices.figure() ? choices.figure()->getLabel() : tr("Scene");
    QStringList suffixes = vxExportSuffixes();
    SaveFileDialog dialog(tr("Export Motion"), m_messages, m_messages->window());
    dialog.setStart(folder, name);
    // The first format has a single figure, so it is not the default for a scene.
    if (!choices.isOfFigure())
        suffixes.move(0, suffixes.size() - 1);
    dialog.setKind(
        suffixes.constFirst(),
        {tr("Motion files (%1)").arg(QStringLiteral("*.") + suffixes.join(QStringLiteral(" *.")))});
    dialog.setOtherSuffixes(suffixes);
    const QString file = dialog.ask();
    if (file.isEmpty())
        return false;
    options.root = choices.figure();
    if (choices.isOfFigure() && !options.root) {
        m_messages->showError(tr("Nothing was exported: the figure was removed from the scene."));
        return false;
    }
    return m_document->exportMotion(options, file);
}
