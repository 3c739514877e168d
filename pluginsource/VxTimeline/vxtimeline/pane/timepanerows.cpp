#include "vxtimeline/pane/timepanerows.h"

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepanekeys.h"
#include "vxtimeline/pane/timepanekeyselection.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QItemSelectionModel>
#include <algorithm>
#include <utility>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

bool belongsByItself(const VxNode *node)
{
    return node->isVisible() && (!node->isIkNode() || node->isSelectable());
}

// A helper node that is not selectable is left out, unless a selectable one is below it.
bool belongsInSheet(const VxNode *node)
{
    QVector<const VxNode *> open{node};
    while (!open.isEmpty()) {
        const VxNode *next = open.takeLast();
        if (belongsByItself(next))
            return true;
        for (int i = 0; i < next->getNumNodeChildren(); ++i)
            open.append(next->getNodeChild(i));
    }
    return false;
}

VxNode *topmostAncestor(VxNode *node)
{
    while (node && node->getNodeParent())
        node = node->getNodeParent();
    return node;
}

} // namespace

TimePaneRows::TimePaneRows(VxTimePane *pane, TimePaneViews &views, TimePaneKeys &keys,
                           TimePaneKeySelection &keySelection)
    : m_pane(pane)
    , m_views(views)
    , m_keys(keys)
    , m_keySelection(keySelection)
{
}

void TimePaneRows::initModel()
{
    if (m_model)
        return;
    m_model = new VxDopeSheetModel(int(m_pane->getFilteredPropertyTypes()),
                                   m_pane->getFilteredKeyCreationScope(), m_pane);
    m_keySelection.setModel(m_model);
    m_views.filterModel()->setSourceModel(m_model);
    m_views.setModel(m_views.filterModel());
    VxDopeSheetView *sheet = m_views.sheet();
    QObject::connect(sheet->selectionModel(), &QItemSelectionModel::selectionChanged, sheet,
                     &VxDopeSheetView::handleSelectionChanged);
    QObject::connect(m_model, &VxDopeSheetModel::dataChanged, sheet, &VxDopeSheetView::doUpdate);
    QObject::connect(m_model, &VxDopeSheetModel::namesChanged, m_pane, [this] {
        filterAnew();
        followKeySource();
    });
    followKeySource();
    followSceneChanges();
    m_views.layoutRows();
    m_views.followNameColumn();
    m_views.updateSliders();
}

void TimePaneRows::followSceneChanges()
{
    using Model = VxDopeSheetModel;
    QObject::connect(vxScene, &VxScene::nodeOrderChanged, m_model, &Model::followOrder);
    QObject::connect(vxScene, &VxScene::nodePropertiesChanged, m_model, &Model::propertiesChanged);
    QObject::connect(vxScene, &VxScene::nodeParentChanged, m_model,
                     [this](VxNode *, VxNode *, VxNode *parent) { placeRowsAbove(parent); });
    // A node that becomes hidden keeps its row; a node without a row gets one when it is shown.
    QObject::connect(vxScene, &VxScene::nodeVisibleChanged, m_model,
                     [this](VxNode *node, bool visible) {
                         if (!visible || m_sceneLoadDepth > 0 || m_model->findItem(node))
                             return;
                         addNode(node, false);
                         m_model->followOrder(node);
                     });
}

// Moves the rows of a node and of ancestors that are listed only for their descendants to their
// places; only such rows may have been appended as ancestors of another row.
void TimePaneRows::placeRowsAbove(VxNode *node) const
{
    for (; node && !belongsByItself(node); node = node->getNodeParent())
        m_model->followOrder(node);
}

// The key selection is lost with the rows; the key graph and the controls follow.
void TimePaneRows::uninitModel()
{
    if (!m_model)
        return;
    const bool hadSelectedKeys = m_model->hasSelectedKeys();
    m_views.setModel(nullptr);
    m_views.filterModel()->setSourceModel(nullptr);
    delete m_model;
    m_model = nullptr;
    if (!hadSelectedKeys)
        return;
    VxKeyMessage message;
    message.clearSelection = true;
    m_views.bus()->send(message);
    m_keys.updateFields();
}

