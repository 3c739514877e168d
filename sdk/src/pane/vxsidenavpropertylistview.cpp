#include <vxcore/vxsidenavpropertylistview.h>

#include "pane/vxpropertydelegate.h"
#include "pane/vxpropertyedit.h"
#include "pane/vxpropertykeys.h"
#include "pane/vxpropertylistmemory.h"
#include "pane/vxpropertymenu.h"
#include "pane/vxpropertypainter.h"
#include "pane/vxpropertyscrub.h"

#include <QtCore/QSet>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <algorithm>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int ValueWidth = 92;
constexpr int KeyWidth = 22;

VxTime now()
{
    return vxScene ? vxScene->getTime() : 0;
}

} // namespace

class VxSideNavPropertyListView::Private
{
public:
    explicit Private(VxSideNavPropertyListView *view)
        : q(view)
    {
    }

    QVector<VxProperty *> propertiesOf(const QModelIndex &index) const;
    QVector<VxProperty *> targetsOf(const QModelIndex &index) const;
    bool isNumber(const QModelIndex &index) const;
    bool isSwitch(const QModelIndex &index) const;
    bool isEditable(const QModelIndex &index) const;
    QModelIndex valueBeside(const QModelIndex &index, int direction) const;
    QRect rowRect(const QModelIndex &index) const;

    void showRows();
    void forgetGesture();
    bool pressCell(const QModelIndex &index, const QPoint &place);
    void dragTo(const QMouseEvent *event);
    void activate(const QModelIndex &value);
    bool typeInto(const QModelIndex &value, QKeyEvent *event);
    bool openOrClose(const QModelIndex &index, int key);
    void showCursor(const QPoint &place);

    VxSideNavPropertyListView *q;
    QSet<QString> collapsed;
    VxPropertyListMemory memory;
    QPersistentModelIndex pressed; // a value's cell, from the press until the button is released
    QPoint pressPlace;
    std::unique_ptr<VxPropertyEdit> edit; // while a value is dragged
    VxPropertyScrub scrub;
};

QVector<VxProperty *>
VxSideNavPropertyListView::Private::propertiesOf(const QModelIndex &index) const
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    const VxPropertyListNode *listNode = model ? model->getPropertyListNode(index) : nullptr;
    return listNode ? listNode->getProperties() : QVector<VxProperty *>();
}

/** What a command on a row is about: all selected rows, when it is one of them. */
QVector<VxProperty *> VxSideNavPropertyListView::Private::targetsOf(const QModelIndex &index) const
{
    if (!q->selectionModel() || !q->selectionModel()->isRowSelected(index.row(), QModelIndex()))
        return propertiesOf(index);
    QVector<VxProperty *> targets;
    QSet<VxProperty *> known;
    for (int row = 0; row < index.model()->rowCount(); ++row) {
        if (!q->selectionModel()->isRowSelected(row, QModelIndex()))
            continue;
        for (VxProperty *property : propertiesOf(index.sibling(row, 0))) {
            if (!known.contains(property))
                targets.append(property);
            known.insert(property);
        }
    }
    return targets;
}

bool VxSideNavPropertyListView::Private::isNumber(const QModelIndex &index) const
{
    return isEditable(index) && !isSwitch(index) &&
           qobject_cast<VxNumericProperty *>(propertiesOf(index).value(0));
}

bool VxSideNavPropertyListView::Private::isSwitch(const QModelIndex &index) const
{
    return isEditable(index) && qobject_cast<VxBoolProperty *>(propertiesOf(index).value(0));
}

bool VxSideNavPropertyListView::Private::isEditable(const QModelIndex &index) const
{
    return index.column() == VxPropertyListItemModel::ValueColumn &&
           index.flags() & Qt::ItemIsEditable;
}

/** The next field that can be typed into, from a row downwards (1) or upwards (-1). */
QModelIndex VxSideNavPropertyListView::Private::valueBeside(const QModelIndex &index,
                                                            int direction) const
{
    for (int row = index.row() + direction; row >= 0 && row < index.model()->rowCount();
         row += direction) {
        const QModelIndex value = index.sibling(row, VxPropertyListItemModel::ValueColumn);
        if (isEditable(value) && !isSwitch(value) && !q->isRowHidden(row, QModelIndex()))
            return value;
    }
    return {};
}

QRect VxSideNavPropertyListView::Private::rowRect(const QModelIndex &index) const
{
    const QRect cell = q->visualRect(index.sibling(index.row(), 0));
    return {0, cell.top(), q->viewport()->width(), cell.height()};
}

