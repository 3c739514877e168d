#include "document/documentcontroller.h"

#include "document/loadprogress.h"
#include "io/vxbackups.h"
#include "widgets/usermessages.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QUndoStack>
#include <vxcore/vxfileexchange.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

// Within a namespace the macro does not compile.
static void initSamples()
{
    Q_INIT_RESOURCE(sample);
}

namespace {

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

QString titleOf(const QString &path)
{
    return path.isEmpty() ? DocumentController::tr("Untitled") : nameOf(path);
}

/// Where there are other versions of a document that cannot be read; empty when there are none.
QString otherVersions(const QString &fileName)
{
    const QString target = VxFileExchange::targetOf(fileName);
    const QString next = VxFileExchange::newName(target);
    const QString former = VxFileExchange::oldName(target);
    const QString backup = VxBackups(fileName, 1).name(1);
    QString text;
    if (QFileInfo::exists(next))
        text += QLatin1Char(' ') +
                DocumentController::tr("A save was interrupted; rename %1 to open what it saved.")
                    .arg(next);
    if (QFileInfo::exists(former))
        text += QLatin1Char(' ') +
                DocumentController::tr("A save was interrupted; rename %1 to open the former file.")
                    .arg(former);
    if (QFileInfo::exists(backup))
        text += QLatin1Char(' ') +
                DocumentController::tr("The version before the last save is %1.").arg(backup);
    return text;
}

} // namespace

DocumentController::DocumentController(VxScene *scene, VxUndoStack *undoStack,
                                       const UserMessages *messages, QObject *parent,
                                       const VxFileFormats &formats)
    : QObject(parent)
    , m_scene(scene)
    , m_undoStack(undoStack)
    , m_messages(messages)
    , m_formats(formats)
    , m_backups(VxBackups::DefaultCount)
{
}

bool DocumentController::open(const QString &fileName, const VxMotionBuildOptions &options,
                              const VxImportChoices &choices, const ImportChooser &chooser)
{
    // Progress processes events, which may request a second file.
    if (m_isBusy)
        return false;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_scene->pause();
    const bool isFinished = VxFileExchange::finishInterrupted(fileName);
    // Before the file is read: what another program writes meanwhile is a change.
    const FileStamp stamp = FileStamp::of(fileName);
    QString summary;
    VxFileError error;
    VxMotionImport import(m_scene);
    import.setReplacesScene(true);
    import.setOptions(options);
    const bool isMotion = m_formats.isMotion(fileName);
    const bool isRead =
        isMotion ? enterMotion(&import, fileName, tr("Opening %1..."), choices, chooser, &error)
                 : readScene(fileName, &summary, &error);
    if (!isRead) {
        if (!error.cancelled && !isMotion)
            error.message += otherVersions(fileName);
        return report(error, tr("Opening was cancelled."));
    }
    if (isFinished)
        summary = tr("The last save was interrupted and has been completed.") + QLatin1Char(' ') +
                  summary;
    setDocument(VxFileExchange::absoluteName(fileName), isMotion ? import.getSummary() : summary,
                stamp);
    m_messages->showStatus(m_summary.isEmpty() ? tr("Opened %1.").arg(displayName()) : m_summary);
    return true;
}

bool DocumentController::readScene(const QString &fileName, QString *summary, VxFileError *error)
{
    LoadProgress progress(*m_messages, tr("Opening %1...").arg(nameOf(fileName)));
    return m_formats.read(fileName, m_scene, progress.function(), summary, error);
}

bool DocumentController::writeScene(const QString &fileName, VxFileError *error)
{
    LoadProgress progress(*m_messages, tr("Saving %1...").arg(nameOf(fileName)));
    return m_formats.write(fileName, m_scene, progress.function(), error);
}

/** Loads a motion file, asks for import choices and adds its nodes to the scene. */
bool DocumentController::enterMotion(VxMotionImport *import, const QString &fileName,
                                     const QString &title, const VxImportChoices &choices,
                                     const ImportChooser &chooser, VxFileError *error)
{
    {
        LoadProgress progress(*m_messages, title.arg(nameOf(fileName)));
        import->setProgress(progress.function());
        if (!import->load(fileName, error))
            return false;
        import->setProgress({});
    }
    VxImportChoices chosen = choices;
    error->cancelled = chooser && !chooser(import, fileName, &chosen);
    if (error->cancelled || !import->enter(chosen, error))
        return false;
    m_report = import->report();
    return true;
}

bool DocumentController::save(const QString &fileName)
{
    if (m_isBusy)
        return false;
    // Under another spelling of its path as well.
    const bool isOwn = !m_fileName.isEmpty() &&
                       VxFileExchange::targetOf(fileName) == VxFileExchange::targetOf(m_fileName);
    const QString change = isOwn ? changeByOthers() : QString();
    if (!change.isEmpty() && m_messages->isConsole()) {
        VxFileError error;
        vxFail(&error, tr("%1 It was not saved.").arg(change), fileName);
        return report(error, QString());
    }
    if (!change.isEmpty()) {
        const UserMessages::Overwrite answer = m_messages->askToOverwrite(change);
        if (answer == UserMessages::Overwrite::SaveAs)
            return m_saveAs && m_saveAs();
        if (answer == UserMessages::Overwrite::Cancel)
            return false;
    }
    return write(fileName);
}

