#ifndef VXSCENEPANE_H
#define VXSCENEPANE_H

#include <vxcore/vxpane.h>

class QTreeView;
class SceneTreeModel;

/// The pane "Scene": the tree of all nodes, with the scene's selection.
class VxScenePane : public VxPane
{
    Q_OBJECT
public:
    VxScenePane();
    ~VxScenePane() override;

    /// Both never null; owned by the pane.
    QTreeView *getTreeView() const { return m_view; }
    SceneTreeModel *getModel() const { return m_model; }

private:
    void showFirstLevels();

    QTreeView *m_view;
    SceneTreeModel *m_model;
};

#endif
