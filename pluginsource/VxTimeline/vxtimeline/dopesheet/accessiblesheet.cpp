#include "vxtimeline/dopesheet/accessiblesheet.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/accessiblepool.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QItemSelectionModel>
#include <QtGui/QWindow>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>

namespace {

// The object of the row itself, beside that of its list of keys.
constexpr int RowIndex = -2;

QRect toGlobal(const QWidget *viewport, const QRect &rect)
{
    return rect.intersected(viewport->rect()).translated(viewport->mapToGlobal(QPoint()));
}

QRect cellOf(const VxDopeSheetView *sheet, const VxDopeSheetItem *item, int column)
{
    const QModelIndex index = sheet->findIndex(item);
    return index.isValid() ? sheet->visualRect(index.sibling(index.row(), column)) : QRect();
}

class RowKeys : public AccessibleKeySource
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleRow)
public:
    RowKeys(VxDopeSheetView *sheet, VxDopeSheetItem *item)
        : m_sheet(sheet)
        , m_item(item)
        , m_owner(item)
    {
    }

    bool isValid() const override { return m_sheet && m_item; }
    const void *owner() const override { return m_owner; }
    QAccessible::Role role() const override { return QAccessible::List; }
    QString name() const override { return tr("Keys of %1").arg(m_item->label()); }
    QAccessibleInterface *parent() const override
    {
        return AccessibleSheet::rowOf(m_sheet, m_item);
    }
    int indexInParent() const override { return 0; }
    QWindow *window() const override { return m_sheet->window()->windowHandle(); }
    QRect rect() const override
    {
        return toGlobal(m_sheet->viewport(), cellOf(m_sheet, m_item, VxDopeSheetView::KeysColumn));
    }

    QRect keyRect(int index) const override
    {
        const QRect cell = cellOf(m_sheet, m_item, VxDopeSheetView::KeysColumn);
        if (cell.isEmpty())
            return QRect();
        const TimelineMetrics &metrics = TimelineMetrics::shared();
        const int middle = metrics.keyMiddle(cell.left(), m_item->keyTime(index),
                                             vxScene->getPlayRange().getStart());
        // Keys on every frame may be closer to each other than the height of a row.
        const double frame = vxScene->getTimeStep() / metrics.ticksPerPixel();
        const int half = int(qBound(4.0, frame / 2, cell.height() / 2.0));
        const QRect mark(middle - half, cell.top(), 2 * half + 1, cell.height());
        return toGlobal(m_sheet->viewport(), mark.intersected(cell));
    }

    VxTime timeAt(int x) const override
    {
        const QRect cell = cellOf(m_sheet, m_item, VxDopeSheetView::KeysColumn);
        const TimelineMetrics &metrics = TimelineMetrics::shared();
        const VxTime start = vxScene->getPlayRange().getStart();
        const int column = m_sheet->viewport()->mapFromGlobal(QPoint(x, 0)).x();
        const int distance = column - metrics.keyMiddle(cell.left(), start, start);
        return TimelineSnap::limited(qint64(start + distance * metrics.ticksPerPixel()));
    }

    int count() const override { return m_item->keyCount(); }
    int selectedCount() const override { return m_item->selectedKeyCount(); }
    VxTime time(int index) const override { return m_item->keyTime(index); }
    int firstFrom(VxTime time) const override { return m_item->firstKeyFrom(time); }
    bool isSelected(int index) const override { return m_item->isKeySelected(index); }
    VxProperty *property() const override { return m_item->property(); }

    // Rows to be made are made by now: the keys were counted.
    QVector<VxProperty *> properties() const override
    {
        QVector<VxProperty *> found;
        QVector<const VxDopeSheetItem *> open{m_item};
        while (!open.isEmpty()) {
            const VxDopeSheetItem *item = open.takeLast();
            if (item->property())
                found += item->property();
            for (int i = 0; i < item->childCount(); ++i)
                open += item->child(i);
        }
        return found;
    }

