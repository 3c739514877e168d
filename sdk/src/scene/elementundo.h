#ifndef SCENE_ELEMENTUNDO_H
#define SCENE_ELEMENTUNDO_H

#include <QtCore/QPointer>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxundoitem.h>

/// The undo item of a property that came to its element or left it: exchanges the place it had
/// among the element's properties with the place it has, and owns the property while it is out.
///
/// Places are counted, so such items of one element fit together only in the exact order of the
/// changes; a property that changes again after another one did gets a further item.
class ElementPropertyItem : public VxUndoItem
{
public:
    /// To be called before the change. index: the present place, -1 for a property that is out.
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

/// The undo item of a node's object: keeps the object that the node had, and owns it while no node
/// does.
class NodeObjectItem : public VxUndoItem
{
public:
    /// To be called before the change.
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

/// The undo item of a sub-element that came to an object: exchanges its place among the others with
/// none, and owns it while it is out.
class SubElementItem : public VxUndoItem
{
public:
    /// To be called before the change. index: the present place, -1 for an element that is out.
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

/// Records that a property is about to come or go; index as in ElementPropertyItem. Null when
/// nothing is recorded, because no hold is open or the element is in no scene.
ElementPropertyItem *recordPropertyPlace(VxElement *element, VxProperty *property, int index);
/// The open hold's item of a node's object, made when there is none; null as above.
NodeObjectItem *recordObject(VxNode *node);
/// Records that an element is about to come to an object, when something is recorded.
void recordNewSubElement(VxObject *object, VxElement *element);

#endif
