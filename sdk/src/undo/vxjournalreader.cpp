#include <vxcore/vxjournalreader.h>

#include "scene/journalitems.h"

#include <QtCore/QTextCodec>
#include <algorithm>
#include <cstring>
#include <vector>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>

namespace {

/// The number of UTF-8 in the register of character sets.
constexpr int Utf8Mib = 106;

} // namespace

VxJournalReader::VxJournalReader(const QByteArray &bytes, VxScene *scene)
    : m_bytes(bytes)
    , m_scene(scene)
    , m_end(bytes.size())
{
}

VxJournalReader::~VxJournalReader() = default;

bool VxJournalReader::fail()
{
    m_failed = true;
    return false;
}

const char *VxJournalReader::block(qint64 bytes)
{
    if (m_failed || bytes < 0 || bytes > m_end - m_offset) {
        fail();
        return nullptr;
    }
    const char *found = m_bytes.constData() + m_offset;
    m_offset += bytes;
    return found;
}

void VxJournalReader::copy(void *to, qint64 bytes)
{
    if (const char *from = block(bytes))
        std::memcpy(to, from, size_t(bytes));
}

/** Without the state a byte order mark, which may begin the name of a node, would be left out. */
QString VxJournalReader::text()
{
    const auto size = number<qint32>();
    const char *utf8 = block(size);
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return utf8 ? QTextCodec::codecForMib(Utf8Mib)->toUnicode(utf8, size, &state) : QString();
}

VxNode *VxJournalReader::node()
{
    const auto id = number<quint64>();
    VxNode *found = id == 0 || m_failed ? nullptr : m_scene->findNodeById(id);
    if (id != 0 && !found)
        fail();
    return found;
}

VxElement *VxJournalReader::elementOf(VxNode *node, int place)
{
    if (place == 0)
        return node;
    VxObject *object = node->getObject();
    if (!object || place < 0)
        return nullptr;
    return place == 1 ? object : object->getSubElement(place - 2);
}

VxProperty *VxJournalReader::property()
{
    VxNode *holder = node();
    if (!holder)
        return nullptr;
    const auto place = number<qint32>();
    const QString name = text();
    VxElement *element = m_failed ? nullptr : elementOf(holder, place);
    VxProperty *found = element ? element->findProperty(name) : nullptr;
    if (!found)
        fail();
    return found;
}

std::unique_ptr<VxNode> VxJournalReader::contents()
{
    fail();
    return nullptr;
}

bool VxJournalReader::apply(Direction direction)
{
    struct Item
    {
        qint64 offset;
        qint64 end;
    };
    std::vector<Item> items;
    while (!atEnd() && !m_failed) {
        const auto size = number<qint32>();
        const qint64 offset = m_offset;
        block(size);
        if (size > 0)
            items.push_back({offset, m_offset});
    }
    if (direction == Backward)
        std::reverse(items.begin(), items.end());
    return !m_failed && std::all_of(items.begin(), items.end(), [&](const Item &item) {
        m_offset = item.offset;
        m_end = item.end;
        return JournalItems::apply(*this, direction) && !m_failed;
    });
}
