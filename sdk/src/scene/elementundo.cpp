#include "scene/elementundo.h"

#include "scene/deferreddeletion.h"
#include "scene/vxelement_p.h"
#include "scene/vxnode_p.h"
#include "undo/vxundovalueitem.h"

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxundostack.h>

namespace {

bool isRecording(VxElement *element)
{
    return VxElement::Private::of(element)->findScene() &&
           vxMustRecord(VxUndoStack::current(), static_cast<const VxElement *>(element), 0);
}

qint64 propertyMemory(const VxProperty *property)
{
    const auto *number = qobject_cast<const VxFloatProperty *>(property);
    return qint64(sizeof(VxFloatProperty)) + (number ? number->getKeyMemory() : 0);
}

} // namespace

qint64 elementMemory(VxElement *top)
{
    qint64 bytes = 0;
    QVector<VxElement *> elements;
    VxElement::Private::collect(top, elements);
    for (const VxElement *element : qAsConst(elements)) {
        bytes += qint64(sizeof(VxObject));
        for (const VxProperty *property : element->getMadeProperties())
            bytes += propertyMemory(property);
    }
    return bytes;
}

ElementPropertyItem::ElementPropertyItem(VxElement *element, VxProperty *property, int index)
    : VxUndoItem(element, VxUndoElementProperties)
    , m_element(element)
    , m_property(property)
    , m_index(index)
{
}

ElementPropertyItem::~ElementPropertyItem()
{
    if (m_owning && m_property && !m_property->getOwner())
        DeferredDeletion::discard(m_property);
}

int ElementPropertyItem::place() const
{
    return VxElement::Private::of(m_element)->indexOf(m_property);
}

void ElementPropertyItem::swap()
{
    if (!m_element || !m_property)
        return;
    const int present = place();
    VxElement::Private *record = VxElement::Private::of(m_element);
    if (present >= 0)
        record->take(m_property);
    if (m_index >= 0)
        record->insert(m_property, m_index);
    m_index = present;
    m_owning = !m_property->getOwner();
}

bool ElementPropertyItem::finish()
{
    return m_element && m_property && (m_followed || place() != m_index);
}

qint64 ElementPropertyItem::memoryUsed() const
{
    const bool keeps = m_owning && m_property && !m_property->getOwner();
    return qint64(sizeof(*this)) + (keeps ? propertyMemory(m_property) : 0);
}

NodeObjectItem::NodeObjectItem(VxNode *node)
    : VxUndoItem(node, VxUndoNodeObject)
    , m_node(node)
    , m_kept(node->getObject())
{
}

NodeObjectItem::~NodeObjectItem()
{
    if (m_kept && !m_kept->getOwnerElement())
        DeferredDeletion::discard(m_kept);
}

void NodeObjectItem::swap()
{
    if (m_node)
        m_kept = VxNode::Private::of(m_node)->exchangeObject(m_kept);
}

bool NodeObjectItem::finish()
{
    return m_node && m_node->getObject() != m_kept;
}

qint64 NodeObjectItem::memoryUsed() const
{
    const bool keeps = m_kept && !m_kept->getOwnerElement();
    return qint64(sizeof(*this)) + (keeps ? elementMemory(m_kept) : 0);
}

SubElementItem::SubElementItem(VxObject *object, VxElement *element, int index)
    : VxUndoItem(element, VxUndoObjectSubElements)
    , m_object(object)
    , m_element(element)
    , m_index(index)
{
}

SubElementItem::~SubElementItem()
{
    if (m_element && !m_element->getOwnerElement())
        DeferredDeletion::discard(m_element);
}

void SubElementItem::swap()
{
    if (!m_object || !m_element)
        return;
    VxElement::Private *record = VxElement::Private::of(m_object);
    const int present = record->placeOfElement(m_element);
    if (present >= 0)
        record->detachElement(m_element);
    if (m_index >= 0)
        record->insertElement(m_element, m_index);
    m_index = present;
}

bool SubElementItem::finish()
{
    return m_object && m_element &&
           VxElement::Private::of(m_object)->placeOfElement(m_element) != m_index;
}

qint64 SubElementItem::memoryUsed() const
{
    const bool keeps = m_element && !m_element->getOwnerElement();
    return qint64(sizeof(*this)) + (keeps ? elementMemory(m_element) : 0);
}

ElementPropertyItem *recordPropertyPlace(VxElement *element, VxProperty *property, int index)
{
    if (!isRecording(element))
        return nullptr;
    VxUndoStack *stack = VxUndoStack::current();
    auto *last =
        static_cast<ElementPropertyItem *>(stack->findItem(element, VxUndoElementProperties));
    if (last && last->property() == property)
        return last;
    if (last)
        last->setFollowed();
    auto *item = new ElementPropertyItem(element, property, index);
    stack->record(item);
    return item;
}

NodeObjectItem *recordObject(VxNode *node)
{
    if (!isRecording(node))
        return nullptr;
    VxUndoStack *stack = VxUndoStack::current();
    if (VxUndoItem *known = stack->findItem(node, VxUndoNodeObject))
        return static_cast<NodeObjectItem *>(known);
    auto *item = new NodeObjectItem(node);
    stack->record(item);
    return item;
}

void recordNewSubElement(VxObject *object, VxElement *element)
{
    if (isRecording(object))
        VxUndoStack::current()->record(new SubElementItem(object, element, -1));
}
