#ifndef TIMEPANEROWS_H
#define TIMEPANEROWS_H

#include <QtCore/QVector>

class TimePaneKeys;
class TimePaneKeySelection;
class TimePaneViews;
class VxDopeSheetModel;
class VxNode;
class VxTimePane;

/// The dope sheet's rows: which nodes have some, and making them anew.
class TimePaneRows
{
public:
    /// All borrowed.
    TimePaneRows(VxTimePane *pane, TimePaneViews &views, TimePaneKeys &keys,
                 TimePaneKeySelection &keySelection);

    /// Make and delete the model; each does nothing if that is done.
    void initModel();
    void uninitModel();
    /// Makes the model with the rows of the whole scene.
    void fill();
    /// Makes the rows anew; without a model nothing happens.
    void refresh();
    void clear();
    /// While a scene is being loaded added nodes are queued.
    void startLoading() { ++m_sceneLoadDepth; }
    void finishLoading();
    void addNode(VxNode *node, bool addChildren);
    void removeNode(VxNode *node);
    /// Calls a function of the model with the topmost ancestor of the primary selection.
    void moveRoot(void (VxDopeSheetModel::*move)(VxNode *)) const;
    void collapseAll() const;
    /// Makes the ruler mark the keys of the primary selection's row, or of all rows.
    void followKeySource() const;

private:
    void followSceneChanges();
    void addNodes(const QVector<VxNode *> &nodes);
    void addRows(VxNode *node, bool addChildren) const;
    void placeRowsAbove(VxNode *node) const;
    void filterAnew() const;

    VxTimePane *m_pane;
    TimePaneViews &m_views;
    TimePaneKeys &m_keys;
    TimePaneKeySelection &m_keySelection;
    VxDopeSheetModel *m_model = nullptr; // null before the first show; owned by the pane
    int m_sceneLoadDepth = 0;
    QVector<VxNode *> m_queuedNodes; // added while a scene is being loaded
};

#endif
