#ifndef SCENE_SCENENODES_H
#define SCENE_SCENENODES_H

#include <QtCore/QPointer>
#include <QtCore/QVector>

class NodePlaceItem;
class VxNode;
class VxScene;
struct NodePlace;

/// The scene's hierarchy: the root nodes in their order, and every way a node comes, goes or moves,
/// with the scene's signals about it and the recording for undo.
///
/// Nodes keep their own lists of children; the list of all nodes in hierarchy order is made when it
/// is asked for and dropped by the next change, so that a load of many nodes costs no more than the
/// nodes.
class SceneNodes
{
public:
    explicit SceneNodes(VxScene *scene)
        : m_scene(scene)
    {
    }
    /// For the end of the scene: no signal of the scene is sent, and the selection is not told.
    void destroyAll();

    const QVector<VxNode *> &roots() const { return m_roots; }
    const QVector<VxNode *> &all() const;
    int count() const { return m_count; }
    /// The index of a node in a list of siblings that holds it, looked for first where it was last.
    static int indexIn(const QVector<VxNode *> &siblings, const VxNode *node);

    /// Recorded: a node from outside, a node to the history or to destruction, a node to another
    /// place (index as in VxNode::setNodeParent()).
    void add(VxNode *node, VxNode *parent);
    void remove(VxNode *node);
    void move(VxNode *node, VxNode *parent, int index);
    /// Takes nodes of which none lies below another out of the scene, not recorded. Returns those
    /// that are out now and still alive; they are the caller's.
    QVector<VxNode *> take(const QVector<VxNode *> &tops);

    NodePlace placeOf(const VxNode *node) const;
    /// Brings a node from the place it has to another, not recorded. A parent that is gone counts
    /// as the top level.
    void put(VxNode *node, const NodePlace &place);

private:
    Q_DISABLE_COPY(SceneNodes)
    QVector<VxNode *> &siblingsBelow(VxNode *parent);
    void attach(VxNode *node, VxNode *parent, int index);
    void detach(VxNode *node);
    void insert(VxNode *node, VxNode *parent, int index);
    void relocate(VxNode *node, VxNode *parent, int index);
    void reportOrder(const QPointer<VxNode> &node);
    void announce(const QVector<VxNode *> &tops);
    /// Records the place that a node has; null when nothing is recorded.
    NodePlaceItem *recordPlace(VxNode *node);
    QVector<VxNode *> takeOut(const QVector<VxNode *> &tops, bool recorded);

    VxScene *m_scene;
    QVector<VxNode *> m_roots;
    mutable QVector<VxNode *> m_all;
    mutable bool m_allValid = true;
    int m_count = 0;
    /// The item recorded last and its node, only to be compared with what the open hold has.
    NodePlaceItem *m_lastItem = nullptr;
    const VxNode *m_lastNode = nullptr;
};

#endif
