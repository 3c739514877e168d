#include "scenetree/sceneedits.h"

#include "widgets/studiotext.h"

#include <QSet>
#include <algorithm>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnodehelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// "Hide "hip"" or "Hide 3 Nodes": one is the pattern with a name, many that with a number, %n.
QString textFor(const QVector<VxNode *> &nodes, const char *one, const char *many)
{
    if (nodes.size() == 1)
        return QCoreApplication::translate("SceneEdits", one).arg(nodes.first()->getLabel());
    return QCoreApplication::translate("SceneEdits", many, nullptr, nodes.size());
}

QVector<VxNode *> childrenOf(const VxScene *scene, const VxNode *parent)
{
    if (!parent)
        return scene->getRootNodes();
    QVector<VxNode *> children;
    parent->getNodeChildren(children);
    return children;
}

/// Makes nodes children of a parent in their order, from an index on that is counted among its
/// other children.
void insertNodes(const QVector<VxNode *> &nodes, VxNode *parent, int first)
{
    // Present children of the parent move to the end first.
    for (VxNode *node : nodes) {
        if (node->getNodeParent() == parent)
            node->setNodeParent(parent);
    }
    for (int i = 0; i < nodes.size(); ++i)
        nodes.at(i)->setNodeParent(parent, first + i);
}

} // namespace

bool SceneEdits::rename(VxNode *node, const QString &label)
{
    const QString newLabel = label.trimmed();
    if (newLabel.isEmpty() || newLabel == node->getLabel())
        return false;
    const QString text = StudioText::tr("Rename \"%1\"").arg(node->getLabel());
    VxUndoStackHold hold;
    node->setLabel(newLabel);
    hold.accept(text);
    return true;
}

bool SceneEdits::remove(VxScene *scene, const QVector<VxNode *> &nodes)
{
    const QVector<VxNode *> tops = topmost(scene, nodes);
    if (tops.isEmpty())
        return false;
    const QString text = textFor(tops, QT_TRANSLATE_NOOP("SceneEdits", "Delete \"%1\""),
                                 QT_TRANSLATE_N_NOOP("SceneEdits", "Delete %n Nodes"));
    VxUndoStackHold hold;
    const VxChangeBlock block;
    // Backwards: removing from the end of many siblings is cheap.
    for (int i = tops.size() - 1; i >= 0; --i)
        scene->removeNode(tops.at(i));
    hold.accept(text);
    return true;
}

bool SceneEdits::setVisible(const QVector<VxNode *> &nodes, bool visible)
{
    QVector<VxNode *> changed;
    std::copy_if(nodes.cbegin(), nodes.cend(), std::back_inserter(changed),
                 [visible](const VxNode *node) { return node->isVisible() != visible; });
    if (changed.isEmpty())
        return false;
    VxUndoStackHold hold;
    for (VxNode *node : qAsConst(changed))
        node->setVisible(visible);
    hold.accept(visible ? textFor(changed, QT_TRANSLATE_NOOP("SceneEdits", "Show \"%1\""),
                                  QT_TRANSLATE_N_NOOP("SceneEdits", "Show %n Nodes"))
                        : textFor(changed, QT_TRANSLATE_NOOP("SceneEdits", "Hide \"%1\""),
                                  QT_TRANSLATE_N_NOOP("SceneEdits", "Hide %n Nodes")));
    return true;
}

bool SceneEdits::canMove(const QVector<VxNode *> &nodes, const VxNode *parent)
{
    return std::all_of(nodes.cbegin(), nodes.cend(),
                       [parent](const VxNode *node) { return node->canMoveBelow(parent); });
}

void SceneEdits::selectOnly(VxScene *scene, const QVector<VxNode *> &nodes)
{
    scene->selectNodes(scene->getSelectedNodes(), false);
    scene->selectNodes(nodes, true);
}

void SceneEdits::selectChildren(VxScene *scene)
{
    VxNode *primary = scene->getPrimarySelection();
    scene->selectNodes(trees(scene, scene->getSelectedNodes()), true);
    if (primary)
        scene->setPrimarySelection(primary);
}

bool SceneEdits::move(VxScene *scene, const QVector<VxNode *> &nodes, VxNode *parent, int index,
                      Kept kept, QVector<VxNode *> *displaced)
{
    const QVector<VxNode *> moved = topmost(scene, nodes);
    if (moved.isEmpty() || !canMove(moved, parent))
        return false;
    const bool isReorder = std::all_of(moved.cbegin(), moved.cend(), [parent](const VxNode *node) {
        return node->getNodeParent() == parent;
    });
    // The target order: the present children without the moved ones.
    const QVector<VxNode *> before = childrenOf(scene, parent);
    const int end = index < 0 ? before.size() : std::min(index, before.size());
    const QSet<VxNode *> moving(moved.cbegin(), moved.cend());
    const int first = int(std::count_if(before.cbegin(), before.cbegin() + end,
                                        [&](VxNode *node) { return !moving.contains(node); }));
    VxUndoStackHold hold;
    const QString text = isReorder
                             ? textFor(moved, QT_TRANSLATE_NOOP("SceneEdits", "Reorder \"%1\""),
                                       QT_TRANSLATE_N_NOOP("SceneEdits", "Reorder %n Nodes"))
                             : textFor(moved, QT_TRANSLATE_NOOP("SceneEdits", "Reparent \"%1\""),
                                       QT_TRANSLATE_N_NOOP("SceneEdits", "Reparent %n Nodes"));
    const VxChangeBlock block;
    for (VxNode *node : moved) {
        const bool stays =
            kept == Kept::Values ||
            VxNodeHelper::keepWorldTransform(node, node->getNodeParent(), parent, scene->getTime());
        if (!stays && displaced)
            displaced->append(node);
    }
    insertNodes(moved, parent, first);
    const bool changed = !isReorder || childrenOf(scene, parent) != before;
    if (changed)
        hold.accept(text);
    return changed;
}

QVector<VxNode *> SceneEdits::topmost(const VxScene *scene, const QVector<VxNode *> &nodes)
{
    const QSet<VxNode *> targets(nodes.cbegin(), nodes.cend());
    QSet<const VxNode *> covered; // in the list, or below a node that is
    QVector<VxNode *> tops;
    for (VxNode *node : scene->getNodes()) {
        const bool isBelow = covered.contains(node->getNodeParent());
        if (!isBelow && !targets.contains(node))
            continue;
        covered.insert(node);
        if (!isBelow)
            tops.append(node);
    }
    return tops;
}

QVector<VxNode *> SceneEdits::trees(const VxScene *scene, const QVector<VxNode *> &nodes)
{
    QVector<VxNode *> all;
    for (VxNode *top : topmost(scene, nodes)) {
        all.append(top);
        top->getNodeChildren(all, true);
    }
    return all;
}
