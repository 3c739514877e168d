#include "undo/vxundostack_p.h"

#include "scene/deferreddeletion.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <algorithm>
#include <utility>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxjournalwriter.h>

namespace {

/// The existing stacks, oldest first; more than one only in tests.
QVector<VxUndoStack *> &stacks()
{
    static QVector<VxUndoStack *> list;
    return list;
}

} // namespace

VxUndoItem::~VxUndoItem() = default;

void vxSwapItems(const VxUndoItems &items, bool undo, bool *applying)
{
    const auto swap = [](const auto &item) { item->swap(); };
    const VxChangeBlock block;
    *applying = true;
    if (undo)
        std::for_each(items.rbegin(), items.rend(), swap);
    else
        std::for_each(items.begin(), items.end(), swap);
    for (const auto &item : items)
        item->settle();
    *applying = false;
}

VxUndoEntry::VxUndoEntry(const QString &text, VxUndoItems items, bool *applying)
    : QUndoCommand(text)
    , m_items(std::move(items))
    , m_applying(applying)
{
}

void VxUndoEntry::undo()
{
    vxSwapItems(m_items, true, m_applying);
}

void VxUndoEntry::redo()
{
    if (m_inPlace) {
        m_inPlace = false;
        return;
    }
    vxSwapItems(m_items, false, m_applying);
}

qint64 VxUndoEntry::memoryUsed() const
{
    qint64 bytes = 0;
    for (const auto &item : m_items)
        bytes += item->memoryUsed();
    return bytes;
}

bool VxUndoEntry::write(VxJournalWriter &writer) const
{
    return std::all_of(m_items.begin(), m_items.end(), [&writer](const auto &item) {
        writer.beginItem();
        const bool isWritten = item->write(writer);
        writer.endItem();
        return isWritten;
    });
}

void VxUndoStack::Private::open(const VxUndoStackHold *hold)
{
    holds.push_back(hold);
}

void VxUndoStack::Private::close(const VxUndoStackHold *hold, const QString *text)
{
    const auto found = std::find(holds.begin(), holds.end(), hold);
    if (found == holds.end())
        return;
    const bool outermost = found == holds.begin();
    holds.erase(found);
    if (!outermost)
        return;
    const DeferredDeletion deletion;

    VxUndoItems finished;
    finished.swap(items);
    index.clear();
    finished.erase(std::remove_if(finished.begin(), finished.end(),
                                  [](const auto &item) { return !item->finish(); }),
                   finished.end());
    if (finished.empty())
        return;
    if (!text) {
        q->noteUnrecordedChange();
        return;
    }
    stack->push(new VxUndoEntry(*text, std::move(finished), &applying));
    Q_EMIT q->entryAdded(*text);
}

bool VxUndoStack::Private::rollBack(const VxUndoStackHold *hold)
{
    if (holds.empty() || holds.front() != hold) {
        close(hold, nullptr);
        return false;
    }
    holds.erase(holds.begin());
    index.clear();
    vxSwapItems(std::exchange(items, {}), true, &applying);
    return true;
}

void VxUndoStack::Private::step(int to)
{
    const int from = stack->index();
    if (!holds.empty() || applying || stepping || to == from || to < 0 || to > stack->count())
        return;
    const DeferredDeletion deletion;
    stepping = true;
    {
        const VxChangeBlock block;
        stack->setIndex(to);
    }
    stepping = false;
    if (clearAfterStep) {
        clearAfterStep = false;
        stack->clear();
    }
    Q_EMIT q->stepped(from, stack->index());
}

VxUndoStack::VxUndoStack(QObject *parent)
    : VxSignalGuard(parent)
    , d(std::make_unique<Private>())
{
    d->q = this;
    d->stack = new QUndoStack(this);
    connect(d->stack, &QUndoStack::indexChanged, this, &VxUndoStack::indexChanged);
    connect(d->stack, &QUndoStack::cleanChanged, this, &VxUndoStack::cleanChanged);
    stacks().append(this);
}

