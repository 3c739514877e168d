#ifndef SCENE_SCENESELECTION_H
#define SCENE_SCENESELECTION_H

#include <QtCore/QPointer>
#include <QtCore/QVector>

class VxNode;
class VxScene;

/// The selected nodes in the order of their selection, and the primary one among them.
///
/// Each node knows its place in the list, and a place that is given up stays empty until enough of
/// them have gathered, so that selecting and deselecting cost the same however many nodes are
/// selected. Signals are sent when everything is in its new state: the nodes' own, then the list's,
/// then the primary selection's.
class SceneSelection
{
public:
    explicit SceneSelection(VxScene *scene)
        : m_scene(scene)
    {
    }

    VxNode *primary() const { return m_primary; }
    int count() const { return m_list.size() - m_gaps; }
    QVector<VxNode *> nodes() const;

    /// Makes the selectable nodes of the scene among these selected, and the last one primary.
    void select(const QVector<VxNode *> &nodes);
    /// Nodes that are not selected are left out.
    void deselect(const QVector<VxNode *> &nodes);
    void selectAll();
    void deselectAll();
    /// For the end of the scene: without a word to anyone.
    void forget();
    /// Null: nodes stay selected, none of them primary.
    void setPrimary(VxNode *node);

private:
    Q_DISABLE_COPY(SceneSelection)
    /// Adds to or takes from the list; false when there was nothing to do.
    bool enter(VxNode *node);
    bool leave(VxNode *node);
    void dropGaps();
    VxNode *last();
    void report(const QVector<VxNode *> &changed);

    VxScene *m_scene;
    QVector<VxNode *> m_list;
    int m_gaps = 0;
    VxNode *m_primary = nullptr;
    /// The primary selection that was told of last; receivers may change the selection in turn.
    const VxNode *m_reportedPrimary = nullptr;
};

#endif
