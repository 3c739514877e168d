#include <vxcore/vxundostackhold.h>

#include "undo/vxundostack_p.h"

#include <QtCore/QPointer>

class VxUndoStackHold::Private
{
public:
    /// Null when there was no stack at the beginning, or it was destroyed: nothing is recorded
    /// then.
    QPointer<VxUndoStack> stack;
    bool open = true;
};

VxUndoStackHold::VxUndoStackHold()
    : d(std::make_unique<Private>())
{
    d->stack = VxUndoStack::current();
    if (d->stack)
        d->stack->d->open(this);
}

VxUndoStackHold::~VxUndoStackHold()
{
    cancel();
}

void VxUndoStackHold::accept(const QString &text)
{
    if (!d->open)
        return;
    d->open = false;
    if (d->stack)
        d->stack->d->close(this, &text);
}

void VxUndoStackHold::cancel()
{
    if (!d->open)
        return;
    d->open = false;
    if (d->stack)
        d->stack->d->close(this, nullptr);
}

bool VxUndoStackHold::rollBack()
{
    if (!d->open)
        return false;
    d->open = false;
    return d->stack && d->stack->d->rollBack(this);
}

bool VxUndoStackHold::isOpen() const
{
    return d->open;
}
