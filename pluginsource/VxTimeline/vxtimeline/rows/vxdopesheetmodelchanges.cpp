// How the model announces rows that are added and removed: one by one, or many as resets.

#include "vxtimeline/rows/vxdopesheetmodel_p.h"

#include <QtCore/QTimer>

namespace {

// From so many changes in one iteration of the event loop on, and so many nodes that had rows in
// all of them, closing and opening the rows of views once takes less time than what they do at each
// change.
constexpr int ManyChanges = 16;
constexpr int ManyNodes = 5000;

} // namespace

bool VxDopeSheetModel::Private::isOneOfMany()
{
    if (changes++ == 0)
        QTimer::singleShot(0, q, [this] {
            q->endManyChanges();
            changes = 0;
            changedAmong = 0;
        });
    changedAmong += rows.size();
    if (!isChangingMany && changes >= ManyChanges && changedAmong >= ManyNodes) {
        isChangingMany = true;
        Q_EMIT q->manyChangesStarting();
    }
    return isChangingMany;
}

void VxDopeSheetModel::Private::beginInsert(const VxDopeSheetItem *above, int row)
{
    if (isResetting)
        return;
    openResets.append(isOneOfMany());
    if (openResets.last())
        q->beginResetModel();
    else
        q->beginInsertRows(q->indexOf(above), row, row);
}

void VxDopeSheetModel::Private::endInsert()
{
    if (isResetting)
        return;
    if (openResets.takeLast())
        q->endResetModel();
    else
        q->endInsertRows();
}

void VxDopeSheetModel::Private::beginRemove(const VxDopeSheetItem *item)
{
    openResets.append(isOneOfMany());
    if (openResets.last())
        q->beginResetModel();
    else
        q->beginRemoveRows(q->indexOf(item->parentItem()), item->row(), item->row());
}

void VxDopeSheetModel::Private::endRemove()
{
    if (openResets.takeLast())
        q->endResetModel();
    else
        q->endRemoveRows();
}

// Not while a change is being announced.
void VxDopeSheetModel::endManyChanges() const
{
    if (!d->isChangingMany || !d->openResets.isEmpty())
        return;
    d->isChangingMany = false;
    d->changes = 1; // in the same iteration of the event loop
    d->changedAmong = 0;
    Q_EMIT d->q->manyChangesFinished();
}
