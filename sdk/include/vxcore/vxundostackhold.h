#ifndef VXUNDOSTACKHOLD_H
#define VXUNDOSTACKHOLD_H

#include <QtCore/QString>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// Collects the scene changes during its lifetime into one undo entry.
///
/// Holds may be nested: only the outermost one makes an entry, under its own text; accepting or
/// cancelling the inner ones makes no difference. Nothing is recorded outside of any hold.
/// Cancelling drops the record and keeps the changes; rollBack() reverts them.
class VXCORE_EXPORT VxUndoStackHold
{
public:
    VxUndoStackHold();
    /// Cancels the hold unless it has ended.
    ~VxUndoStackHold();

    /// Ends the hold and records everything since its beginning as one entry. A hold in which
    /// nothing changed, or everything changed back, makes no entry.
    void accept(const QString &text);
    /// Ends the hold without an entry; the changes stay.
    void cancel();
    /// Ends the hold without an entry and reverts all changes since its beginning, to cancel a
    /// gesture. False within another hold, whose changes cannot be separated from these: then it
    /// only ends, as with cancel().
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
