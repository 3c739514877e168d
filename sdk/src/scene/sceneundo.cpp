#include "scene/sceneundo.h"

#include "scene/deferreddeletion.h"
#include "scene/vxnode_p.h"
#include "scene/vxscene_p.h"
#include <vxcore/vxfloatproperty.h>

NodePlaceItem::NodePlaceItem(VxScene *scene, VxNode *node, const NodePlace &place)
    : VxUndoItem(node, VxUndoNodePlace)
    , m_scene(scene)
    , m_node(node)
    , m_place(place)
{
}

NodePlaceItem::~NodePlaceItem()
{
    if (m_owning && m_node && !m_node->getScene() && !m_node->getNodeParent())
        DeferredDeletion::discard(m_node);
}

void NodePlaceItem::swap()
{
    if (!m_scene || !m_node)
        return;
    SceneNodes &nodes = VxScene::Private::of(m_scene)->nodes;
    const NodePlace present = nodes.placeOf(m_node);
    nodes.put(m_node, m_place);
    m_place = present;
    m_owning = m_node && !m_node->getScene();
}

bool NodePlaceItem::finish()
{
    if (!m_scene || !m_node)
        return false;
    return m_followed || !(VxScene::Private::of(m_scene)->nodes.placeOf(m_node) == m_place);
}

qint64 NodePlaceItem::memoryUsed() const
{
    qint64 bytes = qint64(sizeof(*this));
    if (!m_owning || !m_node)
        return bytes;
    QVector<VxNode *> nodes;
    VxNode::Private::collectNodes(m_node, nodes);
    for (const VxNode *node : qAsConst(nodes)) {
        bytes += qint64(sizeof(VxNode) + sizeof(VxNode::Private));
        for (const VxProperty *property : node->getMadeProperties()) {
            bytes += qint64(sizeof(VxFloatProperty));
            if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
                bytes += number->getKeyMemory();
        }
    }
    return bytes;
}
