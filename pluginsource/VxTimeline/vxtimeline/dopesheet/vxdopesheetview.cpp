#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QSortFilterProxyModel>
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
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

#include "vxtimeline/dopesheet/dopesheetfiltertext.h"
#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"
#include "vxtimeline/time/timelinemetrics.h"

namespace {

// How far the line of the current time reaches to each side; pixels.
constexpr int TimeLineReach = 2;
constexpr int TimerInterval = 100; // milliseconds
// The band lies over the keys that it is to take in.
constexpr double RubberBandOpacity = 0.5;

} // namespace

const VxDopeSheetModel *VxDopeSheetView::Private::sourceModel() const
{
    const QAbstractItemModel *model = filterModel ? filterModel->sourceModel() : view->model();
    return qobject_cast<const VxDopeSheetModel *>(model);
}

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
            [this] { d->updateCommonTcb(); });
    d->guard = new VxGestureGuard(viewport());
    connect(d->guard, &VxGestureGuard::dropped, this, [this] { d->abandonGesture(); });
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &VxDopeSheetView::timerKick);
    timer->start(TimerInterval);
}

VxDopeSheetView::~VxDopeSheetView()
{
    d->guard->end();
    d->putKeysBack();
    // The header, which lives on, may set the time once more when it drops a drag.
    if (vxScene)
        vxScene->disconnect(this);
}

void VxDopeSheetView::setModel(QAbstractItemModel *newModel)
{
    if (newModel == model())
        return;
    d->forgetItems();
    d->commonTcb = Private::CommonTcb();
    QTreeView::setModel(newModel);
    if (!newModel)
        return;
    const std::unique_ptr<QItemSelectionModel> plain(selectionModel());
    setSelectionModel(new DopeSheetSelectionModel(newModel, this));
    connect(newModel, &QObject::destroyed, selectionModel(), &QObject::deleteLater);
}

// The tree view would look at every open row again, for each row of keys that reports a change. The
// rows have one height, and whether they have others below is told when those come and go.
void VxDopeSheetView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                  const QVector<int> &roles)
{
    Q_UNUSED(topLeft)
    Q_UNUSED(bottomRight)
    Q_UNUSED(roles)
    viewport()->update();
}

void VxDopeSheetView::forgetItems()
{
    d->forgetItems();
}

void VxDopeSheetView::setFilterModel(QSortFilterProxyModel *filterModel)
{
    d->filterModel = filterModel;
}

QSortFilterProxyModel *VxDopeSheetView::getFilterModel() const
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
    const QVector<VxProperty *> before = getSelectedProperties();
    {
        const QScopedValueRollback<bool> restoring(d->inSelectionChanged, true);
        d->rowMemory.note(!d->filterModel->filterRegExp().isEmpty());
        d->filterModel->setFilterRegExp(dopeSheetFilterPattern(text));
        // Until then opening a row only notes it.
        scheduleDelayedItemsLayout();
        d->rowMemory.restore(!text.isEmpty());
        selectSceneSelection();
    }
    const QVector<VxProperty *> after = getSelectedProperties();
    if (after != before)
        Q_EMIT propertyHitListChanged(after, false);
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

QModelIndex VxDopeSheetView::findIndex(const VxDopeSheetItem *item) const
{
    const VxDopeSheetModel *rows = d->sourceModel();
    if (!rows)
        return QModelIndex();
    const QModelIndex index = rows->indexOf(item);
    return d->filterModel ? d->filterModel->mapFromSource(index) : index;
}

