#ifndef VXREFCOUNTEDITEM_H
#define VXREFCOUNTEDITEM_H

#include <QtCore/QAtomicInt>
#include <vxcore/vxcoreglobal.h>

/// Base of reference-counted objects. The count is in the object, so that a plain pointer can be
/// turned into an owning one at any time. A new item has one owner, its maker. The count is atomic:
/// owners on several threads may release it at the same time, the last one deletes.
class VXCORE_EXPORT VxRefCountedItem
{
public:
    VxRefCountedItem();
    VxRefCountedItem(const VxRefCountedItem &) = delete;
    VxRefCountedItem &operator=(const VxRefCountedItem &) = delete;

    /// Adds an owner.
    void ref();
    /// Removes an owner. Deletes the item with the last one: do not use it afterwards.
    void unref();
    /// The number of owners, at least 1.
    int refCount() const;

protected:
    virtual ~VxRefCountedItem();

private:
    QAtomicInt m_count;
};

#endif
