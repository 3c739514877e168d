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
    VxUndoNodePinned,
    VxUndoNodeRotationOrder,
    VxUndoNodeOrigin,
    VxUndoNodeEndPoint,
    VxUndoNodeRestPose,
    VxUndoSceneTime,
    VxUndoSceneTimeStep,
    VxUndoScenePlayRange,
    VxUndoSceneAnimRange,
    VxUndoSceneViews,
    VxUndoSceneMarkers,
    VxUndoSceneTimeDisplay
};

/// The record of every element. Those of nodes and objects derive from it; virtual functions notify
/// them when an owned object is destroyed from outside.
class VxElement::Private
{
public:
    virtual ~Private() = default;

    static Private *of(VxElement *element) { return element->d.get(); }
    static const Private *of(const VxElement *element) { return element->d.get(); }

    /// The scene of the element's node, or null.
    VxScene *findScene() const;
    /// Invalidates the group trees from here upwards.
    void invalidateGroups();
    /// The node that the element is, or belongs to; null outside of nodes.
    VxNode *findNode() const;
    /// The list index of a property; -1 for none. Searched from the end: undo removes the
    /// properties that were added last first.
    int indexOf(VxProperty *property) const { return properties.lastIndexOf(property); }
    /// Removes a property from the list without deleting it.
    void release(VxProperty *property);
    /// Removes a property, or inserts one without an owner at an index in the list (one beyond the
    /// end: last), and reports it.
    void take(VxProperty *property);
    void insert(VxProperty *property, int index);
    /// Reports to the scene, if any, that the node's properties were added or removed.
    void notifyPropertiesChanged() const;
    /// For a property that is destroyed while its element still has it.
    static void loseProperty(VxProperty *property);
    /// Sends aboutToBeRemoved(), once per removal from a scene.
    void announceRemoval();
    /// The same for the element and all its grouped elements.
    void announceRemovalOfAll();
    /// After an insertion: the next removal of all these is announced again.
    void noteInsertionOfAll();
    /// The element and its grouped elements, each followed by its own.
    static void collect(VxElement *element, QVector<VxElement *> &list);

    /// The property at an index within the list, created if missing.
    VxProperty *propertyAt(int index);
    /// Creates the property of a null list entry and stores it there.
    virtual VxProperty *makeProperty(int) { return nullptr; }
    /// The list index of a not yet created property by name; -1 for none.
    virtual int unmadeIndexOf(const QString &) const { return -1; }
    /// True for a property that cannot be removed from the element.
    virtual bool isBuiltIn(const VxProperty *) const { return false; }
    /// A property is being destroyed from outside.
    virtual void propertyLost(VxProperty *) {}
    /// An element that belongs to this one is being destroyed from outside.
    virtual void elementLost(VxElement *) {}
    /// Of an object: the index of one of its sub-elements (-1 for another), removing one, which
    /// then has no owner, and inserting one without an owner; both report it.
    virtual int placeOfElement(const VxElement *) const { return -1; }
    virtual void detachElement(VxElement *) {}
    virtual void insertElement(VxElement *, int) {}

    VxElement *q = nullptr;
    QString name;
    QString label;
    QVector<VxProperty *> properties;    ///< null for one not yet created
    QHash<QString, VxProperty *> byName; ///< of the created ones
    std::unique_ptr<VxPropertyGroupTree> groups;
    VxElement *owner = nullptr;
    /// Set for nodes only; the others find it through their owners.
    VxScene *scene = nullptr;
    bool removalAnnounced = false;
};

#endif
