#ifndef SCENE_SCENEUNDO_H
#define SCENE_SCENEUNDO_H

#include <QtCore/QPointer>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundoitem.h>

/// Where a node stands: out of the scene, at the top level, or below a parent.
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

/// The undo item of a node that came, went or moved: exchanges the place it had with the place it
/// has. One kind of item serves all three, and owns the node while it keeps it out of the scene.
///
/// Places count siblings, so such items only fit together when they are swapped in the exact order
/// of the changes; that is why a later change of the same node makes an item of its own.
class NodePlaceItem : public VxUndoItem
{
public:
    NodePlaceItem(VxScene *scene, VxNode *node, const NodePlace &place);
    ~NodePlaceItem() override;

    void swap() override;
    /// A node back at its place leaves nothing to undo, unless other nodes moved since.
    bool finish() override;
    qint64 memoryUsed() const override;

    bool isAlive() const { return m_node; }
    /// Another node's item follows in the same hold.
    void setFollowed() { m_followed = true; }
    void setOwning(bool owning) { m_owning = owning; }

private:
    QPointer<VxScene> m_scene;
    QPointer<VxNode> m_node;
    NodePlace m_place;
    bool m_owning = false;
    bool m_followed = false;
};

#endif
