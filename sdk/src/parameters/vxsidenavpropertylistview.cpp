#include <vxcore/vxsidenavpropertylistview.h>

#include "parameters/vxpropertychoice.h"
#include "parameters/vxpropertyclipboard.h"
#include "parameters/vxpropertydelegate.h"
#include "parameters/vxpropertydrag.h"
#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertykeys.h"
#include "parameters/vxpropertylistcolumns.h"
#include "parameters/vxpropertylistmemory.h"
#include "parameters/vxpropertymenu.h"
#include "parameters/vxpropertypainter.h"
#include "scene/vxcurrenttime.h"

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>

class VxSideNavPropertyListView::Private
{
public:
    explicit Private(VxSideNavPropertyListView *view)
        : q(view)
        , columns(view)
    {
    }

    using Properties = VxPropertyChoice::Properties;

    Properties propertiesOf(const QModelIndex &index) const;
    QVector<Properties> rowsOf(const QModelIndex &index) const;
    Properties targetsOf(const QModelIndex &index) const;
    bool isNumber(const QModelIndex &index) const;
    bool isSwitch(const QModelIndex &index) const;
    bool isEditable(const QModelIndex &index) const;
    QModelIndex valueBeside(const QModelIndex &index, int direction) const;
    bool isHeading(const QModelIndex &index) const;
    bool isOnArrow(const QModelIndex &heading, const QPoint &position) const;

    void showHeadings();
    void showRows();
    void toggleGroup(const QModelIndex &heading);
    void endGesture();
    bool pressCell(const QModelIndex &index, const QPoint &position);
    void dragTo(const QMouseEvent *event);
    void showDistance(const QPoint &position);
    void replayPress();
    void activate(const QModelIndex &value);
    void flip(const QModelIndex &value);
    bool typeInto(const QModelIndex &value, QKeyEvent *event);
    bool openOrClose(const QModelIndex &index, int key);
    bool takeText(const QKeyEvent *event);
    void showCursor(const QPoint &position);

    VxSideNavPropertyListView *q;
    QSet<QString> collapsed;
    VxPropertyListMemory memory;
    VxPropertyListColumns columns;

    QPersistentModelIndex pressed; // a value's cell, from the press until the button is released
    QPoint pressPosition;
    std::unique_ptr<QMouseEvent> selecting; // a press with Ctrl or Shift that may become a drag
    std::shared_ptr<VxPropertyDrag> drag;
    bool dragEnded = false; // the drag has ended, but the button is still held
    bool isDistanceBeingShown = false;

    // A press first ends the typing in another field, and then has its own effect.
    QPersistentModelIndex keyedByPress; // a row that got its key from typed text
    bool noticedByPress = false;        // whether the commit showed a message
};

QVector<VxProperty *>
VxSideNavPropertyListView::Private::propertiesOf(const QModelIndex &index) const
{
    return VxPropertyChoice::propertiesOf(q->getPropertyListModel(), index);
}

QVector<QVector<VxProperty *>>
VxSideNavPropertyListView::Private::rowsOf(const QModelIndex &index) const
{
    return VxPropertyChoice::rowsOf(q->getPropertyListModel(), q->selectionModel(), index);
}

QVector<VxProperty *> VxSideNavPropertyListView::Private::targetsOf(const QModelIndex &index) const
{
    Properties targets;
    const QVector<Properties> rows = rowsOf(index);
    for (const Properties &row : rows)
        targets += row;
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

/** The next editable field, from a row downwards (1) or upwards (-1). */
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

bool VxSideNavPropertyListView::Private::isHeading(const QModelIndex &index) const
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    return model && model->isHeading(index);
}

bool VxSideNavPropertyListView::Private::isOnArrow(const QModelIndex &heading,
                                                   const QPoint &position) const
{
    const QRect cell = q->visualRect(heading.sibling(heading.row(), 0));
    const QRect row(0, cell.top(), q->viewport()->width(), cell.height());
    return VxPropertyPainter::arrowRect(row).contains(position);
}

