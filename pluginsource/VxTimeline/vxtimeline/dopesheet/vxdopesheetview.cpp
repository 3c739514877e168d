#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QSet>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

#include "vxtimeline/dopesheet/dopesheetfiltertext.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/time/timelinemetrics.h"

namespace {

constexpr int TimerInterval = 100; // milliseconds

} // namespace

class VxDopeSheetView::Private
{
public:
    VxKeyCommunication *bus = nullptr;
    QSortFilterProxyModel *filterModel = nullptr;
    Qt::KeyboardModifiers pressModifiers;
    int timeLineX = 0;
    QPersistentModelIndex contextIndex;
    QSet<VxProperty *> graphProperties;
    bool changingSelection = false;
    bool inSelectionChanged = false;
    bool monitorsParametersPane = false;

    const VxDopeSheetModel *sourceModel(const VxDopeSheetView *view) const
    {
        const QAbstractItemModel *model =
            filterModel ? filterModel->sourceModel() : view->QTreeView::model();
        return qobject_cast<const VxDopeSheetModel *>(model);
    }
};

VxDopeSheetView::VxDopeSheetView(QWidget *parent)
    : QTreeView(parent)
    , d(std::make_unique<Private>())
{
    setObjectName(QStringLiteral("DopeSheetView"));
    setMouseTracking(true);
    setAnimated(false);
    setItemDelegateForColumn(NameColumn, new VxTimelineDopeSheetNameColumnDelegate(this));
    setItemDelegateForColumn(KeysColumn, new VxTimelineDopeSheetKeysColumnDelegate(this));
    setIndentation(vxApp->getStyle()->metric(VxStyle::PM_VxTreeIndentation));
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    connect(vxScene, &VxScene::timeChanged, this, &VxDopeSheetView::timeChanged);
    connect(vxApp, &VxApp::starting, this, &VxDopeSheetView::handleAppStarting);
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &VxDopeSheetView::timerKick);
    timer->start(TimerInterval);
}

VxDopeSheetView::~VxDopeSheetView() = default;

void VxDopeSheetView::setKeyCommunication(VxKeyCommunication *bus)
{
    if (d->bus)
        disconnect(d->bus, &VxKeyCommunication::received, this, &VxDopeSheetView::handleKeyMessage);
    d->bus = bus;
    if (d->bus)
        connect(d->bus, &VxKeyCommunication::received, this, &VxDopeSheetView::handleKeyMessage);
}

VxKeyCommunication *VxDopeSheetView::getKeyCommunication() const
{
    return d->bus;
}

void VxDopeSheetView::setFilterModel(QSortFilterProxyModel *filterModel)
{
    d->filterModel = filterModel;
}

QSortFilterProxyModel *VxDopeSheetView::getFilterModel() const
{
    return d->filterModel;
}

void VxDopeSheetView::applyFilterText(const QString &text)
{
    if (d->filterModel)
        d->filterModel->setFilterRegExp(dopeSheetFilterPattern(text));
}

bool VxDopeSheetView::isChangingSelection() const
{
    return d->changingSelection;
}

