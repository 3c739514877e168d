#ifndef DOPESHEETROWSELECTION_H
#define DOPESHEETROWSELECTION_H

#include <QtCore/QItemSelection>
#include <QtCore/QVector>
#include <vector>

class DopeSheetSelectionModel;
class VxDopeSheetView;
class VxNode;
class VxProperty;

/// Synchronises the selected rows of the dope sheet with the selected nodes of the scene.
///
/// However rows are selected, the scene's selection becomes the nodes that have a selected row; a
/// row of a property or a group counts for its node. Conversely, the rows of the scene's selected
/// nodes are selected. Removing rows or filtering them out changes nothing in the scene.
class DopeSheetRowSelection
{
public:
    explicit DopeSheetRowSelection(VxDopeSheetView *view);

    /// After a change of the row selection; modifiers: those of the mouse press. With Ctrl only the
    /// nodes whose rows changed are selected or deselected, else the scene's selection is cleared
    /// first.
    void handleChange(const QItemSelection &selected, const QItemSelection &deselected,
                      Qt::KeyboardModifiers modifiers);
    /// Selects the nodes of the selected rows in the scene, if they differ.
    void selectNodes(Qt::KeyboardModifiers modifiers);
    /// Selects the node of a row in the scene, in addition to the others or exclusively.
    void selectNodeOf(const QModelIndex &row, bool adds) const;
    /// Selects the rows of the scene's selected nodes, in addition to the selected rows or
    /// exclusively.
    void addSceneSelection() const;
    void showSceneSelection();
    /// True while the scene's selection is changed here.
    bool isChangingNodes() const { return m_isChangingNodes; }

    /// The properties of the selected rows, each once, in the order of the rows.
    QVector<VxProperty *> properties() const;

    /// Reports the properties of the selected rows if they differ from these.
    void reportChangeSince(const QVector<VxProperty *> &before) const;

    /// During its lifetime, changes of the row selection are not applied to the scene.
    class Hold
    {
    public:
        explicit Hold(DopeSheetRowSelection *selection)
            : m_selection(selection)
        {
            ++m_selection->m_holdDepth;
        }
        ~Hold() { --m_selection->m_holdDepth; }
        Q_DISABLE_COPY(Hold)

    private:
        DopeSheetRowSelection *m_selection;
    };

    /// Before rows of the view's model are removed: closes them, and deselects them in one step.
    /// The view and the selection model would walk through all rows above for each of them.
    void prepareRemoval(const QModelIndex &parent, int first, int last);
    void finishRemoval();

private:
    DopeSheetSelectionModel *model() const;
    std::vector<QModelIndex> rows() const;
    VxNode *nodeOf(const QModelIndex &row) const;
    void deselectRowsOf(const QItemSelection &deselected) const;
    void setSceneSelection(bool adds);
    /// Deselects the rows for which leaves(row) is true; false when there are none.
    template <typename Leaves> bool deselect(const Leaves &leaves) const;
    void deselectUnselectable() const;
    void report() const;

    VxDopeSheetView *m_view;
    bool m_isChangingNodes = false;
    bool m_isRemoving = false;
    int m_holdDepth = 0;
};

#endif
