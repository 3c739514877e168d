#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include "vxtimeline/dopesheet/accessiblesheet.h"
#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/rows/dopesheetfiltertext.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/vxwarning.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QSet>
#include <QtCore/QTimer>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QStyleOption>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr int TimerInterval = 100; // milliseconds

} // namespace

VxDopeSheetView::VxDopeSheetView(QWidget *parent)
    : QTreeView(parent)
    , d(std::make_unique<Private>(this))
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
    connect(vxApp->getUndoStack(), &VxUndoStack::indexChanged, this,
            [this] { d->keys.invalidateCommonTcb(); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &row) { d->treeState.handleCollapsed(row); });
    d->guard = new VxGestureGuard(viewport());
    connect(d->guard, &VxGestureGuard::cancelled, this, [this] { d->abandonGesture(); });
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &VxDopeSheetView::timerKick);
    timer->start(TimerInterval);
}

VxDopeSheetView::~VxDopeSheetView()
{
    d->guard->end();
    d->putKeysBack();
    // The header, which lives longer, may set the time once more when it drops a drag.
    if (vxScene)
        vxScene->disconnect(this);
}

void VxDopeSheetView::setModel(QAbstractItemModel *newModel)
{
    if (newModel == model())
        return;
    d->manyChanges.reset();
    QTreeView::setModel(newModel);
    d->keys.invalidateCommonTcb();
    if (!newModel)
        return;
    const std::unique_ptr<QItemSelectionModel> plain(selectionModel());
    setSelectionModel(new DopeSheetSelectionModel(newModel, this));
    connect(newModel, &QObject::destroyed, selectionModel(), &QObject::deleteLater);
    connect(newModel, &QAbstractItemModel::rowsRemoved, this, &VxDopeSheetView::finishRemoval,
            Qt::UniqueConnection);
    if (const VxDopeSheetModel *rows = getSourceModel()) {
        connect(rows, &VxDopeSheetModel::manyChangesStarting, this,
                [this] { d->beginManyChanges(); });
        connect(rows, &VxDopeSheetModel::manyChangesFinished, this,
                [this] { d->finishManyChanges(); });
    }
}

// The tree view would lay out every open row again, for each row with changed keys. All rows have
// the same height, and added or removed rows are reported by other signals.
void VxDopeSheetView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                  const QVector<int> &roles)
{
    Q_UNUSED(topLeft)
    Q_UNUSED(bottomRight)
    Q_UNUSED(roles)
    viewport()->update();
}

// The tree view would search the open rows for every range of the change.
void VxDopeSheetView::selectionChanged(const QItemSelection &selected,
                                       const QItemSelection &deselected)
{
    Q_UNUSED(selected)
    Q_UNUSED(deselected)
    viewport()->update();
}

void VxDopeSheetView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    // The tree view would only add its report. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::currentChanged(current, previous);
    if (!QAccessible::isActive() || !hasFocus())
        return;
    AccessibleKeys::report(AccessibleSheet::rowOf(this, getItem(current)), QAccessible::Focus);
}

void VxDopeSheetView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    d->rows.prepareRemoval(parent, start, end);
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

void VxDopeSheetView::finishRemoval()
{
    d->rows.finishRemoval();
}

void VxDopeSheetView::setFilterModel(VxDopeSheetFilterModel *filterModel)
{
    d->filterModel = filterModel;
}

VxDopeSheetFilterModel *VxDopeSheetView::getFilterModel() const
{
    return d->filterModel;
}

int VxDopeSheetView::getKeysWidth() const
{
    const QHeaderView *sections = header();
    if (sections->count() <= KeysColumn || !sections->stretchLastSection())
        return columnWidth(KeysColumn);
    return sections->viewport()->width() - columnWidth(NameColumn);
}

void VxDopeSheetView::applyFilterText(const QString &text)
{
    if (!d->filterModel)
        return;
    keepRowsDuring([this, &text] { d->filterModel->refilter(dopeSheetFilterPattern(text)); });
}

void VxDopeSheetView::Private::beginManyChanges()
{
    if (isKeepingRows)
        return;
    formerProperties = rows.properties();
    manyChanges = std::make_unique<DopeSheetRowSelection::Hold>(&rows);
    treeState.save();
}