void VxSideNavPropertyListView::Private::showRows()
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const bool heading = model->isHeading(index);
        q->setFirstColumnSpanned(row, QModelIndex(), heading);
        q->setRowHidden(row, QModelIndex(),
                        !heading && collapsed.contains(model->getGroupPath(index)));
    }
}

void VxSideNavPropertyListView::Private::forgetGesture()
{
    edit.reset(); // with its undo entry
    pressed = QModelIndex();
}

/** True when the press was a command of its own and means nothing to the selection. */
bool VxSideNavPropertyListView::Private::pressCell(const QModelIndex &index, const QPoint &place)
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    if (!model || !index.isValid())
        return false;
    if (model->isHeading(index)) {
        if (!VxPropertyPainter::arrowRect(rowRect(index)).contains(place))
            return false;
        const QString path = model->getGroupPath(index);
        q->setGroupCollapsed(path, !q->isGroupCollapsed(path));
        return true;
    }
    if (index.column() == VxPropertyListItemModel::KeyColumn) {
        VxPropertyKeys::toggleKeys(targetsOf(index), now());
        return true;
    }
    if (isEditable(index)) {
        pressed = index;
        pressPlace = place;
    }
    return false;
}

void VxSideNavPropertyListView::Private::dragTo(const QMouseEvent *event)
{
    if (!edit && isNumber(pressed) &&
        qAbs(event->x() - pressPlace.x()) >= QApplication::startDragDistance()) {
        edit = std::make_unique<VxPropertyEdit>(propertiesOf(pressed), now());
        scrub = VxPropertyScrub(event->x());
    }
    if (edit)
        edit->offsetBy(scrub.moveTo(event->x(), event->modifiers()));
}

/** What a click on a value does. */
void VxSideNavPropertyListView::Private::activate(const QModelIndex &value)
{
    if (isSwitch(value)) {
        const auto *flag = qobject_cast<VxBoolProperty *>(propertiesOf(value).value(0));
        q->model()->setData(value,
                            flag->getBoolValue(now()) ? QStringLiteral("0") : QStringLiteral("1"));
    } else if (isEditable(value)) {
        q->edit(value);
    }
}

/** Begins to type with the key's own text. */
bool VxSideNavPropertyListView::Private::typeInto(const QModelIndex &value, QKeyEvent *event)
{
    const QString text = event->text();
    const bool begins =
        text.size() == 1 && (text.at(0).isDigit() || QStringLiteral("+-.,").contains(text));
    if (!begins || !isNumber(value) || event->modifiers() & Qt::ControlModifier)
        return false;
    q->edit(value);
    if (QWidget *field = QApplication::focusWidget())
        QApplication::sendEvent(field, event);
    return true;
}

bool VxSideNavPropertyListView::Private::openOrClose(const QModelIndex &index, int key)
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    if (!model || !model->isHeading(index) || (key != Qt::Key_Left && key != Qt::Key_Right))
        return false;
    q->setGroupCollapsed(model->getGroupPath(index), key == Qt::Key_Left);
    return true;
}

void VxSideNavPropertyListView::Private::showCursor(const QPoint &place)
{
    if (isNumber(q->indexAt(place)))
        q->viewport()->setCursor(Qt::SizeHorCursor);
    else
        q->viewport()->unsetCursor();
}

VxSideNavPropertyListView::VxSideNavPropertyListView(QWidget *parent)
    : QTreeView(parent)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("ParametersPropertyList"));
    setRootIsDecorated(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setItemDelegate(new VxPropertyDelegate(this));
}

VxSideNavPropertyListView::~VxSideNavPropertyListView() = default;

VxPropertyListItemModel *VxSideNavPropertyListView::getPropertyListModel() const
{
    return qobject_cast<VxPropertyListItemModel *>(model());
}

void VxSideNavPropertyListView::setModel(QAbstractItemModel *newModel)
{
    if (model())
        model()->disconnect(this);
    QTreeView::setModel(newModel);
    if (!getPropertyListModel())
        return;
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(VxPropertyListItemModel::LabelColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(VxPropertyListItemModel::KeyColumn, QHeaderView::Fixed);
    header()->setMinimumSectionSize(KeyWidth);
    header()->resizeSection(VxPropertyListItemModel::ValueColumn, ValueWidth);
    header()->resizeSection(VxPropertyListItemModel::KeyColumn, KeyWidth);
    connect(newModel, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        d->forgetGesture();
        d->memory.remember(this);
        // Listeners hear that the former rows are no longer selected: a reset would not tell.
        clearSelection();
    });
    connect(newModel, &QAbstractItemModel::modelReset, this, [this] {
        d->showRows();
        d->memory.restore(this);
    });
    d->showRows();
}

