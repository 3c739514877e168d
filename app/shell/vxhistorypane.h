#ifndef VXHISTORYPANE_H
#define VXHISTORYPANE_H

#include <vxcore/vxpane.h>

class HistoryModel;
class QListView;

/// The pane "Undo History": the past and undone states of the scene, the present one selected. A
/// click on a state, or the arrow keys, restore it.
class VxHistoryPane : public VxPane
{
    Q_OBJECT
public:
    VxHistoryPane();

    /// Both never null; owned by the pane.
    QListView *getListView() const { return m_view; }
    HistoryModel *getModel() const { return m_model; }

private:
    void restoreState(const QModelIndex &state);
    void showPresent();

    HistoryModel *m_model;
    QListView *m_view;
    bool m_isShowing = false; // the history's state is being applied to the view
};

#endif
