#include "document/motioncommands.h"

#include "document/documentcontroller.h"
#include "document/figurechoice.h"
#include "document/importdialog.h"
#include "document/savefiledialog.h"
#include "widgets/usermessages.h"

#include <QFileDialog>
#include <QInputDialog>
#include <vxcore/vxmainwindow.h>
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

void MotionCommands::importFile(const QString &fileName)
{
    // BVH motion has nothing to choose from: one animation, on frames, of which all is imported.
    const bool isPlain = fileName.endsWith(QLatin1String(".bvh"), Qt::CaseInsensitive);
    DocumentController::ImportChooser chooser;
    if (!isPlain && !m_messages->isConsole())
        chooser = [this](VxMotionImport *import, const QString &file, VxImportChoices *choices) {
            return ImportDialog::ask(m_messages->window(), import, file, choices);
        };
    m_document->importMotion(fileName, {}, {}, chooser);
}

void MotionCommands::showReport() const
{
    const VxImportReport &report = m_document->importReport();
    if (report.file.isEmpty())
        m_messages->showStatus(tr("No motion was imported yet."));
    else
        showImportReport(report, m_messages->window());
}

bool MotionCommands::exportWithDialog(const QString &folder)
{
    const VxSkeleton *figure = chooseFigure();
    if (!figure)
        return false;
    SaveFileDialog dialog(tr("Export Motion"), m_messages, m_messages->window());
    dialog.setStart(folder, figure->getLabel());
    dialog.setKind(QStringLiteral("bvh"), {tr("Motion files (*.bvh *.glb *.gltf)")});
    dialog.setOtherSuffixes({QStringLiteral("glb"), QStringLiteral("gltf")});
    const QString file = dialog.ask();
    return !file.isEmpty() && m_document->exportMotion(figure, file);
}

/** Null when there is none, or the user chose none. */
VxSkeleton *MotionCommands::chooseFigure() const
{
    if (VxSkeleton *figure = FigureChoice::meant(*m_scene))
        return figure;
    const QVector<VxSkeleton *> figures = FigureChoice::figures(*m_scene);
    if (figures.isEmpty()) {
        m_messages->showError(tr("Nothing to export: the scene has no figure with a skeleton."));
        return nullptr;
    }
    const QStringList names = FigureChoice::names(figures);
    bool chosen = false;
    const QString name = QInputDialog::getItem(m_messages->window(), tr("Export Motion"),
                                               tr("Figure to export:"), names, 0, false, &chosen);
    return chosen ? figures.value(names.indexOf(name)) : nullptr;
}
