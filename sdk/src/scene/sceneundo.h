#ifndef SCENEUNDO_H
#define SCENEUNDO_H

#include <QtCore/QPointer>
#include <optional>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundoitem.h>

/// The place of a node: out of the scene, at the top level, or below a parent.
struct NodePlace
{
    bool inScene = false;
    bool atTop = true;
    QPointer<VxNode> parent;
    int index = 0;

    friend bool operator==(const NodePlace &a, const NodePlace &b)
    {
        if (!a.inScene || !b.inScene)
            return a.inScene == b.inScene;
        return a.atTop == b.atTop && a.parent == b.parent && a.index == b.index;
    }
};

/// The undo item of an added, removed or moved node: exchanges its former place with the present
/// one. One kind of item serves all three, and owns the node while it is out of the scene.
///
/// Places are sibling indexes, so such items must be swapped in the exact order of the changes;
/// that is why a later change of the same node makes another item.
class NodePlaceItem : public VxUndoItem
{
public:
    NodePlaceItem(VxScene *scene, VxNode *node, const NodePlace &place);
    ~NodePlaceItem() override;

    void swap() override;
    /// Drops the item of a node back at its place, unless other nodes moved since.
    bool finish() override;
    bool write(VxJournalWriter &writer) const override;
    qint64 memoryUsed() const override;

    bool isAlive() const { return m_node; }
    /// Another node's item follows in the same hold.
    void setFollowed();
    /// Call before the node is added: those that are added with it.
    void setAdded(const QVector<VxNode *> &nodes);
    void setOwning(bool owning) { m_owning = owning; }

private:
    QPointer<VxScene> m_scene;
    QPointer<VxNode> m_node;
    NodePlace present() const;
    bool writeAdded(VxJournalWriter &writer) const;
    void writeRemoved(VxJournalWriter &writer) const;

    NodePlace m_place;
    std::optional<NodePlace> m_followedPlace; // before the item that follows; none once swapped
    QVector<QPointer<VxNode>> m_added;
    bool m_owning = false;
    bool m_followed = false;
};

#endif
