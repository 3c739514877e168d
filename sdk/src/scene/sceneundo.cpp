#include "scene/sceneundo.h"

#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"
#include "scene/elementundo.h"
#include "scene/journalitems.h"
#include "scene/vxnode_p.h"
#include "scene/vxscene_p.h"
#include "undo/journalvalues.h"

#include <vxcore/vxjournalwriter.h>

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
    const NodePlace former = present();
    VxScene::Private::of(m_scene)->nodes.put(m_node, m_place);
    m_place = former;
    m_owning = m_node && !m_node->getScene();
    m_followedPlace.reset();
    m_added.clear();
}

void NodePlaceItem::setFollowed()
{
    m_followed = true;
    if (m_scene && m_node)
        m_followedPlace = present();
}

void NodePlaceItem::setAdded(const QVector<VxNode *> &nodes)
{
    m_added = QVector<QPointer<VxNode>>(nodes.begin(), nodes.end());
}

NodePlace NodePlaceItem::present() const
{
    return VxScene::Private::of(m_scene)->nodes.placeOf(m_node);
}

/** The places of several nodes depend on each other: they are written as they were between the
 *  changes, which is not known any more once the entry was undone. */
bool NodePlaceItem::write(VxJournalWriter &writer) const
{
    if (!m_scene || !m_node || (m_followed && !m_followedPlace))
        return false;
    const NodePlace after = m_followed ? *m_followedPlace : present();
    if (!m_place.inScene && !after.inScene)
        return true;
    writer.number(JournalItem::NodePlace);
    writer.number(m_node->getId());
    for (const NodePlace &place : {m_place, after}) {
        if (place.inScene && !place.atTop && !place.parent)
            return false; // the parent was destroyed
        writer.number(quint8(place.inScene));
        writer.number(place.parent ? place.parent->getId() : quint64(0));
        writer.number(qint32(place.index));
    }
    if (m_place.inScene == after.inScene)
        return true;
    // A removal can be applied without what was removed, but not reverted.
    if (m_place.inScene)
        writeRemoved(writer);
    return m_place.inScene || writeAdded(writer);
}

/** Not where others refer to removed properties: nodes that are made anew have no such references.
 */
void NodePlaceItem::writeRemoved(VxJournalWriter &writer) const
{
    QVector<VxNode *> nodes;
    VxNode::Private::collectNodes(m_node, nodes);
    for (VxNode *node : qAsConst(nodes)) {
        for (VxProperty *property : node->getMadeProperties()) {
            for (const VxPropertyDependency *reference :
                 qAsConst(VxProperty::Private::of(property)->dependents)) {
                if (vxIsInDocument(reference->dependent()->q))
                    return;
            }
        }
    }
    writer.contents(nodes);
}

/** Nodes that were moved below since then have items of their own. */
bool NodePlaceItem::writeAdded(VxJournalWriter &writer) const
{
    QVector<VxNode *> nodes;
    for (VxNode *node : m_added) {
        if (!node || (node != m_node && !m_node->isAncestorOf(node)))
            return false;
        nodes.append(node);
    }
    return !nodes.isEmpty() && writer.contents(nodes);
}

bool NodePlaceItem::finish()
{
    if (!m_scene || !m_node)
        return false;
    return m_followed || !(present() == m_place);
}

qint64 NodePlaceItem::memoryUsed() const
{
    qint64 bytes = qint64(sizeof(*this));
    if (!m_owning || !m_node)
        return bytes;
    QVector<VxNode *> nodes;
    VxNode::Private::collectNodes(m_node, nodes);
    for (VxNode *node : qAsConst(nodes))
        bytes += qint64(sizeof(VxNode::Private)) + elementMemory(node);
    return bytes;
}