void VxDopeSheetView::Private::finishManyChanges()
{
    if (!manyChanges)
        return;
    treeState.restore();
    rows.addSceneSelection();
    manyChanges.reset();
    view->viewport()->update();
    rows.reportChangeSince(formerProperties);
}

// Before anything that depends on which rows are open or selected.
void VxDopeSheetView::Private::endManyChangesNow() const
{
    if (manyChanges)
        view->getSourceModel()->endManyChanges();
}

void VxDopeSheetView::keepRowsDuring(const std::function<void()> &change)
{
    d->endManyChangesNow();
    const QVector<VxProperty *> before = getSelectedProperties();
    {
        const DopeSheetRowSelection::Hold hold(&d->rows);
        const QScopedValueRollback<bool> keeping(d->isKeepingRows, true);
        d->treeState.save();
        change();
        if (const VxDopeSheetModel *rows = getSourceModel())
            rows->endManyChanges();
        d->treeState.restore();
        d->rows.addSceneSelection();
    }
    viewport()->update();
    d->rows.reportChangeSince(before);
}

void VxDopeSheetView::renewModel(const std::function<void()> &renew)
{
    const std::vector<DopeSheetKeySelection::Saved> selected = d->keys.save();
    keepRowsDuring(renew);
    d->keys.restore(selected);
}

void VxDopeSheetView::ensureNodeVisible(VxNode *node)
{
    d->endManyChangesNow();
    const QModelIndex index = findNodeIndex(node);
    if (index.isValid())
        scrollTo(index);
}

VxDopeSheetItem *VxDopeSheetView::getItem(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    const VxDopeSheetModel *rows = getSourceModel();
    if (rows && index.model() == d->filterModel)
        return rows->getItem(d->filterModel->mapToSource(index));
    return index.sibling(index.row(), KeysColumn).data(Qt::UserRole).value<VxDopeSheetItem *>();
}

const VxDopeSheetModel *VxDopeSheetView::getSourceModel() const
{
    const QAbstractItemModel *rows = d->filterModel ? d->filterModel->sourceModel() : model();
    return qobject_cast<const VxDopeSheetModel *>(rows);
}

QModelIndex VxDopeSheetView::findIndex(const VxDopeSheetItem *item) const
{
    const VxDopeSheetModel *rows = getSourceModel();
    if (!rows)
        return QModelIndex();
    const QModelIndex index = rows->indexOf(item);
    return d->filterModel ? d->filterModel->findShown(index) : index;
}