private:
    QPointer<VxDopeSheetView> m_sheet;
    QPointer<VxDopeSheetItem> m_item;
    const void *m_owner;
};

} // namespace

AccessibleSheet::AccessibleSheet(VxDopeSheetView *sheet)
    : QAccessibleWidget(sheet, QAccessible::Tree)
{
}

VxDopeSheetView *AccessibleSheet::sheet() const
{
    return static_cast<VxDopeSheetView *>(widget());
}

QAccessibleInterface *AccessibleSheet::rowOf(VxDopeSheetView *sheet, VxDopeSheetItem *item)
{
    if (!item || !sheet->findIndex(item).isValid())
        return nullptr;
    return AccessiblePool::ofContainers().get({item, RowIndex},
                                              [&] { return new AccessibleRow(sheet, item); });
}

AccessibleKeys::Source AccessibleSheet::keysOf(VxDopeSheetView *sheet, VxDopeSheetItem *item)
{
    return std::make_shared<RowKeys>(sheet, item);
}

int AccessibleSheet::levelOf(const VxDopeSheetItem *item)
{
    int level = -1; // the invisible root
    for (const VxDopeSheetItem *each = item->parentItem(); each; each = each->parentItem())
        ++level;
    return level;
}

int AccessibleSheet::childCount() const
{
    const QAbstractItemModel *rows = sheet()->model();
    return (rows ? rows->rowCount() : 0) + QAccessibleWidget::childCount();
}

QAccessibleInterface *AccessibleSheet::child(int index) const
{
    const QAbstractItemModel *rows = sheet()->model();
    const int count = rows ? rows->rowCount() : 0;
    if (index < 0 || index >= count)
        return QAccessibleWidget::child(index - count);
    return rowOf(sheet(), sheet()->getItem(rows->index(index, VxDopeSheetView::NameColumn)));
}

int AccessibleSheet::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *row = dynamic_cast<const AccessibleRow *>(child))
        return sheet()->findIndex(row->item()).row();
    const int index = QAccessibleWidget::indexOfChild(child);
    const QAbstractItemModel *rows = sheet()->model();
    return index < 0 ? index : index + (rows ? rows->rowCount() : 0);
}

QAccessibleInterface *AccessibleSheet::childAt(int x, int y) const
{
    const QPoint position = sheet()->viewport()->mapFromGlobal(QPoint(x, y));
    const QModelIndex index = sheet()->viewport()->rect().contains(position)
                                  ? sheet()->indexAt(QPoint(1, position.y()))
                                  : QModelIndex();
    QAccessibleInterface *row = rowOf(sheet(), sheet()->getItem(index));
    return row ? row : QAccessibleWidget::childAt(x, y);
}

QAccessibleInterface *AccessibleSheet::focusChild() const
{
    if (!sheet()->hasFocus())
        return QAccessibleWidget::focusChild();
    return rowOf(sheet(), sheet()->getItem(sheet()->currentIndex()));
}

QAccessible::State AccessibleSheet::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    return state;
}

AccessibleRow::AccessibleRow(VxDopeSheetView *sheet, VxDopeSheetItem *item)
    : m_sheet(sheet)
    , m_item(item)
{
}

bool AccessibleRow::isValid() const
{
    return m_sheet && m_item;
}

QWindow *AccessibleRow::window() const
{
    return isValid() ? m_sheet->window()->windowHandle() : nullptr;
}

// A parent counts as used when its children are listed: it must not be deleted meanwhile.
QAccessibleInterface *AccessibleRow::parent() const
{
    if (!isValid())
        return nullptr;
    const QModelIndex above = m_sheet->findIndex(m_item).parent();
    if (!above.isValid())
        return QAccessible::queryAccessibleInterface(m_sheet);
    return AccessibleSheet::rowOf(m_sheet, m_sheet->getItem(above));
}

int AccessibleRow::childCount() const
{
    if (!isValid())
        return 0;
    return isOpen() ? 1 + m_sheet->model()->rowCount(m_sheet->findIndex(m_item)) : 1;
}