/** Once for new rows, and before any is hidden: each call lays out all visible rows again. */
void VxSideNavPropertyListView::Private::showHeadings()
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        if (model->isHeading(model->index(row, 0)))
            q->setFirstColumnSpanned(row, QModelIndex(), true);
    }
}

void VxSideNavPropertyListView::Private::showRows()
{
    const VxPropertyListItemModel *model = q->getPropertyListModel();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const bool heading = model->isHeading(index);
        q->setRowHidden(row, QModelIndex(),
                        !heading && collapsed.contains(model->getGroupPath(index)));
    }
    q->viewport()->update(); // the arrows of headings
}

void VxSideNavPropertyListView::Private::toggleGroup(const QModelIndex &heading)
{
    const QString path = q->getPropertyListModel()->getGroupPath(heading);
    q->setGroupCollapsed(path, !q->isGroupCollapsed(path));
}

/** With its undo entry; events until the release are ignored. */
void VxSideNavPropertyListView::Private::endGesture()
{
    if (drag)
        QToolTip::hideText();
    dragEnded = dragEnded || drag || selecting;
    drag.reset();
    selecting.reset();
    pressed = QModelIndex();
}

/** True when the press was a command of its own and does not select. */
bool VxSideNavPropertyListView::Private::pressCell(const QModelIndex &index, const QPoint &position)
{
    if (!q->getPropertyListModel() || !index.isValid())
        return false;
    if (isHeading(index)) {
        const bool isCommand = isOnArrow(index, position);
        if (isCommand)
            toggleGroup(index);
        return isCommand;
    }
    if (index.column() == VxPropertyListItemModel::KeyColumn) {
        // A click on the mark after typing keeps the key that the commit made.
        if (index.row() != keyedByPress.row())
            VxPropertyKeys::toggleKeys(targetsOf(index), vxCurrentTime());
        return true;
    }
    if (isEditable(index)) {
        pressed = index;
        pressPosition = position;
    }
    return false;
}

void VxSideNavPropertyListView::Private::dragTo(const QMouseEvent *event)
{
    if (!drag && isNumber(pressed) &&
        qAbs(event->x() - pressPosition.x()) >= QApplication::startDragDistance()) {
        selecting.reset();
        drag = std::make_shared<VxPropertyDrag>(propertiesOf(pressed), vxCurrentTime(),
                                                event->globalPos());
    }
    if (!drag)
        return;
    const std::shared_ptr<VxPropertyDrag> moved = drag; // listeners may end the gesture
    const QPointer<VxSideNavPropertyListView> view = q;
    moved->moveTo(event->globalPos(), event->modifiers());
    if (!view || drag != moved)
        return;
    showDistance(event->globalPos());
    if (!view || drag != moved)
        return;
    const QString refusal = drag->refusal();
    if (!refusal.isEmpty())
        Q_EMIT q->noticed(refusal);
}

/** How far values that differ are dragged, which their field cannot show. */
void VxSideNavPropertyListView::Private::showDistance(const QPoint &position)
{
    const auto *first = qobject_cast<const VxNumericProperty *>(propertiesOf(pressed).value(0));
    if (!first || isDistanceBeingShown ||
        !pressed.data(VxPropertyListItemModel::MixedRole).toBool())
        return;
    // Creating its window delivers queued mouse moves; a nested call would create a second one.
    isDistanceBeingShown = true;
    const QPointer<VxSideNavPropertyListView> view = q;
    QToolTip::showText(position, VxPropertyHints::offset(first, drag->steps()), q);
    if (!view)
        return;
    isDistanceBeingShown = false;
    if (!drag)
        QToolTip::hideText();
}

/** The press with Ctrl or Shift was no drag, so it selects. */
void VxSideNavPropertyListView::Private::replayPress()
{
    const std::unique_ptr<QMouseEvent> press = std::move(selecting);
    pressed = QModelIndex();
    if (press)
        q->QTreeView::mousePressEvent(press.get());
}

/** The effect of a click on a value. */
void VxSideNavPropertyListView::Private::activate(const QModelIndex &value)
{
    if (isSwitch(value))
        flip(value);
    else if (isEditable(value))
        q->edit(value);
}