QModelIndex VxDopeSheetView::findNodeIndex(VxNode *node) const
{
    const VxDopeSheetModel *rows = getSourceModel();
    return rows ? findIndex(rows->findItem(node)) : QModelIndex();
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

// The pane's class is declared in a folder that this one must not include.
void VxDopeSheetView::handleAppStarting()
{
    if (VxPane *pane = vxFindPane(QStringLiteral("VxTimePane")))
        connect(pane, SIGNAL(graphChannelListChanged(QVector<VxProperty *>)), this,
                SLOT(handleGraphChannelListChanged(QVector<VxProperty *>)), Qt::UniqueConnection);
}

void VxDopeSheetView::handleGraphChannelListChanged(QVector<VxProperty *> propList)
{
    d->keys.setGraphProperties(QSet<VxProperty *>(propList.cbegin(), propList.cend()));
    viewport()->update();
}

bool VxDopeSheetView::isRowSelected(const QModelIndex &index) const
{
    d->endManyChangesNow();
    const auto *rows = qobject_cast<const DopeSheetSelectionModel *>(selectionModel());
    return rows && rows->isRowSelected(index);
}

bool VxDopeSheetView::isChangingSelection() const
{
    return d->rows.isChangingNodes();
}

void VxDopeSheetView::showSceneSelection()
{
    d->endManyChangesNow();
    d->rows.showSceneSelection();
}

bool VxDopeSheetView::hasItemSelection() const
{
    d->endManyChangesNow();
    return selectionModel() && selectionModel()->hasSelection();
}

QVector<VxProperty *> VxDopeSheetView::getSelectedProperties() const
{
    d->endManyChangesNow();
    return d->rows.properties();
}

void VxDopeSheetView::handleSelectionChanged(const QItemSelection &selected,
                                             const QItemSelection &deselected)
{
    d->rows.handleChange(selected, deselected, d->pressModifiers);
}

bool VxDopeSheetView::hasSelectedKeys() const
{
    const VxDopeSheetModel *rows = getSourceModel();
    return rows && rows->hasSelectedKeys();
}

bool VxDopeSheetView::getCommonTension(float *tension) const
{
    return d->keys.commonTcb().get(CommonTcb::Tension, tension);
}

bool VxDopeSheetView::getCommonContinuity(float *continuity) const
{
    return d->keys.commonTcb().get(CommonTcb::Continuity, continuity);
}

bool VxDopeSheetView::getCommonBias(float *bias) const
{
    return d->keys.commonTcb().get(CommonTcb::Bias, bias);
}

void VxDopeSheetView::setKeySelection(bool yesNo, QModelIndex startIndex, QModelIndex endIndex,
                                      VxTime startTime, VxTime endTime)
{
    if (!startIndex.isValid()) {
        startIndex = d->contextIndex;
        d->contextIndex = QPersistentModelIndex();
    }
    if (!endIndex.isValid())
        endIndex = startIndex;
    d->keys.select(startIndex, endIndex, yesNo, startTime, endTime);
    Q_EMIT keySelectionChanged();
    viewport()->update();
}

void VxDopeSheetView::clearSelectedKeys()
{
    d->keys.clearRows();
    viewport()->update();
}

void VxDopeSheetView::setKeyCommunication(VxKeyCommunication *bus)
{
    if (getKeyCommunication())
        disconnect(getKeyCommunication(), &VxKeyCommunication::received, this,
                   &VxDopeSheetView::handleKeyMessage);
    d->keys.setBus(bus);
    if (bus)
        connect(bus, &VxKeyCommunication::received, this, &VxDopeSheetView::handleKeyMessage);
}

VxKeyCommunication *VxDopeSheetView::getKeyCommunication() const
{
    return d->keys.bus();
}

void VxDopeSheetView::handleKeyMessage(const VxKeyMessage &message)
{
    d->keys.handleMessage(message);
    viewport()->update();
}

bool VxDopeSheetView::hasCopiedKeys() const
{
    return d->commands.hasCopiedKeys();
}

int VxDopeSheetView::numCopiedKeys() const
{
    return d->commands.numCopiedKeys();
}

const std::vector<VxCopiedKeys> &VxDopeSheetView::copiedKeys() const
{
    return d->commands.copiedKeys().entries();
}

void VxDopeSheetView::copyKeys()
{
    d->commands.copy();
    Q_EMIT copyContextChanged(hasCopiedKeys());
}

// Key commands are refused while keys are dragged: the keys' times are not final until the drop.
bool VxDopeSheetView::pasteCopiedKeys()
{
    return !d->dragHold && d->commands.paste();
}

void VxDopeSheetView::deleteKeys()
{
    if (!d->dragHold)
        d->commands.remove();
}

void VxDopeSheetView::setInterpType(int type)
{
    if (type < VxKeyInterp::Linear || type > VxKeyInterp::Tcb) {
        vxWarning(VX_HERE,
                  QStringLiteral("Invalid value passed to VxDopeSheetView::setInterpType()"));
        return;
    }
    if (!d->dragHold)
        d->commands.setType(type);
}

void VxDopeSheetView::setTCB(float t, float c, float b)
{
    if (!d->dragHold)
        d->commands.setTcb(t, c, b);
}

void VxDopeSheetView::skipToPreviousKey()
{
    const VxTime time = d->commands.previousKey();
    if (time != -1)
        TimelinePlayback::setTime(time);
}

void VxDopeSheetView::skipToNextKey()
{
    const VxTime time = d->commands.nextKey();
    if (time != VxTimeMax)
        TimelinePlayback::setTime(time);
}

void VxDopeSheetView::timerKick()
{
    d->throttle.tick(d->clock.elapsed());
}

bool VxDopeSheetView::viewportEvent(QEvent *event)
{
    d->endManyChangesNow();
    return QTreeView::viewportEvent(event);
}