QAccessibleInterface *AccessibleRow::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    for (QAccessibleInterface *used = AccessibleSheet::rowOf(m_sheet, m_item); used;
         used = used->parent()) {
        if (used->object())
            break;
    }
    if (index == 0)
        return AccessibleKeys::listOf(AccessibleSheet::keysOf(m_sheet, m_item));
    const QModelIndex row = m_sheet->findIndex(m_item);
    return AccessibleSheet::rowOf(m_sheet,
                                  m_sheet->getItem(m_sheet->model()->index(index - 1, 0, row)));
}

QAccessibleInterface *AccessibleRow::childAt(int x, int y) const
{
    if (!isValid())
        return nullptr;
    const AccessibleKeys::Source keys = AccessibleSheet::keysOf(m_sheet, m_item);
    return keys->rect().contains(x, y) ? AccessibleKeys::listOf(keys) : nullptr;
}

int AccessibleRow::indexOfChild(const QAccessibleInterface *child) const
{
    if (dynamic_cast<const AccessibleKeyList *>(child))
        return 0;
    const auto *row = dynamic_cast<const AccessibleRow *>(child);
    return row && isValid() ? 1 + m_sheet->findIndex(row->item()).row() : -1;
}

QString AccessibleRow::text(QAccessible::Text kind) const
{
    if (!isValid())
        return QString();
    if (kind == QAccessible::Name)
        return m_item->label();
    if (kind != QAccessible::Description)
        return QString();
    return tr("Level %1, %2")
        .arg(AccessibleSheet::levelOf(m_item) + 1)
        .arg(AccessibleKeys::description(*AccessibleSheet::keysOf(m_sheet, m_item)));
}

QRect AccessibleRow::rect() const
{
    if (!isValid())
        return QRect();
    const QRect cells = cellOf(m_sheet, m_item, VxDopeSheetView::NameColumn)
                            .united(cellOf(m_sheet, m_item, VxDopeSheetView::KeysColumn));
    return toGlobal(m_sheet->viewport(), cells);
}

QAccessible::Role AccessibleRow::role() const
{
    return QAccessible::TreeItem;
}

bool AccessibleRow::canOpen() const
{
    const QModelIndex index = m_sheet->findIndex(m_item);
    return index.isValid() && m_sheet->model()->hasChildren(index);
}

bool AccessibleRow::isOpen() const
{
    return canOpen() && m_sheet->isExpanded(m_sheet->findIndex(m_item));
}

QAccessible::State AccessibleRow::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    const QModelIndex index = m_sheet->findIndex(m_item);
    state.selectable = true;
    state.multiSelectable = true;
    state.focusable = true;
    state.selected = m_sheet->isRowSelected(index);
    state.focused = m_sheet->hasFocus() && m_sheet->currentIndex().isValid() &&
                    m_sheet->getItem(m_sheet->currentIndex()) == m_item;
    state.expandable = canOpen();
    state.expanded = isOpen();
    state.collapsed = state.expandable && !state.expanded;
    state.offscreen = rect().isEmpty();
    return state;
}

QStringList AccessibleRow::actionNames() const
{
    QStringList names{pressAction(), setFocusAction(), AccessibleKeyList::selectAction(),
                      AccessibleKeyList::deselectAction()};
    if (isValid() && canOpen())
        names += toggleAction();
    return names;
}

void AccessibleRow::doAction(const QString &name)
{
    const QModelIndex index = isValid() ? m_sheet->findIndex(m_item) : QModelIndex();
    if (!index.isValid())
        return;
    const QPointer<VxDopeSheetView> view = m_sheet;
    if (name == pressAction()) {
        view->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
    } else if (name == setFocusAction()) {
        view->setFocus();
        view->scrollTo(index);
        view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    } else if (name == toggleAction()) {
        view->setExpanded(index, !view->isExpanded(index));
    } else {
        AccessibleKeyList(AccessibleSheet::keysOf(view, m_item)).doAction(name);
    }
}