QModelIndex VxDopeSheetView::findNodeIndex(VxNode *node) const
{
    const VxDopeSheetModel *rows = d->sourceModel();
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

VxDopeSheetItem *VxDopeSheetView::searchNext()
{
    return nullptr;
}

VxDopeSheetItem *VxDopeSheetView::searchPrevious()
{
    return nullptr;
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
    const QSet<VxProperty *> former = d->graphProperties;
    d->graphProperties = QSet<VxProperty *>(propList.cbegin(), propList.cend());
    d->sendSelectionOf(d->graphProperties - former);
    viewport()->update();
}

int VxDopeSheetView::Private::timeX(VxTime time) const
{
    return TimelineMetrics::shared().keyMiddle(view->columnWidth(NameColumn), time,
                                               vxScene->getPlayRange().getStart());
}

void VxDopeSheetView::Private::updateTimeLine(int x) const
{
    view->viewport()->update(x - TimeLineReach, 0, 2 * TimeLineReach + 1,
                             view->viewport()->height());
}

// In playback this comes many times a second: only what the line leaves and enters is painted.
void VxDopeSheetView::timeChanged(VxTime time)
{
    const int x = d->timeX(time);
    d->timeLine = QLine(x, 0, x, viewport()->height());
    d->updateTimeLine(d->paintedTimeX);
    d->updateTimeLine(x);
}

bool VxDopeSheetView::isToBePainted(const QRect &rect) const
{
    return d->paintedRegion.isEmpty() || d->paintedRegion.intersects(rect);
}

void VxDopeSheetView::timerKick()
{
    d->pace.tick(d->clock.elapsed());
}

// The name column and the line of the current time show through where rows paint nothing.
void VxDopeSheetView::Private::paintBehindRows(QPainter *painter)
{
    const int nameWidth = view->columnWidth(NameColumn);
    QStyleOption option;
    option.initFrom(view);
    option.rect = QRect(QPoint(0, 0), QPoint(nameWidth - 2, view->viewport()->height() - 1));
    view->style()->drawPrimitive(
        static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxTimelineNameColumn), &option, painter,
        view);
    paintedTimeX = timeX(vxScene->getTime());
    painter->drawLine(paintedTimeX, 0, paintedTimeX, view->height());
}

void VxDopeSheetView::Private::paintRubberBand(QPainter *painter) const
{
    QStyleOptionRubberBand option;
    option.initFrom(view);
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect = QRect(
        QPoint(qMin(pressPoint.x(), currentPoint.x()), qMin(pressPoint.y(), currentPoint.y())),
        QPoint(qMax(pressPoint.x(), currentPoint.x()) - 1,
               qMax(pressPoint.y(), currentPoint.y()) - 1));
    painter->setOpacity(RubberBandOpacity);
    view->style()->drawControl(QStyle::CE_RubberBand, &option, painter, view);
}

// An empty sheet says why it is empty.
void VxDopeSheetView::Private::paintHint(QPainter *painter) const
{
    const auto *filter = qobject_cast<const QAbstractProxyModel *>(view->model());
    const bool hasRows = filter && filter->sourceModel() && filter->sourceModel()->rowCount() > 0;
    painter->setPen(view->palette().color(QPalette::Disabled, QPalette::Text));
    painter->drawText(view->viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                      hasRows ? tr("No rows match the search text.")
                              : tr("The scene has no nodes with rows to show."));
}

// Names and branches take most of the time, and have nothing to do with the current time. What the
// tree view draws of the other column is the row's panel, without selection, and the cell.
void VxDopeSheetView::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const auto cellOf = [this, &option](int column) {
        return QRect(columnViewportPosition(column), option.rect.y(), columnWidth(column),
                     option.rect.height());
    };
    if (isToBePainted(cellOf(NameColumn))) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    QStyleOptionViewItem keys = option;
    keys.rect = cellOf(KeysColumn);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &keys, painter, this);
    itemDelegateForColumn(KeysColumn)->paint(painter, keys, index.sibling(index.row(), KeysColumn));
}

void VxDopeSheetView::paintEvent(QPaintEvent *event)
{
    const QScopedValueRollback<QRegion> painting(d->paintedRegion, event->region());
    {
        QPainter painter(viewport());
        d->paintBehindRows(&painter);
    }
    QTreeView::paintEvent(event);
    if (model() && model()->rowCount() == 0) {
        QPainter painter(viewport());
        d->paintHint(&painter);
    }
    if (d->rubberBandActive && !d->keyDragActive) {
        QPainter painter(viewport());
        d->paintRubberBand(&painter);
    }
}