/** Switches with different values are first switched on. */
void VxSideNavPropertyListView::Private::flip(const QModelIndex &value)
{
    const Properties properties = propertiesOf(value);
    const auto *flag = qobject_cast<const VxBoolProperty *>(properties.value(0));
    const bool mixed = value.data(VxPropertyListItemModel::MixedRole).toBool();
    VxPropertyEdit edit(properties, vxCurrentTime());
    if (!edit.setValue(mixed || !flag->getBoolValue(vxCurrentTime()) ? 1 : 0))
        Q_EMIT q->noticed(edit.refusal());
}

/** Starts editing with the key's own text. */
bool VxSideNavPropertyListView::Private::typeInto(const QModelIndex &value, QKeyEvent *event)
{
    const QString text = event->text();
    const bool begins =
        text.size() == 1 && (text.at(0).isDigit() || QStringLiteral("+-.,*/(").contains(text));
    if (!begins || !isNumber(value) || event->modifiers() & Qt::ControlModifier)
        return false;
    q->edit(value);
    if (QWidget *field = QApplication::focusWidget())
        QApplication::sendEvent(field, event);
    return true;
}

bool VxSideNavPropertyListView::Private::openOrClose(const QModelIndex &index, int key)
{
    if (!isHeading(index))
        return false;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        toggleGroup(index);
    else if (key == Qt::Key_Left || key == Qt::Key_Right)
        q->setGroupCollapsed(q->getPropertyListModel()->getGroupPath(index), key == Qt::Key_Left);
    else
        return false;
    return true;
}

/** Copies or pastes, when the key is a shortcut for it. */
bool VxSideNavPropertyListView::Private::takeText(const QKeyEvent *event)
{
    const bool copies = event->matches(QKeySequence::Copy);
    if (!copies && !event->matches(QKeySequence::Paste))
        return false;
    const QVector<Properties> rows = rowsOf(q->currentIndex());
    if (rows.isEmpty())
        return true;
    if (copies)
        QGuiApplication::clipboard()->setText(VxPropertyClipboard::text(rows, vxCurrentTime()));
    else
        Q_EMIT q->noticed(VxPropertyClipboard::paste(rows, vxCurrentTime(),
                                                     QGuiApplication::clipboard()->text()));
    return true;
}

void VxSideNavPropertyListView::Private::showCursor(const QPoint &position)
{
    if (isNumber(q->indexAt(position)))
        q->viewport()->setCursor(Qt::SizeHorCursor);
    else
        q->viewport()->unsetCursor();
}

VxSideNavPropertyListView::VxSideNavPropertyListView(QWidget *parent)
    : QTreeView(parent)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("ParametersPropertyList"));
    setAccessibleName(tr("Parameters"));
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
    auto *delegate = new VxPropertyDelegate(this);
    setItemDelegate(delegate);
    connect(delegate, &VxPropertyDelegate::noticed, this, [this](const QString &text) {
        d->noticedByPress = QGuiApplication::mouseButtons() != Qt::NoButton;
        Q_EMIT noticed(text);
    });
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
    d->columns.setUp();
    connect(newModel, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        d->endGesture();
        d->memory.save(this);
        // Reports the deselection of the former rows: a reset would not.
        clearSelection();
    });
    connect(newModel, &QAbstractItemModel::modelReset, this, [this] {
        d->showHeadings();
        d->showRows();
        d->memory.restore(this);
    });
    d->showHeadings();
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
}

int VxSideNavPropertyListView::getValueWidth() const
{
    return d->columns.valueWidth();
}

void VxSideNavPropertyListView::setValueWidth(int width)
{
    d->columns.setValueWidth(width);
}

/** Keys with priority over shortcuts elsewhere. */
bool VxSideNavPropertyListView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool taken =
            d->drag ? key->key() == Qt::Key_Escape
                    : currentIndex().isValid() &&
                          (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste));
        if (taken && state() != EditingState) {
            event->accept();
            return true;
        }
    }
    const bool done = QTreeView::event(event);
    if (event->type() == QEvent::FontChange)
        d->columns.fit();
    return done;
}

void VxSideNavPropertyListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    d->columns.fit();
}

void VxSideNavPropertyListView::mousePressEvent(QMouseEvent *event)
{
    d->endGesture();
    d->dragEnded = false;
    if (!d->noticedByPress)
        Q_EMIT noticed(QString());
    d->noticedByPress = false;
    const QModelIndex index = indexAt(event->pos());
    const bool left = event->button() == Qt::LeftButton;
    if (left && event->modifiers() == Qt::NoModifier) {
        if (!d->pressCell(index, event->pos()))
            QTreeView::mousePressEvent(event);
    } else if (left && d->isNumber(index)) {
        d->pressed = index;
        d->pressPosition = event->pos();
        d->selecting = std::make_unique<QMouseEvent>(*event);
    } else {
        QTreeView::mousePressEvent(event);
    }
    d->keyedByPress = QModelIndex();
}

void VxSideNavPropertyListView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton && (d->pressed.isValid() || d->dragEnded)) {
        if (d->pressed.isValid())
            d->dragTo(event);
        return;
    }
    QTreeView::mouseMoveEvent(event);
    d->showCursor(event->pos());
}

void VxSideNavPropertyListView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && d->selecting)
        d->replayPress();
    const QModelIndex clicked = d->drag ? QModelIndex() : QModelIndex(d->pressed);
    d->endGesture();
    d->dragEnded = d->dragEnded && event->buttons() & Qt::LeftButton;
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && clicked.isValid() &&
        visualRect(clicked).contains(event->pos()))
        d->activate(clicked);
}

/** The second press of a double click acts like the first, except on a heading's text. */
void VxSideNavPropertyListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (d->isHeading(index) && !d->isOnArrow(index, event->pos()))
        d->toggleGroup(index);
    else
        mousePressEvent(event);
}

void VxSideNavPropertyListView::keyPressEvent(QKeyEvent *event)
{
    // While a value is dragged, no other key may start another edit of it.
    if (d->drag) {
        if (event->key() == Qt::Key_Escape) {
            d->drag->rollBack();
            d->endGesture();
        }
        return;
    }
    // Keys that the open field ignores are not for the list.
    if (state() == EditingState) {
        QTreeView::keyPressEvent(event);
        return;
    }
    const QModelIndex row = currentIndex();
    const QModelIndex value = row.sibling(row.row(), VxPropertyListItemModel::ValueColumn);
    const bool begins = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                        event->key() == Qt::Key_F2;
    if (begins && d->isEditable(value))
        d->activate(value);
    else if (!d->takeText(event) && !d->typeInto(value, event) &&
             !d->openOrClose(row, event->key()))
        QTreeView::keyPressEvent(event);
}

void VxSideNavPropertyListView::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::ActiveWindowFocusReason)
        d->endGesture();
    QTreeView::focusOutEvent(event);
}

void VxSideNavPropertyListView::hideEvent(QHideEvent *event)
{
    d->endGesture();
    QTreeView::hideEvent(event);
}

void VxSideNavPropertyListView::contextMenuEvent(QContextMenuEvent *event)
{
    d->endGesture();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    const auto rows = d->rowsOf(index);
    if (rows.isEmpty())
        return;
    auto *menu = new VxPropertyMenu(rows, this);
    connect(menu, &VxPropertyMenu::noticed, this, &VxSideNavPropertyListView::noticed);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
                      : event->globalPos());
}

void VxSideNavPropertyListView::commitData(QWidget *editor)
{
    const QPersistentModelIndex index = currentIndex();
    const auto isOnKey = [&index] {
        return index.data(VxPropertyListItemModel::KeyStateRole).toInt() ==
               VxPropertyListItemModel::OnKey;
    };
    const bool before = isOnKey();
    QTreeView::commitData(editor);
    const bool pressing = QGuiApplication::mouseButtons() != Qt::NoButton;
    d->keyedByPress = pressing && !before && isOnKey() ? index : QPersistentModelIndex();
}

/** Tab moves to the next field, skipping headings, switches and closed groups. */
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