bool VxSideNavPropertyListView::isGroupCollapsed(const QString &path) const
{
    return d->collapsed.contains(path);
}

void VxSideNavPropertyListView::setGroupCollapsed(const QString &path, bool collapsed)
{
    if (collapsed)
        d->collapsed.insert(path);
    else
        d->collapsed.remove(path);
    d->showRows();
    viewport()->update(); // the heading's arrow
}

QStringList VxSideNavPropertyListView::getCollapsedGroups() const
{
    QStringList paths = d->collapsed.values();
    paths.sort();
    return paths;
}

void VxSideNavPropertyListView::setCollapsedGroups(const QStringList &paths)
{
    d->collapsed = QSet<QString>(paths.begin(), paths.end());
    d->showRows();
    viewport()->update();
}

void VxSideNavPropertyListView::mousePressEvent(QMouseEvent *event)
{
    d->forgetGesture();
    const bool plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (!plain || !d->pressCell(indexAt(event->pos()), event->pos()))
        QTreeView::mousePressEvent(event);
}

void VxSideNavPropertyListView::mouseMoveEvent(QMouseEvent *event)
{
    if (d->pressed.isValid() && event->buttons() & Qt::LeftButton) {
        d->dragTo(event);
        return;
    }
    QTreeView::mouseMoveEvent(event);
    d->showCursor(event->pos());
}

void VxSideNavPropertyListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QModelIndex clicked = d->edit ? QModelIndex() : QModelIndex(d->pressed);
    d->forgetGesture();
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && clicked.isValid() &&
        visualRect(clicked).contains(event->pos()))
        d->activate(clicked);
}

/** The second press of a double click means what the first one did, except on a heading's text. */
void VxSideNavPropertyListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    const VxPropertyListItemModel *list = getPropertyListModel();
    const bool onText = list && list->isHeading(index) &&
                        !VxPropertyPainter::arrowRect(d->rowRect(index)).contains(event->pos());
    if (onText) {
        const QString path = list->getGroupPath(index);
        setGroupCollapsed(path, !isGroupCollapsed(path));
    } else {
        mousePressEvent(event);
    }
}

void VxSideNavPropertyListView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex row = currentIndex();
    const QModelIndex value = row.sibling(row.row(), VxPropertyListItemModel::ValueColumn);
    if (event->key() == Qt::Key_Escape && d->edit) {
        d->edit->putBack();
        d->forgetGesture();
        return;
    }
    // What the open field leaves is not meant for the list.
    if (state() == EditingState) {
        QTreeView::keyPressEvent(event);
        return;
    }
    const bool begins = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                        event->key() == Qt::Key_F2;
    if (begins && d->isEditable(value))
        d->activate(value);
    else if (!d->typeInto(value, event) && !d->openOrClose(row, event->key()))
        QTreeView::keyPressEvent(event);
}

void VxSideNavPropertyListView::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::ActiveWindowFocusReason)
        d->forgetGesture();
    QTreeView::focusOutEvent(event);
}

void VxSideNavPropertyListView::hideEvent(QHideEvent *event)
{
    d->forgetGesture();
    QTreeView::hideEvent(event);
}

void VxSideNavPropertyListView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    const QVector<VxProperty *> targets =
        index.isValid() ? d->targetsOf(index) : QVector<VxProperty *>();
    if (targets.isEmpty())
        return;
    auto *menu = new VxPropertyMenu(targets, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
                      : event->globalPos());
}

/** Tab goes to the next field, over headings, switches and closed groups. */
void VxSideNavPropertyListView::closeEditor(QWidget *editor,
                                            QAbstractItemDelegate::EndEditHint hint)
{
    const bool forward = hint == QAbstractItemDelegate::EditNextItem;
    if (!forward && hint != QAbstractItemDelegate::EditPreviousItem) {
        QTreeView::closeEditor(editor, hint);
        return;
    }
    const QModelIndex next = d->valueBeside(currentIndex(), forward ? 1 : -1);
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (next.isValid()) {
        setCurrentIndex(next);
        edit(next);
    }
}
