#ifndef VXCORE_VXUNDOSTACKHOLD_H
#define VXCORE_VXUNDOSTACKHOLD_H

#include <QtCore/QString>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// Collects the scene changes made while it lives into one undo entry.
///
/// Holds may be nested: the outermost one alone makes an entry, under its own text; what the inner
/// ones accept or cancel makes no difference. Nothing is recorded outside of any hold. Cancelling
/// only forgets, changes already made stay; rollBack() puts them back.
class VXCORE_EXPORT VxUndoStackHold
{
public:
    VxUndoStackHold();
    /// Drops the hold when it was neither accepted nor cancelled.
    ~VxUndoStackHold();

    /// Ends the hold and records everything since its beginning as one entry. A hold in which
    /// nothing changed, or everything changed back, makes no entry.
    void accept(const QString &text);
    /// Ends the hold without an entry; what was changed stays.
    void cancel();
    /// Ends the hold without an entry and puts back everything that was changed since its
    /// beginning: how a gesture is dropped. False within another hold, whose changes cannot be
    /// told from these: then it only ends, as with cancel().
    bool rollBack();
    /// True until accept(), cancel() or rollBack().
    bool isOpen() const;

private:
    VxUndoStackHold(const VxUndoStackHold &) = delete;
    VxUndoStackHold &operator=(const VxUndoStackHold &) = delete;
    class Private;
    std::unique_ptr<Private> d;
};

#endif
