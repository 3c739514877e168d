#ifndef VXCORE_VXREFCOUNTEDITEM_H
#define VXCORE_VXREFCOUNTEDITEM_H

#include <QtCore/QAtomicInt>

#include <vxcore/vxcoreglobal.h>

// Base of objects that are shared by counting their owners. The count lives in the object, so that
// a plain pointer can be turned into an owning one at any time. A new item has one owner, its
// maker. The count is atomic: owners on several threads may let go at the same time, the last one
// deletes.
class VXCORE_EXPORT VxRefCountedItem
{
public:
    VxRefCountedItem();
    VxRefCountedItem(const VxRefCountedItem &) = delete;
    VxRefCountedItem &operator=(const VxRefCountedItem &) = delete;

    // Adds an owner.
    void ref();
    // Takes an owner away. Deletes the item with the last one: do not touch it afterwards.
    void unref();
    // The number of owners, at least 1.
    int refCount() const;

protected:
    virtual ~VxRefCountedItem();

private:
    QAtomicInt m_count;
};

#endif
