#ifndef SCENETREEVIEW_H
#define SCENETREEVIEW_H

#include <QTreeView>
#include <QVector>

class QMenu;
class SceneTreeModel;
class VxNode;
class VxScene;

/// The editable tree of the scene's nodes: F2 or a double click renames, Delete removes, rows are
/// dragged below others or between them, and a press on an eye shows or hides the node, or all
/// selected ones when it is one of these, and selects nothing. Dragged nodes keep their world
/// transform; with Shift held at the drop they keep their values.
class SceneTreeView : public QTreeView
{
    Q_OBJECT
public:
    /// Both are borrowed and must outlive the view.
    SceneTreeView(SceneTreeModel *model, VxScene *scene, QWidget *parent = nullptr);

    /// The selected nodes in the order of their selection.
    QVector<VxNode *> selectedNodes() const;

    /// A new menu of commands for the selected rows and the tree; the caller's.
    QMenu *makeContextMenu();

public Q_SLOTS:
    void renameCurrent();
    void removeSelected();
    void showSelected();
    void hideSelected();
    /// Adds everything below the selected nodes to the selection.
    void selectChildren();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void pressEye(const QModelIndex &eye);
    void showDisplaced(const QVector<VxNode *> &nodes);

    SceneTreeModel *const m_model;
    VxScene *const m_scene;
    bool m_isOnEye = false; // from the press on an eye to the release
};

#endif
