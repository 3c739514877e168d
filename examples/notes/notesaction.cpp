#include "notesaction.h"

#include "notespane.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>

NotesStampAction::NotesStampAction()
    : VxAction(tr("Note the Current Frame"),
               tr("Adds a line with the current frame and the primary selection to the notes."))
{
}

QString NotesStampAction::getDefaultMenuPath() const
{
    return QStringLiteral("Notes");
}

QString NotesStampAction::getActionGroup() const
{
    return QStringLiteral("NotesPane::");
}

void NotesStampAction::executeAction()
{
    const VxMainWindow *window = vxApp->getInterface();
    auto *pane = window ? qobject_cast<NotesPane *>(
                              window->getPaneMgr()->findOrCreatePane(QStringLiteral("NotesPane")))
                        : nullptr;
    if (!pane)
        return;
    const VxNode *node = vxScene->getPrimarySelection();
    pane->addNote(tr("Frame %1: %2")
                      .arg(vxScene->getTime() / vxScene->getTimeStep())
                      .arg(node ? node->getLabel() : tr("nothing selected")));
}