void VxDopeSheetView::selectSceneSelection()
{
    if (!selectionModel())
        return;
    QItemSelection rows;
    for (VxNode *node : vxScene->getSelectedNodes()) {
        const QModelIndex index = findNodeIndex(node);
        if (index.isValid())
            rows.select(index, index);
    }
    selectionModel()->select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void VxDopeSheetView::ensureNodeVisible(VxNode *node)
{
    const QModelIndex index = findNodeIndex(node);
    if (index.isValid())
        scrollTo(index);
}

void VxDopeSheetView::updateKeyScopeDisplay()
{
    doUpdate();
}

VxDopeSheetItem *VxDopeSheetView::getItem(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    return index.sibling(index.row(), KeysColumn).data(Qt::UserRole).value<VxDopeSheetItem *>();
}

QModelIndex VxDopeSheetView::findNodeIndex(VxNode *node) const
{
    const VxDopeSheetModel *rows = d->sourceModel(this);
    if (!rows)
        return QModelIndex();
    const QModelIndex index = rows->indexOf(rows->findItem(node));
    return d->filterModel ? d->filterModel->mapFromSource(index) : index;
}

QVector<VxProperty *> VxDopeSheetView::getSelectedProperties() const
{
    QVector<VxProperty *> properties;
    if (!selectionModel())
        return properties;
    QSet<VxProperty *> seen;
    for (const QModelIndex &index : selectionModel()->selectedRows(NameColumn)) {
        const VxDopeSheetItem *item = getItem(index);
        VxProperty *property = item ? item->property() : nullptr;
        if (property && !seen.contains(property)) {
            seen.insert(property);
            properties.append(property);
        }
    }
    return properties;
}

bool VxDopeSheetView::hasSelectedKeys() const
{
    const VxDopeSheetModel *rows = d->sourceModel(this);
    return rows && rows->hasSelectedKeys();
}

bool VxDopeSheetView::hasItemSelection() const
{
    return selectionModel() && selectionModel()->hasSelection();
}

void VxDopeSheetView::setContextIndex(const QModelIndex &index)
{
    d->contextIndex = index;
}

QModelIndex VxDopeSheetView::getContextIndex() const
{
    return d->contextIndex;
}

bool VxDopeSheetView::hasContextItem() const
{
    return d->contextIndex.isValid();
}

void VxDopeSheetView::setMonitorParametersPane(bool onOff)
{
    d->monitorsParametersPane = onOff;
}

bool VxDopeSheetView::getMonitorParametersPane() const
{
    return d->monitorsParametersPane;
}

void VxDopeSheetView::doUpdate()
{
    viewport()->update();
    header()->viewport()->update();
}

VxDopeSheetItem *VxDopeSheetView::searchNext()
{
    return nullptr;
}

VxDopeSheetItem *VxDopeSheetView::searchPrevious()
{
    return nullptr;
}

void VxDopeSheetView::timeChanged(VxTime time)
{
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    d->timeLineX =
        metrics.keyMiddle(columnWidth(NameColumn), time, vxScene->getPlayRange().getStart());
    viewport()->update();
}

// The pane's class is not known here, so its signal is named by its text.
void VxDopeSheetView::handleAppStarting()
{
    const VxMainWindow *window = vxApp->getInterface();
    VxPane *pane = window ? window->getPaneMgr()->findPane(QStringLiteral("VxTimePane")) : nullptr;
    if (pane)
        connect(pane, SIGNAL(graphChannelListChanged(QVector<VxProperty *>)), this,
                SLOT(handleGraphChannelListChanged(QVector<VxProperty *>)), Qt::UniqueConnection);
}

void VxDopeSheetView::handleGraphChannelListChanged(QVector<VxProperty *> propList)
{
    d->graphProperties = QSet<VxProperty *>(propList.cbegin(), propList.cend());
    viewport()->update();
}

void VxDopeSheetView::handleSelectionChanged(const QItemSelection &selected,
                                             const QItemSelection &deselected)
{
    Q_UNUSED(deselected)
    if (std::exchange(d->inSelectionChanged, true))
        return;
    const bool adds = d->pressModifiers.testFlag(Qt::ControlModifier);
    d->changingSelection = true;
    for (const QModelIndex &index : selected.indexes()) {
        const VxDopeSheetItem *item = index.column() == NameColumn ? getItem(index) : nullptr;
        VxNode *node = item ? item->node() : nullptr;
        if (!node || node->isSelected())
            continue;
        if (!adds)
            vxScene->selectAllNodes(false);
        node->select(true);
    }
    d->changingSelection = false;
    selectSceneSelection();
    d->inSelectionChanged = false;
    Q_EMIT itemSelectionChanged();
    Q_EMIT propertyHitListChanged(getSelectedProperties(), false);
}

void VxDopeSheetView::paintEvent(QPaintEvent *event)
{
    const int nameWidth = columnWidth(NameColumn);
    {
        QPainter painter(viewport());
        QStyleOption option;
        option.initFrom(this);
        option.rect = QRect(QPoint(0, 0), QPoint(nameWidth - 2, viewport()->height() - 1));
        style()->drawPrimitive(
            static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxTimelineNameColumn), &option,
            &painter, this);
        const int x = TimelineMetrics::shared().keyMiddle(nameWidth, vxScene->getTime(),
                                                          vxScene->getPlayRange().getStart());
        painter.drawLine(x, 0, x, height());
    }
    QTreeView::paintEvent(event);
}
