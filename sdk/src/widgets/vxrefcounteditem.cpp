#include <vxcore/vxrefcounteditem.h>

VxRefCountedItem::VxRefCountedItem()
    : m_count(1)
{
}

VxRefCountedItem::~VxRefCountedItem() = default;

void VxRefCountedItem::ref()
{
    m_count.ref();
}

void VxRefCountedItem::unref()
{
    if (!m_count.deref())
        delete this;
}

int VxRefCountedItem::refCount() const
{
    return m_count.loadAcquire();
}