bool DocumentController::write(const QString &fileName)
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_scene->pause();
    VxFileError error;
    VxBackups backups(fileName, m_backups);
    QString failure;
    const bool isPreserved = backups.preserve(&failure);
    if (!writeScene(fileName, &error)) {
        backups.drop();
        return report(error, tr("Saving was cancelled."));
    }
    const bool hasBackup = isPreserved && backups.rotate(&failure);
    m_fileName = VxFileExchange::absoluteName(fileName);
    m_stamp = FileStamp::of(m_fileName);
    markSaved();
    Q_EMIT documentChanged();
    if (hasBackup)
        m_messages->showStatus(tr("Saved %1.").arg(displayName()));
    else
        m_messages->showNotice(
            tr("Saved %1, but its backup could not be made. %2.").arg(displayName(), failure));
    return true;
}

/** In mid-gesture the file has changes that may yet be reverted. */
void DocumentController::markSaved()
{
    if (m_undoStack->isRecording())
        m_undoStack->qtStack()->resetClean();
    else
        m_undoStack->setClean();
}

/** A sentence for the user; empty when the document's file is as it was read or written last. */
QString DocumentController::changeByOthers() const
{
    const FileStamp present = FileStamp::of(m_fileName);
    // Without its folder nothing can be saved: the failure says so.
    if (present == m_stamp || !m_stamp.exists() || !QFileInfo(m_fileName).dir().exists())
        return {};
    return present.exists()
               ? tr("\"%1\" was changed by another program since it was opened or saved here.")
                     .arg(displayName())
               : tr("\"%1\" was removed or renamed by another program since it was opened or saved "
                    "here.")
                     .arg(displayName());
}

void DocumentController::checkFile()
{
    const QString change = m_isBusy ? QString() : changeByOthers();
    const FileStamp present = FileStamp::of(m_fileName);
    if (change.isEmpty() || (m_noticed == present && m_noticedFile == m_fileName))
        return;
    m_noticed = present;
    m_noticedFile = m_fileName;
    m_messages->showStatus(change);
}

void DocumentController::setBackups(int count)
{
    count = qBound(0, count, VxBackups::MaxCount);
    if (m_backups == count)
        return;
    m_backups = count;
    Q_EMIT backupsChanged();
}

bool DocumentController::openSample()
{
    if (m_isBusy)
        return false;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    initSamples();
    m_scene->pause();
    QString summary;
    VxFileError error;
    if (!readScene(QStringLiteral(":/samples/walk.vxscene"), &summary, &error))
        return report(error, tr("Opening was cancelled."));
    setDocument(QString(), summary);
    m_messages->showStatus(tr("Opened the sample."));
    return true;
}

void DocumentController::clear()
{
    if (m_isBusy)
        return;
    m_scene->beginLoad();
    m_scene->clear();
    m_scene->endLoad();
    setDocument(QString(), QString());
}

bool DocumentController::recover(const QString &copy, const QString &fileName, VxFileError *error)
{
    *error = VxFileError();
    error->cancelled = m_isBusy;
    if (m_isBusy)
        return false;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_scene->pause();
    QString summary;
    LoadProgress progress(*m_messages, tr("Recovering %1...").arg(titleOf(fileName)));
    if (!m_formats.read(copy, m_scene, progress.function(), &summary, error))
        return false;
    setDocument(fileName, summary, FileStamp::of(fileName));
    // A file saved after the copy was made is not the base of the copy.
    const FileStamp copied = FileStamp::of(copy);
    if (m_stamp.exists() && m_stamp.modified > copied.modified)
        m_stamp = copied;
    m_undoStack->qtStack()->resetClean();
    m_messages->showStatus(tr("Recovered %1. It has not been saved yet.").arg(displayName()));
    return true;
}

bool DocumentController::importMotion(const QString &fileName, const VxMotionBuildOptions &options,
                                      const VxImportChoices &choices, const ImportChooser &chooser)
{
    if (m_isBusy)
        return false;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_scene->pause();
    VxFileError error;
    VxMotionImport import(m_scene);
    import.setOptions(options);
    if (!enterMotion(&import, fileName, tr("Importing %1..."), choices, chooser, &error))
        return report(error, tr("The import was cancelled."));
    m_scene->selectAllNodes(false);
    for (VxNode *root : import.getRoots())
        root->select();
    m_messages->showStatus(import.getSummary());
    return true;
}

bool DocumentController::exportMotion(const VxMotionExportOptions &options, const QString &fileName)
{
    if (m_isBusy)
        return false;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_scene->pause();
    VxFileError error;
    QString summary;
    bool isWritten = false;
    {
        LoadProgress progress(*m_messages, tr("Exporting %1...").arg(nameOf(fileName)));
        isWritten =
            vxExportMotion(m_scene, options, fileName, progress.function(), &summary, &error);
    }
    if (!isWritten)
        return report(error, tr("The export was cancelled."));
    m_messages->showStatus(tr("Exported %1. %2").arg(nameOf(fileName), summary));
    return true;
}

/** Always false, for use in return statements. */
bool DocumentController::report(const VxFileError &error, const QString &cancelled)
{
    m_lastError = error.cancelled ? cancelled : error.text();
    if (error.cancelled)
        m_messages->showStatus(cancelled);
    else
        m_messages->showError(error.text());
    return false;
}

QString DocumentController::displayName() const
{
    return titleOf(m_fileName);
}

bool DocumentController::hasWritableFile() const
{
    return !m_fileName.isEmpty() && m_formats.canWrite(m_fileName) &&
           VxBackups::originalOf(m_fileName).isEmpty();
}

void DocumentController::setDocument(const QString &fileName, const QString &summary,
                                     const FileStamp &stamp)
{
    // Opening cannot be undone, and the opened file counts as saved.
    m_undoStack->clear();
    m_undoStack->setClean();
    m_fileName = fileName;
    m_stamp = stamp;
    m_summary = summary;
    Q_EMIT documentChanged();
}
