#ifndef ELEMENTUNDO_H
#define ELEMENTUNDO_H

#include <QtCore/QPointer>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxundoitem.h>

/// The undo item of a property added to or removed from its element: exchanges its former index
/// among the element's properties with the present one, and owns the property while it is removed.
///
/// Because of the indexes, such items of one element must be swapped in the exact order of the
/// changes; a property that changes again after another one did gets a further item.
class ElementPropertyItem : public VxUndoItem
{
public:
    /// Call before the change. index: the present index, -1 for a removed property.
    ElementPropertyItem(VxElement *element, VxProperty *property, int index);
    ~ElementPropertyItem() override;

    VxProperty *property() const { return m_property; }
    void setOwning(bool owning) { m_owning = owning; }
    /// Another property's item follows in the same hold.
    void setFollowed() { m_followed = true; }

    void swap() override;
    bool finish() override;
    qint64 memoryUsed() const override;

private:
    int place() const;

    QPointer<VxElement> m_element;
    QPointer<VxProperty> m_property;
    int m_index;
    bool m_owning = false;
    bool m_followed = false;
};

/// The undo item of a node's object: keeps the node's former object, and owns it while no node
/// does.
class NodeObjectItem : public VxUndoItem
{
public:
    /// Call before the change.
    explicit NodeObjectItem(VxNode *node);
    ~NodeObjectItem() override;

    /// The object from before the hold; may be null.
    VxObject *kept() const { return m_kept; }

    void swap() override;
    bool finish() override;
    qint64 memoryUsed() const override;

private:
    QPointer<VxNode> m_node;
    QPointer<VxObject> m_kept;
};

/// The undo item of a sub-element added to an object: exchanges its index among the others with
/// none, and owns it while it is removed.
class SubElementItem : public VxUndoItem
{
public:
    /// Call before the change. index: the present index, -1 for a removed element.
    SubElementItem(VxObject *object, VxElement *element, int index);
    ~SubElementItem() override;

    void swap() override;
    bool finish() override;
    qint64 memoryUsed() const override;

private:
    QPointer<VxObject> m_object;
    QPointer<VxElement> m_element;
    int m_index;
};

/// The memory of an element outside of a scene, with all that belongs to it.
qint64 elementMemory(VxElement *top);
/// Records a property about to be added or removed; index as in ElementPropertyItem. Null when
/// nothing is recorded, because no hold is open or the element is in no scene.
ElementPropertyItem *recordPropertyPlace(VxElement *element, VxProperty *property, int index);
/// The open hold's item of a node's object, created if missing; null as above.
NodeObjectItem *recordObject(VxNode *node);
/// Records an element about to be added to an object, if recording.
void recordNewSubElement(VxObject *object, VxElement *element);

#endif
