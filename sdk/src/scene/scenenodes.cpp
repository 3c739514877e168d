#include "scene/scenenodes.h"

#include "scene/deferreddeletion.h"
#include "scene/sceneundo.h"
#include "scene/vxnode_p.h"
#include "scene/vxscene_p.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <vxcore/vxundostack.h>

namespace {

using GuardedNodes = QVector<QPointer<VxNode>>;

/// For iterating while signals are sent, whose receivers may destroy nodes.
GuardedNodes guarded(const QVector<VxNode *> &nodes)
{
    return GuardedNodes(nodes.begin(), nodes.end());
}

QVector<VxNode *> nodesBelow(const QVector<VxNode *> &tops)
{
    QVector<VxNode *> nodes;
    for (VxNode *top : tops)
        VxNode::Private::collectNodes(top, nodes);
    return nodes;
}

} // namespace

void SceneNodes::destroyAll()
{
    for (VxNode *node : all()) {
        VxNode::Private::of(node)->scene = nullptr;
        VxNode::Private::of(node)->selectionIndex = -1;
    }
    const QVector<VxNode *> roots = m_roots;
    m_roots.clear();
    m_all.clear();
    m_byId.clear();
    m_count = 0;
    qDeleteAll(roots);
}

const QVector<VxNode *> &SceneNodes::all() const
{
    if (!m_allValid) {
        m_all = nodesBelow(m_roots);
        m_allValid = true;
    }
    return m_all;
}

int SceneNodes::indexIn(const QVector<VxNode *> &siblings, const VxNode *node)
{
    VxNode *found = const_cast<VxNode *>(node);
    int &hint = VxNode::Private::of(found)->siblingHint;
    if (siblings.value(hint) != node)
        hint = siblings.indexOf(found);
    return hint;
}

void SceneNodes::add(VxNode *node, VxNode *parent)
{
    if (NodePlaceItem *item = recordPlace(node)) {
        item->setOwning(false);
        item->setAdded(nodesBelow({node}));
    }
    insert(node, parent, -1);
}

void SceneNodes::remove(VxNode *node)
{
    const DeferredDeletion hold;
    DeferredDeletion::discardAll(removeSubtrees({node}, true));
}

void SceneNodes::move(VxNode *node, VxNode *parent, int index)
{
    recordPlace(node);
    relocate(node, parent, index);
}

QVector<VxNode *> SceneNodes::take(const QVector<VxNode *> &tops)
{
    return removeSubtrees(tops, false);
}

NodePlace SceneNodes::placeOf(const VxNode *node) const
{
    NodePlace place;
    place.inScene = node->getScene() == m_scene;
    if (place.inScene) {
        place.parent = node->getNodeParent();
        place.atTop = !place.parent;
        place.index = node->getSiblingIndex();
    }
    return place;
}

void SceneNodes::put(VxNode *node, const NodePlace &place)
{
    const bool isIn = node->getScene() == m_scene;
    VxNode *parent = place.parent && place.parent->getScene() == m_scene ? place.parent : nullptr;
    const int index = !parent && !place.atTop ? -1 : place.index;
    if (!place.inScene && isIn)
        take({node});
    else if (place.inScene && isIn)
        relocate(node, parent, index);
    else if (place.inScene && !node->getScene() && !node->getNodeParent())
        insert(node, parent, index);
}

QVector<VxNode *> &SceneNodes::siblingsBelow(VxNode *parent)
{
    return parent ? VxNode::Private::of(parent)->children : m_roots;
}

void SceneNodes::attach(VxNode *node, VxNode *parent, int index)
{
    QVector<VxNode *> &siblings = siblingsBelow(parent);
    VxNode::Private *record = VxNode::Private::of(node);
    record->parent = parent;
    record->siblingHint = index < 0 || index > siblings.size() ? siblings.size() : index;
    siblings.insert(record->siblingHint, node);
    record->updateDepth();
    m_allValid = false;
}

void SceneNodes::detach(VxNode *node)
{
    VxNode::Private *record = VxNode::Private::of(node);
    QVector<VxNode *> &siblings = siblingsBelow(record->parent);
    siblings.removeAt(indexIn(siblings, node));
    record->parent = nullptr;
    record->updateDepth();
    m_allValid = false;
}

void SceneNodes::insert(VxNode *node, VxNode *parent, int index)
{
    const DeferredDeletion hold;
    attach(node, parent, index);
    const QVector<VxNode *> nodes = nodesBelow({node});
    m_count += nodes.size();
    for (VxNode *added : nodes) {
        VxNode::Private::of(added)->scene = m_scene;
        enterId(added);
        VxNode::Private::of(added)->noteInsertionOfAll();
    }
    VxScene::Private::of(m_scene)->touchView();
    const GuardedNodes announced = guarded(nodes);
    for (VxNode *added : announced) {
        if (added && added->getScene() == m_scene)
            Q_EMIT m_scene->nodeAdded(added);
    }
    reportOrder(announced.first());
}

