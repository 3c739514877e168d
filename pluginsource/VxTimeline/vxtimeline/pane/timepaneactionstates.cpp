// Which of the registered actions can be used at present.

#include <QtWidgets/QAction>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/pane/vxtimepane_p.h"

namespace {

enum Needs { SelectedKeys, CopiedKeys };

// Actions are known by class name here, because the pane does not include them.
struct ActionNeed
{
    const char *className;
    Needs needs;
};

const ActionNeed actionNeeds[] = {
    {"VxTimePaneCopySelectedKeysAction", SelectedKeys},
    {"VxTimePaneDeleteSelectedKeysAction", SelectedKeys},
    {"VxTimePaneSetInterpTcbAction", SelectedKeys},
    {"VxTimePaneSetInterpLinearAction", SelectedKeys},
    {"VxTimePaneSetInterpConstantAction", SelectedKeys},
    {"VxTimePanePasteKeysAction", CopiedKeys},
};

const ActionNeed *findNeed(const QAction *action)
{
    const char *className = action->metaObject()->className();
    for (const ActionNeed &need : actionNeeds) {
        if (qstrcmp(need.className, className) == 0)
            return &need;
    }
    return nullptr;
}

} // namespace

// Key selection reports once for each row, so a call that finds nothing new costs next to nothing.
void VxTimePane::updateActionStates()
{
    const bool selected = hasSelectedKeys();
    const bool copied = hasCopiedKeys();
    if (d->actionStatesValid && selected == d->actionsSawSelectedKeys &&
        copied == d->actionsSawCopiedKeys)
        return;
    d->actionStatesValid = true;
    d->actionsSawSelectedKeys = selected;
    d->actionsSawCopiedKeys = copied;
    for (QAction *action : qAsConst(d->actions)) {
        if (const ActionNeed *need = findNeed(action))
            action->setEnabled(need->needs == SelectedKeys ? selected : copied);
    }
    d->deleteKeysButton->setEnabled(selected);
    d->copyButton->setEnabled(selected);
    d->interpTypeButton->setEnabled(selected);
    d->pasteButton->setEnabled(copied);
}