void TimePaneRows::fill()
{
    const bool isEmpty = !m_views.sheet()->model();
    initModel();
    if (isEmpty)
        addNodes(vxScene->getNodes());
}

void TimePaneRows::refresh()
{
    if (!m_model)
        return;
    m_views.sheet()->renewModel([this] {
        const QVector<VxNode *> nodes = m_model->getTopLevelNodes();
        uninitModel();
        initModel();
        // These had rows before, so they are not queued while a scene is loading.
        m_model->resetDuring([this, &nodes] {
            for (VxNode *node : nodes) {
                if (belongsInSheet(node))
                    m_model->addNode(node, true);
            }
        });
        filterAnew();
    });
}

void TimePaneRows::clear()
{
    m_queuedNodes.clear();
    if (!m_model)
        return;
    uninitModel();
    initModel();
}

// Applies an active text filter to added rows: a matching row makes filtered out ancestors visible,
// which the filter model does only on request. The model's signal triggers one request for all rows
// that are added, removed or renamed singly.
void TimePaneRows::filterAnew() const
{
    VxDopeSheetFilterModel *filter = m_views.filterModel();
    if (!filter->filterRegExp().isEmpty())
        filter->refilter();
}

void TimePaneRows::addNode(VxNode *node, bool addChildren)
{
    // Another receiver of the signal may have removed the node.
    if (!node || !node->getScene() || !m_model)
        return;
    if (m_sceneLoadDepth > 0)
        m_queuedNodes.append(node);
    else if (belongsInSheet(node))
        addRows(node, addChildren);
}

// Adds a node's rows, and missing ancestor rows at their places in the scene.
void TimePaneRows::addRows(VxNode *node, bool addChildren) const
{
    VxNode *above = node->getNodeParent();
    const bool isAboveNew = above && !m_model->findItem(above);
    m_model->addNode(node, addChildren);
    if (isAboveNew)
        placeRowsAbove(above);
}

void TimePaneRows::addNodes(const QVector<VxNode *> &nodes)
{
    if (!m_model || nodes.isEmpty())
        return;
    m_views.sheet()->keepRowsDuring([this, &nodes] {
        m_model->resetDuring([this, &nodes] {
            for (VxNode *node : nodes)
                addNode(node, false);
        });
        filterAnew();
    });
}

void TimePaneRows::removeNode(VxNode *node)
{
    if (!node)
        return;
    const auto leaves = [node](const VxNode *queued) {
        return queued == node || node->isAncestorOf(queued);
    };
    m_queuedNodes.erase(std::remove_if(m_queuedNodes.begin(), m_queuedNodes.end(), leaves),
                        m_queuedNodes.end());
    if (m_model)
        m_model->removeNode(node);
}

void TimePaneRows::finishLoading()
{
    if (m_sceneLoadDepth > 0)
        --m_sceneLoadDepth;
    if (m_sceneLoadDepth == 0)
        addNodes(std::exchange(m_queuedNodes, {}));
}

void TimePaneRows::moveRoot(void (VxDopeSheetModel::*move)(VxNode *)) const
{
    if (m_model)
        (m_model->*move)(topmostAncestor(vxScene->getPrimarySelection()));
}

void TimePaneRows::collapseAll() const
{
    if (m_model)
        m_model->endManyChanges();
    m_views.sheet()->collapseAll();
}

void TimePaneRows::followKeySource() const
{
    VxDopeSheetItem *source = nullptr;
    if (m_model) {
        source = m_model->findItem(vxScene->getPrimarySelection());
        if (!source)
            source = m_model->getRootItem();
    }
    m_views.header()->setKeySource(source);
}
