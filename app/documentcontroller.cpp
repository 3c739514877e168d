#include "documentcontroller.h"

#include "loadprogress.h"
#include "usermessages.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

DocumentController::DocumentController(VxScene *scene, VxUndoStack *undoStack,
                                       const UserMessages *messages, QObject *parent,
                                       const VxFileFormats &formats)
    : QObject(parent)
    , m_scene(scene)
    , m_undoStack(undoStack)
    , m_messages(messages)
    , m_formats(formats)
{
}

bool DocumentController::open(const QString &fileName)
{
    // Events are processed while the progress is shown: a second file must wait for its turn.
    if (m_isLoading)
        return false;
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    m_scene->pause();
    QString summary;
    VxFileError error;
    LoadProgress progress(*m_messages, tr("Opening %1...").arg(QFileInfo(fileName).fileName()));
    if (m_formats.read(fileName, m_scene, progress.function(), &summary, &error)) {
        setDocument(QFileInfo(fileName).absoluteFilePath(), summary);
        m_messages->showStatus(summary.isEmpty() ? tr("%1 is open.").arg(displayName()) : summary);
        return true;
    }
    if (error.cancelled)
        m_messages->showStatus(tr("Opening was cancelled."));
    else
        m_messages->showError(error.text());
    return false;
}

bool DocumentController::save(const QString &fileName)
{
    if (m_isLoading)
        return false;
    const QScopedValueRollback<bool> saving(m_isLoading, true);
    m_scene->pause();
    VxFileError error;
    LoadProgress progress(*m_messages, tr("Saving %1...").arg(QFileInfo(fileName).fileName()));
    if (m_formats.write(fileName, m_scene, progress.function(), &error)) {
        m_fileName = QFileInfo(fileName).absoluteFilePath();
        m_undoStack->setClean();
        Q_EMIT documentChanged();
        m_messages->showStatus(tr("%1 is saved.").arg(displayName()));
        return true;
    }
    if (error.cancelled)
        m_messages->showStatus(tr("Saving was cancelled."));
    else
        m_messages->showError(error.text());
    return false;
}

void DocumentController::clear()
{
    m_scene->beginLoad();
    m_scene->clear();
    m_scene->endLoad();
    setDocument(QString(), QString());
}

QString DocumentController::displayName() const
{
    return m_fileName.isEmpty() ? tr("Untitled") : QFileInfo(m_fileName).fileName();
}

bool DocumentController::hasWritableFile() const
{
    return !m_fileName.isEmpty() && m_formats.canWrite(m_fileName);
}

void DocumentController::setDocument(const QString &fileName, const QString &summary)
{
    // The opening itself is nothing that one could undo, and the file as opened counts as saved.
    m_undoStack->clear();
    m_undoStack->setClean();
    m_fileName = fileName;
    m_summary = summary;
    Q_EMIT documentChanged();
}
