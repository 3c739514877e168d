#include <vxcore/vxjournalwriter.h>

#include "scene/vxelement_p.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>

VxJournalWriter::VxJournalWriter() = default;
VxJournalWriter::~VxJournalWriter() = default;

QByteArray VxJournalWriter::exchange(QByteArray buffer)
{
    buffer.resize(0); // keeps its capacity
    return std::exchange(m_bytes, std::move(buffer));
}

void VxJournalWriter::beginItem()
{
    m_item = m_bytes.size();
    number(qint32(0));
}

void VxJournalWriter::endItem()
{
    const auto size = qint32(m_bytes.size() - m_item - int(sizeof(qint32)));
    std::memcpy(m_bytes.data() + m_item, &size, sizeof size);
}

void VxJournalWriter::text(const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    number(qint32(utf8.size()));
    m_bytes.append(utf8);
}

void VxJournalWriter::block(const void *data, qint64 bytes)
{
    m_bytes.append(static_cast<const char *>(data), int(bytes));
}

void VxJournalWriter::reserve(qint64 bytes)
{
    const qint64 size = m_bytes.size() + bytes;
    if (size > m_bytes.capacity())
        m_bytes.reserve(int(std::max<qint64>(size, qint64(m_bytes.capacity()) * 2)));
}

bool VxJournalWriter::node(const VxNode *node)
{
    if (node && !node->getScene())
        return false;
    number(node ? node->getId() : quint64(0));
    return true;
}

bool VxJournalWriter::property(const VxProperty *property)
{
    if (!property)
        return node(nullptr);
    const VxElement *owner = property->getOwner();
    const VxNode *holder = owner ? VxElement::Private::of(owner)->findNode() : nullptr;
    const VxObject *object = holder ? holder->getObject() : nullptr;
    int place = owner == holder ? 0 : 1;
    if (object && owner != holder && owner != object)
        place = 2 + VxElement::Private::of(object)->placeOfElement(owner);
    // An element below a sub-element has no place.
    if (!holder || (place != 0 && !object) ||
        (place >= 2 && object->getSubElement(place - 2) != owner))
        return false;
    if (!node(holder))
        return false;
    number(qint32(place));
    text(property->getName());
    return true;
}

bool VxJournalWriter::contents(const QVector<VxNode *> &)
{
    return false;
}
