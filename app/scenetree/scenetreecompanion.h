#ifndef SCENETREECOMPANION_H
#define SCENETREECOMPANION_H

#include <QObject>
#include <QTimer>

class QTreeView;
class SceneTreeModel;
class VxScene;

/// Base of helpers of a tree view of the scene's nodes that follow the scene: they update once per
/// event loop iteration, however many changes there are.
class SceneTreeCompanion : public QObject
{
    Q_OBJECT
protected:
    /// All are borrowed. The view must have the model set; the parent should be the view.
    SceneTreeCompanion(QTreeView *view, SceneTreeModel *model, VxScene *scene, QObject *parent);

    /// Performs the pending update.
    virtual void catchUp() = 0;
    /// Schedules catchUp() for the next iteration.
    void catchUpLater() { m_timer.start(0); }
    /// Cancels the pending update.
    void cancelCatchUp() { m_timer.stop(); }

    QTreeView *const m_view;
    SceneTreeModel *const m_model;
    VxScene *const m_scene;

private:
    QTimer m_timer;
};

#endif
