#ifndef SCENENODES_H
#define SCENENODES_H

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QVector>

class NodePlaceItem;
class VxNode;
class VxScene;
struct NodePlace;

/// The scene's hierarchy: the ordered root nodes, and all adding, removing and moving of nodes,
/// with the scene's signals and the recording for undo.
///
/// Nodes keep their own lists of children; the list of all nodes in hierarchy order is built on
/// demand and dropped by the next change, so that loading many nodes stays linear.
class SceneNodes
{
public:
    explicit SceneNodes(VxScene *scene)
        : m_scene(scene)
    {
    }
    /// For the scene's destructor: sends no signal and does not update the selection.
    void destroyAll();

    const QVector<VxNode *> &roots() const { return m_roots; }
    const QVector<VxNode *> &all() const;
    int count() const { return m_count; }
    /// The node with an identifier, or null.
    VxNode *findById(quint64 id) const { return m_byId.value(id); }
    /// New identifiers start at 1 again, for a scene without nodes and history.
    void restartIds() { m_lastId = 0; }
    /// The index of a node in a list of siblings that contains it, starting at its last index.
    static int indexIn(const QVector<VxNode *> &siblings, const VxNode *node);

    /// Recorded: add a node from outside, remove it to the history or destroy it, move it (index as
    /// in VxNode::setNodeParent()).
    void add(VxNode *node, VxNode *parent);
    void remove(VxNode *node);
    void move(VxNode *node, VxNode *parent, int index);
    /// Removes nodes, none of which is below another, from the scene, not recorded. Returns the
    /// removed nodes that still exist; they are the caller's.
    QVector<VxNode *> take(const QVector<VxNode *> &tops);

    NodePlace placeOf(const VxNode *node) const;
    /// Moves a node to another place, not recorded. A destroyed parent counts as the top level.
    void put(VxNode *node, const NodePlace &place);

private:
    Q_DISABLE_COPY(SceneNodes)
    QVector<VxNode *> &siblingsBelow(VxNode *parent);
    void attach(VxNode *node, VxNode *parent, int index);
    void detach(VxNode *node);
    void insert(VxNode *node, VxNode *parent, int index);
    void relocate(VxNode *node, VxNode *parent, int index);
    /// Keeps the node's identifier where it is free, else gives the node a new one.
    void enterId(VxNode *node);
    void reportOrder(const QPointer<VxNode> &node);
    void announce(const QVector<VxNode *> &tops);
    /// Records the node's present place; null when nothing is recorded.
    NodePlaceItem *recordPlace(VxNode *node);
    /// Removes the tops with all nodes below them. Returns the tops without an owner, which is a
    /// parent or, where recorded, the history.
    QVector<VxNode *> removeSubtrees(const QVector<VxNode *> &tops, bool recorded);

    VxScene *m_scene;
    QVector<VxNode *> m_roots;
    mutable QVector<VxNode *> m_all;
    mutable bool m_allValid = true;
    int m_count = 0;
    QHash<quint64, VxNode *> m_byId;
    quint64 m_lastId = 0; // the highest identifier so far
    /// The item recorded last and its node, only for comparison with the open hold's item.
    NodePlaceItem *m_lastItem = nullptr;
    const VxNode *m_lastNode = nullptr;
};

#endif