void SceneNodes::enterId(VxNode *node)
{
    quint64 &id = VxNode::Private::of(node)->id;
    const bool isFree = id > 0 && id <= VxNode::MaxId && !m_byId.contains(id);
    while (!isFree && (id == 0 || id > VxNode::MaxId || m_byId.contains(id)))
        id = m_lastId = m_lastId < VxNode::MaxId ? m_lastId + 1 : 1;
    m_lastId = std::max(m_lastId, id);
    m_byId.insert(id, node);
}

/** nodeAdded() implies that a node is the last of its siblings; another index is reported. */
void SceneNodes::reportOrder(const QPointer<VxNode> &node)
{
    if (node && node->getScene() == m_scene && siblingsBelow(node->getNodeParent()).last() != node)
        Q_EMIT m_scene->nodeOrderChanged(node);
}

void SceneNodes::relocate(VxNode *node, VxNode *parent, int index)
{
    const DeferredDeletion hold;
    VxNode *oldParent = node->getNodeParent();
    const int oldIndex = node->getSiblingIndex();
    detach(node);
    attach(node, parent, index);
    VxScene::Private::of(m_scene)->touchView();
    if (oldParent == parent) {
        if (node->getSiblingIndex() != oldIndex)
            Q_EMIT m_scene->nodeOrderChanged(node);
        return;
    }
    const QPointer<VxNode> guard(node);
    Q_EMIT node->parentChanged(node, oldParent, parent);
    if (guard)
        Q_EMIT m_scene->nodeParentChanged(node, oldParent, parent);
    reportOrder(guard);
}

void SceneNodes::announce(const QVector<VxNode *> &tops)
{
    const GuardedNodes announced = guarded(tops);
    for (VxNode *top : announced) {
        if (!top)
            continue;
        VxNode::Private::of(top)->leaving = true;
        Q_EMIT m_scene->aboutToRemoveNode(top);
    }
    QVector<VxNode *> present;
    for (VxNode *top : announced) {
        if (top && top->getScene() == m_scene)
            present.append(top);
    }
    const GuardedNodes leaving = guarded(nodesBelow(present));
    VxScene::Private::of(m_scene)->selection.deselect(nodesBelow(present));
    for (VxNode *node : leaving) {
        if (node)
            VxNode::Private::of(node)->announceRemovalOfAll();
    }
}

QVector<VxNode *> SceneNodes::removeSubtrees(const QVector<VxNode *> &tops, bool recorded)
{
    const DeferredDeletion hold;
    const GuardedNodes targets = guarded(tops);
    announce(tops);
    GuardedNodes taken;
    QVector<const VxNode *> owned;
    // Backwards, because removing from the end of a long list is cheap.
    for (int i = targets.size() - 1; i >= 0; --i) {
        VxNode *top = targets.at(i);
        if (!top || top->getScene() != m_scene)
            continue;
        VxNode::Private::of(top)->leaving = false;
        // The announcement may have begun or ended a hold.
        if (NodePlaceItem *item = recorded ? recordPlace(top) : nullptr) {
            item->setOwning(true);
            owned.append(top);
        }
        detach(top);
        const QVector<VxNode *> nodes = nodesBelow({top});
        m_count -= nodes.size();
        for (VxNode *node : nodes) {
            VxNode::Private::of(node)->scene = nullptr;
            m_byId.remove(node->getId());
        }
        taken.append(top);
    }
    std::reverse(taken.begin(), taken.end());
    VxScene::Private::of(m_scene)->touchView();
    QVector<VxNode *> alive;
    for (VxNode *top : qAsConst(taken)) {
        if (top)
            Q_EMIT m_scene->nodeRemoved(top);
    }
    for (VxNode *top : qAsConst(taken)) {
        if (top && !top->getScene() && !top->getNodeParent() && !owned.contains(top))
            alive.append(top);
    }
    return alive;
}

NodePlaceItem *SceneNodes::recordPlace(VxNode *node)
{
    VxUndoStack *stack = VxUndoStack::current();
    if (!vxMustRecord(stack, static_cast<const QObject *>(m_scene), VxUndoNodePlace))
        return nullptr;
    const bool sameHold = m_lastItem && stack->findItem(m_lastNode, VxUndoNodePlace) == m_lastItem;
    // The item of a destroyed node stays, and the next node may get its address.
    if (sameHold && m_lastNode == node && m_lastItem->isAlive())
        return m_lastItem;
    if (sameHold)
        m_lastItem->setFollowed();
    m_lastItem = new NodePlaceItem(m_scene, node, placeOf(node));
    m_lastNode = node;
    stack->record(m_lastItem);
    return m_lastItem;
}
