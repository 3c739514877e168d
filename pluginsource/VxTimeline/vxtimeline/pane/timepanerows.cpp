// The dope sheet's rows: the nodes with rows, and rebuilding.

#include <QtCore/QItemSelectionModel>
#include <algorithm>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/vxdopesheetfiltermodel.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepanekeyselection.h"
#include "vxtimeline/pane/vxtimepane_p.h"

namespace {

// A name column narrower than this is not saved; pixels.
constexpr int LeastSavedWidth = 25;

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

// Views do not delete their former selection models, nor does a header delete its own when it is
// given the view's.
void VxTimePane::Private::showModel(QAbstractItemModel *model) const
{
    dopeSheetView->setModel(model);
    header->setModel(model);
    const QVector<const QItemSelectionModel *> inUse = {dopeSheetView->selectionModel(),
                                                        header->selectionModel()};
    for (const QItemSelectionModel *selection :
         dopeSheetView->findChildren<QItemSelectionModel *>()) {
        if (!inUse.contains(selection))
            delete selection;
    }
}

void VxTimePane::initModel()
{
    if (d->dopeSheetModel)
        return;
    d->dopeSheetModel =
        new VxDopeSheetModel(int(getFilteredPropertyTypes()), getFilteredKeyCreationScope(), this);
    d->keySelection->setModel(d->dopeSheetModel);
    d->filterModel->setSourceModel(d->dopeSheetModel);
    d->showModel(d->filterModel);
    connect(d->dopeSheetView->selectionModel(), &QItemSelectionModel::selectionChanged,
            d->dopeSheetView, &VxDopeSheetView::handleSelectionChanged);
    connect(d->dopeSheetModel, &VxDopeSheetModel::dataChanged, d->dopeSheetView,
            &VxDopeSheetView::doUpdate);
    connect(d->dopeSheetModel, &VxDopeSheetModel::namesChanged, this, [this] {
        d->filterAnew();
        d->followKeySource();
    });
    d->followKeySource();
    followSceneChanges();
    d->layoutDopeSheet();
    d->followNameColumn();
    updateSliders();
}

void VxTimePane::followSceneChanges()
{
    VxDopeSheetModel *model = d->dopeSheetModel;
    connect(vxScene, &VxScene::nodeOrderChanged, model, &VxDopeSheetModel::followOrder);
    connect(vxScene, &VxScene::nodePropertiesChanged, model, &VxDopeSheetModel::propertiesChanged);
    connect(vxScene, &VxScene::nodeParentChanged, model,
            [this](VxNode *, VxNode *, VxNode *newParent) { d->placeRowsAbove(newParent); });
    // A node that becomes hidden keeps its row; a node without a row gets one when it is shown.
    connect(vxScene, &VxScene::nodeVisibleChanged, model, [this](VxNode *node, bool visible) {
        if (!visible || d->sceneLoadDepth > 0 || d->dopeSheetModel->findItem(node))
            return;
        addDopesheetNode(node, false);
        d->dopeSheetModel->followOrder(node);
    });
}

// Only such rows may have been appended as ancestors of another row.
void VxTimePane::Private::placeRowsAbove(VxNode *node) const
{
    for (; node && !belongsByItself(node); node = node->getNodeParent())
        dopeSheetModel->followOrder(node);
}

void VxTimePane::uninitModel()
{
    if (!d->dopeSheetModel)
        return;
    if (d->nameColumnWidth() > LeastSavedWidth)
        d->savedNameColumnWidth = d->nameColumnWidth();
    const bool hadSelectedKeys = hasSelectedKeys();
    d->showModel(nullptr);
    d->filterModel->setSourceModel(nullptr);
    delete d->dopeSheetModel;
    d->dopeSheetModel = nullptr;
    if (hadSelectedKeys)
        handleKeySelectionLost();
}

// The key selection is lost with the rows; the key graph and the controls follow.
void VxTimePane::handleKeySelectionLost()
{
    VxKeyMessage message;
    message.clearSelection = true;
    d->keyCommunication->send(message);
    handleDopesheetKeySelectionChanged();
}

void VxTimePane::fillDopesheet()
{
    const bool isEmpty = !d->dopeSheetView->model();
    initModel();
    if (!isEmpty)
        return;
    addDopesheetNodes(vxScene->getNodes());
}

void VxTimePane::refreshDopesheet()
{
    if (!d->dopeSheetModel)
        return;
    d->dopeSheetView->renewModel([this] {
        const QVector<VxNode *> nodes = d->dopeSheetModel->getTopLevelNodes();
        uninitModel();
        initModel();
        // These had rows before, so they are not queued while a scene is loading.
        d->dopeSheetModel->resetDuring([this, &nodes] {
            for (VxNode *node : nodes) {
                if (belongsInSheet(node))
                    d->dopeSheetModel->addNode(node, true);
            }
        });
        d->filterAnew();
    });
}

// A matching row makes filtered out ancestors visible, which the filter model does only on request.
// The model's signal triggers one request for all rows that are added, removed or renamed singly.
void VxTimePane::Private::filterAnew() const
{
    if (!filterModel->filterRegExp().isEmpty())
        filterModel->refilter();
}

void VxTimePane::addDopesheetNode(VxNode *node)
{
    addDopesheetNode(node, false);
}

void VxTimePane::addDopesheetNode(VxNode *node, bool addChildren)
{
    // Another receiver of the signal may have removed the node.
    if (!node || !node->getScene() || !d->dopeSheetModel)
        return;
    if (d->sceneLoadDepth > 0)
        d->queuedNodes.append(node);
    else if (belongsInSheet(node))
        d->addRows(node, addChildren);
}

void VxTimePane::Private::addRows(VxNode *node, bool addChildren) const
{
    VxNode *above = node->getNodeParent();
    const bool isAboveNew = above && !dopeSheetModel->findItem(above);
    dopeSheetModel->addNode(node, addChildren);
    if (isAboveNew)
        placeRowsAbove(above);
}

void VxTimePane::removeDopesheetNode(VxNode *node)
{
    if (!node)
        return;
    const auto leaves = [node](const VxNode *queued) {
        return queued == node || node->isAncestorOf(queued);
    };
    d->queuedNodes.erase(std::remove_if(d->queuedNodes.begin(), d->queuedNodes.end(), leaves),
                         d->queuedNodes.end());
    if (d->dopeSheetModel)
        d->dopeSheetModel->removeNode(node);
}

void VxTimePane::handleSceneLoadStarting()
{
    ++d->sceneLoadDepth;
}

void VxTimePane::handleSceneLoaded()
{
    if (d->sceneLoadDepth > 0)
        --d->sceneLoadDepth;
    if (d->sceneLoadDepth > 0)
        return;
    addDopesheetNodes(std::exchange(d->queuedNodes, {}));
}

void VxTimePane::addDopesheetNodes(const QVector<VxNode *> &nodes)
{
    if (!d->dopeSheetModel || nodes.isEmpty())
        return;
    d->dopeSheetView->keepRowsDuring([this, &nodes] {
        d->dopeSheetModel->resetDuring([this, &nodes] {
            for (VxNode *node : nodes)
                addDopesheetNode(node, false);
        });
        d->filterAnew();
    });
}

void VxTimePane::handleSceneClearStarting()
{
    d->queuedNodes.clear();
    if (!d->dopeSheetModel)
        return;
    uninitModel();
    initModel();
}

void VxTimePane::moveRootNodeToTop()
{
    if (d->dopeSheetModel)
        d->dopeSheetModel->moveRootRowToTop(topmostAncestor(vxScene->getPrimarySelection()));
}

void VxTimePane::moveRootNodeUp()
{
    if (d->dopeSheetModel)
        d->dopeSheetModel->moveRootRowUp(topmostAncestor(vxScene->getPrimarySelection()));
}

void VxTimePane::moveRootNodeDown()
{
    if (d->dopeSheetModel)
        d->dopeSheetModel->moveRootRowDown(topmostAncestor(vxScene->getPrimarySelection()));
}

void VxTimePane::moveRootNodeToBottom()
{
    if (d->dopeSheetModel)
        d->dopeSheetModel->moveRootRowToBottom(topmostAncestor(vxScene->getPrimarySelection()));
}

void VxTimePane::expandAll()
{
    d->dopeSheetView->expandAll();
}

void VxTimePane::collapseAll()
{
    if (d->dopeSheetModel)
        d->dopeSheetModel->endManyChanges();
    d->dopeSheetView->collapseAll();
}

bool VxTimePane::hasDopeSheetItemContext() const
{
    return d->dopeSheetView->hasContextItem();
}

bool VxTimePane::hasDopeSheetItemSelection() const
{
    return d->dopeSheetView->hasItemSelection();
}

void VxTimePane::setMonitorParametersPane(bool yesNo)
{
    if (yesNo == d->dopeSheetView->getMonitorParametersPane())
        return;
    d->dopeSheetView->setMonitorParametersPane(yesNo);
    d->keyGraph->setMonitorParametersPane(yesNo);
    Q_EMIT monitorParametersPaneChanged(yesNo);
}

bool VxTimePane::getMonitorParametersPane() const
{
    return d->dopeSheetView->getMonitorParametersPane();
}

void VxTimePane::handleDopesheetFilterChanged(QString filter)
{
    d->dopeSheetView->applyFilterText(filter);
}

void VxTimePane::handleDopesheetFilterCleared()
{
    d->dopeSheetView->applyFilterText(QString());
}

void VxTimePane::setFilterText(QString text)
{
    Q_UNUSED(text)
}

QString VxTimePane::getFilterText() const
{
    return QString();
}

int VxTimePane::getNumFilteredMatches() const
{
    return -1;
}

VxDopeSheetItem *VxTimePane::searchDopesheetNext()
{
    return nullptr;
}

VxDopeSheetItem *VxTimePane::searchDopesheetPrevious()
{
    return nullptr;
}
