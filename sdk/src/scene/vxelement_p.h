#ifndef VXELEMENT_P_H
#define VXELEMENT_P_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxelement.h>
#include <vxcore/vxpropertygrouptree.h>

class VxNode;
class VxScene;

/// The kinds of undo items that elements, nodes and the scene make.
enum VxSceneUndoKind {
    VxUndoElementLabel = 1,
    VxUndoElementProperties,
    VxUndoNodePlace,
    VxUndoNodeObject,
    VxUndoObjectSubElements,
    VxUndoNodeVisible,
    VxUndoNodeSelectable,
    VxUndoNodeIk,
    VxUndoNodeRotationOrder,
    VxUndoNodeOrigin,
    VxUndoNodeEndPoint,
    VxUndoSceneTime,
    VxUndoSceneTimeStep,
    VxUndoScenePlayRange,
    VxUndoSceneAnimRange,
    VxUndoSceneViews
};

/// What every element keeps. The records of nodes and objects derive from it and hear through its
/// virtual functions when something they own is destroyed behind their back.
class VxElement::Private
{
public:
    virtual ~Private() = default;

    static Private *of(VxElement *element) { return element->d.get(); }
    static const Private *of(const VxElement *element) { return element->d.get(); }

    /// The scene that the element is in by way of its node, or null.
    VxScene *findScene() const;
    /// Forgets the group trees from here upwards.
    void invalidateGroups();
    /// The node that the element is, or belongs to; null outside of nodes.
    VxNode *findNode() const;
    /// Takes a property out of the list; it keeps living.
    void release(VxProperty *property);
    /// Takes a property out, or puts one that has no owner at a place in the list (one beyond the
    /// end: last), and tells of it.
    void take(VxProperty *property);
    void insert(VxProperty *property, int index);
    /// Tells the scene, if there is one, that the node's properties came or went.
    void tellPropertiesChanged() const;
    /// For a property that is destroyed while its element still has it.
    static void loseProperty(VxProperty *property);
    /// Sends aboutToBeRemoved(), once between two stays in a scene.
    void announceRemoval();
    /// The same for the element and all that it groups.
    void announceRemovalOfAll();
    /// The element and what it groups, each followed by its own.
    static void collect(VxElement *element, QVector<VxElement *> &list);

    /// The property at an index within the list, made now if it does not exist yet.
    VxProperty *propertyAt(int index);
    /// Makes the property of a list entry that is null and puts it there.
    virtual VxProperty *makeProperty(int) { return nullptr; }
    /// The list index of the property with a name that is not made yet; -1 for none.
    virtual int unmadeIndexOf(const QString &) const { return -1; }
    /// True for a property that the element cannot be without.
    virtual bool isBuiltIn(const VxProperty *) const { return false; }
    /// A property is being destroyed by someone else.
    virtual void propertyLost(VxProperty *) {}
    /// An element that belongs to this one is being destroyed by someone else.
    virtual void elementLost(VxElement *) {}
    /// Of an object: the place of one of its sub-elements (-1 for another), taking one out, which
    /// then belongs to nobody, and putting in one that nobody has; both tell of it.
    virtual int placeOfElement(const VxElement *) const { return -1; }
    virtual void takeElement(VxElement *) {}
    virtual void insertElement(VxElement *, int) {}

    VxElement *q = nullptr;
    QString name;
    QString label;
    QVector<VxProperty *> properties;    ///< null for one that is not made yet
    QHash<QString, VxProperty *> byName; ///< of those that are made
    std::unique_ptr<VxPropertyGroupTree> groups;
    VxElement *owner = nullptr;
    /// Set for nodes only; the others find it by their owners.
    VxScene *scene = nullptr;
    bool removalAnnounced = false;
};

#endif
