#ifndef SCENESELECTIONLINK_H
#define SCENESELECTIONLINK_H

#include "scenetree/scenetreecompanion.h"

class QItemSelection;

/// Synchronises the selected rows of a tree view with the selected nodes of the scene.
///
/// The view's changes are applied to the scene at once. The scene's changes are applied to the view
/// once per event loop iteration, so that a script that selects a thousand nodes one by one costs
/// one pass.
class SceneSelectionLink : public SceneTreeCompanion
{
    Q_OBJECT
public:
    /// All are borrowed. The view must have the model set; the parent should be the view.
    SceneSelectionLink(QTreeView *view, SceneTreeModel *model, VxScene *scene, QObject *parent);

private:
    void handleViewSelection(const QItemSelection &selected, const QItemSelection &deselected);
    void handleViewCurrent(const QModelIndex &current);
    void catchUp() override;
    QItemSelection sceneSelection() const;

    bool m_isShowing = false; // the scene's state is being applied to the view
    bool m_isSending = false; // the view's state is being applied to the scene
    bool m_primaryMoved = true;
};

#endif
