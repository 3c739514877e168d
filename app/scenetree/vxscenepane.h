#ifndef VXSCENEPANE_H
#define VXSCENEPANE_H

#include <vxcore/vxpane.h>

class EmptyHint;
class SceneTreeFilter;
class SceneTreeModel;
class SceneTreeView;
class SearchField;

/// The pane "Scene": the tree of all nodes, with the scene's selection, and a field to search it.
class VxScenePane : public VxPane
{
    Q_OBJECT
public:
    VxScenePane();

    /// All never null; owned by the pane.
    SceneTreeView *getTreeView() const { return m_view; }
    SceneTreeModel *getModel() const { return m_model; }
    SearchField *getSearchField() const { return m_search; }

protected:
    /// Down in the field moves the focus to the tree, Return selects the matches.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildSearch();
    void showFirstLevels();
    void showFound();
    void updateHint();
    void selectFound();

    SceneTreeModel *m_model;
    SearchField *m_search; // before the view, for the Tab key
    SceneTreeView *m_view;
    SceneTreeFilter *m_filter;
    EmptyHint *m_hint;
};

#endif