VxUndoStack::~VxUndoStack()
{
    d->scriptHolds.clear();
    stacks().removeOne(this);
    // The entries refer to the private record, which is destroyed before the toolkit's stack would
    // be.
    d->stack->disconnect(this);
    delete d->stack;
}

VxUndoStack *VxUndoStack::current()
{
    return stacks().isEmpty() ? nullptr : stacks().first();
}

QUndoStack *VxUndoStack::qtStack() const
{
    return d->stack;
}

bool VxUndoStack::isClean() const
{
    return d->stack->isClean();
}

bool VxUndoStack::isRecording() const
{
    return !d->holds.empty() && !d->applying;
}

bool VxUndoStack::isApplying() const
{
    return d->applying;
}

void VxUndoStack::record(VxUndoItem *item)
{
    std::unique_ptr<VxUndoItem> owned(item);
    if (!item || !isRecording())
        return;
    d->index.insert({item->object(), item->kind()}, item);
    d->items.push_back(std::move(owned));
}

VxUndoItem *VxUndoStack::findItem(const void *object, int kind) const
{
    return isRecording() ? d->index.value({object, kind}) : nullptr;
}

bool VxUndoStack::writeEntry(int index, VxJournalWriter &writer) const
{
    const auto *entry = static_cast<const VxUndoEntry *>(d->stack->command(index));
    return entry && entry->write(writer);
}

void VxUndoStack::noteUnrecordedChange()
{
    if (!std::exchange(d->hasUnrecordedChange, true))
        QMetaObject::invokeMethod(this, &VxUndoStack::unrecordedChange, Qt::QueuedConnection);
}

bool VxUndoStack::takeUnrecordedChange()
{
    return std::exchange(d->hasUnrecordedChange, false);
}

qint64 VxUndoStack::memoryUsed() const
{
    qint64 bytes = 0;
    for (int i = 0; i < d->stack->count(); ++i)
        bytes += static_cast<const VxUndoEntry *>(d->stack->command(i))->memoryUsed();
    return bytes;
}

void VxUndoStack::undo()
{
    d->step(d->stack->index() - 1);
}

void VxUndoStack::redo()
{
    d->step(d->stack->index() + 1);
}

void VxUndoStack::setIndex(int index)
{
    d->step(index);
}

bool VxUndoStack::canUndo() const
{
    return d->stack->canUndo();
}

bool VxUndoStack::canRedo() const
{
    return d->stack->canRedo();
}

int VxUndoStack::count() const
{
    return d->stack->count();
}

int VxUndoStack::index() const
{
    return d->stack->index();
}

QString VxUndoStack::text(int index) const
{
    return d->stack->text(index);
}

QString VxUndoStack::undoText() const
{
    return d->stack->undoText();
}

QString VxUndoStack::redoText() const
{
    return d->stack->redoText();
}

void VxUndoStack::clear()
{
    const DeferredDeletion deletion;
    d->index.clear();
    const VxUndoItems dropped = std::move(d->items);
    d->items.clear();
    // A listener of an undo step must not clear entries that the step is using.
    if (d->stepping)
        d->clearAfterStep = true;
    else
        d->stack->clear();
}

void VxUndoStack::setClean()
{
    d->stack->setClean();
}

void VxUndoStack::beginHold()
{
    d->scriptHolds.push_back(std::make_unique<VxUndoStackHold>());
}

void VxUndoStack::acceptHold(const QString &text)
{
    if (d->scriptHolds.empty()) {
        qWarning("VxUndoStack::acceptHold(): no hold is open");
        return;
    }
    const auto hold = std::move(d->scriptHolds.back());
    d->scriptHolds.pop_back();
    hold->accept(text);
}

void VxUndoStack::cancelHold()
{
    if (d->scriptHolds.empty()) {
        qWarning("VxUndoStack::cancelHold(): no hold is open");
        return;
    }
    const auto hold = std::move(d->scriptHolds.back());
    d->scriptHolds.pop_back();
    hold->cancel();
}
