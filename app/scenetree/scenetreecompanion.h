#ifndef SCENETREECOMPANION_H
#define SCENETREECOMPANION_H

#include <QObject>
#include <QTimer>

class QTreeView;
class SceneTreeModel;
class VxScene;

/// What goes along with a tree view of the scene's nodes and follows the scene: however many
/// changes there are, it catches up once per turn of the event loop.
class SceneTreeCompanion : public QObject
{
    Q_OBJECT
protected:
    /// All are borrowed. The view must have the model set; the parent should be the view.
    SceneTreeCompanion(QTreeView *view, SceneTreeModel *model, VxScene *scene, QObject *parent);

    /// Does what there is to do; nothing is waiting any more.
    virtual void catchUp() = 0;
    /// Has catchUp() called in the next turn.
    void catchUpLater() { m_timer.start(0); }
    /// Forgets what is waiting.
    void stopWaiting() { m_timer.stop(); }

    QTreeView *const m_view;
    SceneTreeModel *const m_model;
    VxScene *const m_scene;

private:
    QTimer m_timer;
};

#endif
