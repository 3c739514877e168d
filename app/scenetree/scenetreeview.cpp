#include "scenetree/scenetreeview.h"

#include "scenetree/sceneedits.h"
#include "scenetree/scenetreemodel.h"
#include "scenetree/treeindentation.h"
#include "scenetree/visibilitydelegate.h"
#include "widgets/actionsubmenu.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMenu>
#include <QStatusTipEvent>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

bool isOwnKey(const QKeyEvent *event)
{
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    return plain && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_F2);
}

/// Shows a hint in the window's status line; an empty one clears it.
void showHint(QWidget *widget, const QString &text)
{
    QStatusTipEvent hint(text);
    QCoreApplication::sendEvent(widget, &hint);
}

} // namespace

SceneTreeView::SceneTreeView(SceneTreeModel *model, VxScene *scene, QWidget *parent)
    : QTreeView(parent)
    , m_model(model)
    , m_scene(scene)
{
    setModel(model);
    connect(model, &SceneTreeModel::displaced, this, &SceneTreeView::showDisplaced);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setIndentation(vxApp->getStyle()->metric(VxStyle::PM_VxTreeIndentation));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setExpandsOnDoubleClick(false);
    // The model decides what can be dropped: only nodes of this scene.
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setAutoExpandDelay(600);
    setItemDelegateForColumn(SceneTreeModel::EyeColumn, new VisibilityDelegate(this));
    setHeaderHidden(true);
    header()->setMinimumSectionSize(1);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(SceneTreeModel::NameColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(SceneTreeModel::EyeColumn, QHeaderView::Fixed);
    header()->resizeSection(SceneTreeModel::EyeColumn, VisibilityDelegate::columnWidth());
    new TreeIndentation(this);
}

QVector<VxNode *> SceneTreeView::selectedNodes() const
{
    return m_model->nodesAt(selectionModel()->selectedRows());
}

QMenu *SceneTreeView::makeContextMenu()
{
    auto *menu = new QMenu(this);
    const bool any = selectionModel()->hasSelection();
    const auto add = [this, menu](const QString &text, bool enabled, auto slot,
                                  const QKeySequence &shown = {}) {
        QAction *action = menu->addAction(text, this, slot);
        action->setEnabled(enabled);
        action->setShortcut(shown);
    };
    add(tr("Rename"), currentIndex().isValid(), &SceneTreeView::renameCurrent,
        QKeySequence(Qt::Key_F2));
    add(tr("Delete"), any, &SceneTreeView::removeSelected, QKeySequence(Qt::Key_Delete));
    menu->addSeparator();
    add(tr("Show"), any, &SceneTreeView::showSelected);
    add(tr("Hide"), any, &SceneTreeView::hideSelected);
    menu->addSeparator();
    // They act on the scene's selection, which is the tree's.
    if (addActionSubMenu(menu, tr("Create"), QStringLiteral("Create")))
        menu->addSeparator();
    add(tr("Select Children"), any, &SceneTreeView::selectChildren);
    menu->addSeparator();
    add(tr("Expand All"), true, &QTreeView::expandAll);
    add(tr("Collapse All"), true, &QTreeView::collapseAll);
    return menu;
}

void SceneTreeView::renameCurrent()
{
    if (currentIndex().isValid())
        edit(currentIndex().siblingAtColumn(SceneTreeModel::NameColumn));
}

void SceneTreeView::removeSelected()
{
    SceneEdits::remove(m_scene, selectedNodes());
}

void SceneTreeView::showSelected()
{
    SceneEdits::setVisible(selectedNodes(), true);
}

void SceneTreeView::hideSelected()
{
    SceneEdits::setVisible(selectedNodes(), false);
}

void SceneTreeView::selectChildren()
{
    SceneEdits::selectChildren(m_scene);
}

/** The tree's keys have priority over the shortcuts of the window's actions. */
bool SceneTreeView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void SceneTreeView::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(event) || state() == EditingState)
        QTreeView::keyPressEvent(event);
    else if (event->key() == Qt::Key_Delete)
        removeSelected();
    else
        renameCurrent();
}

void SceneTreeView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    m_isOnEye = event->button() == Qt::LeftButton && index.column() == SceneTreeModel::EyeColumn;
    if (m_isOnEye)
        pressEye(index);
    else
        QTreeView::mousePressEvent(event);
}

void SceneTreeView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isOnEye)
        QTreeView::mouseMoveEvent(event);
}

void SceneTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_isOnEye)
        QTreeView::mouseReleaseEvent(event);
    m_isOnEye = false;
}

/** The second press of a double click on an eye is an ordinary press. */
void SceneTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (indexAt(event->pos()).column() == SceneTreeModel::EyeColumn)
        mousePressEvent(event);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

void SceneTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = makeContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void SceneTreeView::pressEye(const QModelIndex &eye)
{
    const QModelIndex name = eye.siblingAtColumn(SceneTreeModel::NameColumn);
    const QVector<VxNode *> nodes =
        selectionModel()->isSelected(name) ? selectedNodes() : m_model->nodesAt({name});
    SceneEdits::setVisible(nodes, eye.data(Qt::CheckStateRole).toInt() != Qt::Checked);
}

void SceneTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    QTreeView::dragEnterEvent(event);
    if (event->isAccepted())
        showHint(this,
                 tr("Drop to reparent. Keeps the world position; with Shift, keeps the values."));
}

void SceneTreeView::dragLeaveEvent(QDragLeaveEvent *event)
{
    showHint(this, QString());
    QTreeView::dragLeaveEvent(event);
}

void SceneTreeView::dropEvent(QDropEvent *event)
{
    showHint(this, QString());
    const bool keepsValues = event->keyboardModifiers() & Qt::ShiftModifier;
    m_model->setDropKeeps(keepsValues ? SceneEdits::Kept::Values : SceneEdits::Kept::WorldPlace);
    QTreeView::dropEvent(event);
    // A closed parent would hide the dropped rows.
    if (currentIndex().isValid())
        scrollTo(currentIndex());
}

void SceneTreeView::showDisplaced(const QVector<VxNode *> &nodes)
{
    const QString text =
        nodes.size() == 1
            ? tr("\"%1\" could not keep its world position: values are locked or linked, or a "
                 "parent is scaled.")
                  .arg(nodes.first()->getLabel())
            : tr("%n nodes could not keep their world positions below their new parent.", nullptr,
                 nodes.size());
    vxShowStatusMessage(text);
}
