#ifndef SCENESELECTION_H
#define SCENESELECTION_H

#include <QtCore/QPointer>
#include <QtCore/QVector>

class VxNode;
class VxScene;

/// The selected nodes in the order of their selection, and the primary one among them.
///
/// Each node stores its index in the list, and a removed entry stays as a gap until enough of them
/// have gathered, so that selecting and deselecting take constant time however many nodes are
/// selected. Signals are sent when all state is new: the nodes' own, then the list's, then the
/// primary selection's.
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
    /// For the scene's destructor: sends no signal.
    void reset();
    /// Null: nodes stay selected, none of them primary.
    void setPrimary(VxNode *node);

private:
    Q_DISABLE_COPY(SceneSelection)
    /// Adds to or removes from the list; false when nothing changed.
    bool enter(VxNode *node);
    bool leave(VxNode *node);
    void dropGaps();
    VxNode *last();
    void report(const QVector<VxNode *> &changed);

    VxScene *m_scene;
    QVector<VxNode *> m_list;
    int m_gaps = 0;
    VxNode *m_primary = nullptr;
    /// The primary selection last reported; receivers may change the selection in turn.
    const VxNode *m_reportedPrimary = nullptr;
};

#endif
