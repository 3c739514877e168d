#include "shell/historystatus.h"

#include "widgets/usermessages.h"

#include <vxcore/vxundostack.h>

HistoryStatus::HistoryStatus(VxUndoStack *history, const UserMessages *messages, QObject *parent)
    : QObject(parent)
{
    connect(history, &VxUndoStack::entryAdded, this,
            [messages](const QString &text) { messages->showStatus(text); });
    connect(history, &VxUndoStack::stepped, this, [history, messages](int from, int to) {
        messages->showStatus(sentence(*history, from, to));
    });
}

QString HistoryStatus::sentence(const VxUndoStack &history, int from, int to)
{
    if (to == from - 1)
        return tr("Undid %1").arg(history.text(to));
    if (to == from + 1)
        return tr("Redid %1").arg(history.text(from));
    return to < from ? tr("Undid %n commands", nullptr, from - to)
                     : tr("Redid %n commands", nullptr, to - from);
}
