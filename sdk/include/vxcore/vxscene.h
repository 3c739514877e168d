#ifndef VXSCENE_H
#define VXSCENE_H

#include <QtCore/QObject>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxnodelistiterator.h>
#include <vxcore/vxsignalguard.h>
#include <vxcore/vxtimerange.h>

class VxNode;

/// The scene: its nodes and their selection, and the owner of time, ranges and playback.
///
/// Time, step, ranges, and adding and removing nodes are recorded for undo while a hold is open;
/// selection, looping and playback are not.
class VXCORE_EXPORT VxScene : public VxSignalGuard<QObject>
{
    Q_OBJECT
    Q_PROPERTY(bool playing READ isPlaying)
    Q_PROPERTY(bool looping READ isLoopingEnabled WRITE loopPlayback NOTIFY loopPlaybackChanged)
    Q_PROPERTY(bool animating READ isAnimating WRITE setAnimating NOTIFY animatingChanged)
public:
    class Private;

    /// Sets the global `vxScene` when there is none.
    explicit VxScene(QObject *parent = nullptr);
    /// Destroys the nodes. The scene sends no signals any more; elements and properties do.
    ~VxScene() override;

    /// The current time, in ticks. Not limited to any range.
    VxTime getTime() const;
    /// Ticks per frame, at least 1; initially 160 (30 frames a second).
    VxTime getTimeStep() const;
    /// The play range, ends included; initially 0 to frame 30.
    VxTimeRange getPlayRange() const;
    /// The animation range, ends included; initially 0 to frame 30.
    VxTimeRange getAnimRange() const;

    /// True while setting the value of an animatable property makes keys; initially true.
    bool isAnimating() const;

    bool isPlaying() const;
    bool isLoopingEnabled() const;

    /// The node selected last, or null. Deselecting it makes the one selected before it primary.
    Q_INVOKABLE VxNode *getPrimarySelection() const;
    /// Selects the node and makes it the primary selection; null leaves the others selected
    /// without a primary one.
    void setPrimarySelection(VxNode *node);

    /// All nodes, each parent before its children, in the order of the hierarchy.
    VxNodeListIterator nodeListIterator() const;
    /// The selected nodes in the order in which they were selected.
    VxNodeListIterator selectedNodeListIterator() const;
    Q_INVOKABLE int getNumNodes() const;
    Q_INVOKABLE int getNumSelectedNodes() const;
    /// The nodes without a parent, in their order.
    QVector<VxNode *> getRootNodes() const;
    QVector<VxNode *> getNodes() const;
    QVector<VxNode *> getSelectedNodes() const;
    /// The first node of that name (or of that label), in hierarchy order; null when none has it.
    Q_INVOKABLE VxNode *findNode(const QString &name) const;
    Q_INVOKABLE VxNode *findNodeByLabel(const QString &label) const;
    /// The node with an identifier, see VxNode::getId(); null when none has it. Takes a constant
    /// time.
    VxNode *findNodeById(quint64 id) const;

    /// Adds a node with everything below it to the scene, as the last root node or, with a
    /// parent, as its last child. Emits nodeAdded() for each of them, parents first. Ownership
    /// passes to the scene. False, with a warning, when the node is null, is in a scene or has a
    /// parent, or when the parent given is not in this scene; the node then stays the caller's.
    bool addNode(VxNode *node, VxNode *parent = nullptr);
    /// Removes a node with everything below it from the scene: aboutToRemoveNode() while all is in
    /// place, then the removed nodes are deselected, every element below sends aboutToBeRemoved(),
    /// and after the removal nodeRemoved(). While a hold is open the history keeps the nodes for
    /// undo; otherwise they are destroyed. False, with a warning, when the node is not in this
    /// scene.
    Q_INVOKABLE bool removeNode(VxNode *node);

    /// Brackets a load: sceneLoadStarting() and sceneLoaded(). May be nested; only the outermost
    /// pair counts. Playback is stopped.
    void beginLoad();
    void endLoad();
    bool isLoading() const;
    /// Removes all nodes, after sceneClearStarting(), resets time, step, ranges, looping and
    /// animating, and clears the history. Each root node is announced as in removeNode(). Emits
    /// sceneCleared() at the end. Playback is stopped.
    void clear();

    void setTime(int time);
    /// Values below 1 count as 1.
    void setTimeStep(int ticksPerFrame);
    /// An end before the start counts as the start.
    void setPlayRange(const VxTimeRange &range);
    void setAnimRange(const VxTimeRange &range);
    /// Moves the time by a number of frames, forward or back, within the play range; from outside
    /// the range, to its nearer end. Does not stop playback, which continues from there.
    void stepTime(int frames, bool forward);

public Q_SLOTS:
    void setAnimating(bool animating);

    /// Starts playback from the current time, or from the start of the play range when the time
    /// is outside of it or at its end. With dropFrames the time follows the clock and frames are
    /// skipped when painting is slow; without, every frame is shown, however long it takes, but
    /// none before its time. Without looping, playback ends once the end of the range is shown;
    /// with it, the end is shown for one frame before the start follows. Setting the time during
    /// playback continues from there; a new step, range or looping takes effect at once. Ignored
    /// during playback.
    void play(bool dropFrames = true);
    /// Ends playback at the shown time. Ignored when nothing is played.
    void pause();
    void loopPlayback(bool onOff);

    /// Selects every selectable node, or none, with one report. An existing primary selection
    /// stays, else it is the last node.
    void selectAllNodes(bool onOff);

public:
    /// Selects or deselects several nodes with one report. Of those selected the last one becomes
    /// the primary selection; nodes that are not selectable or not in the scene are left out.
    void selectNodes(const QVector<VxNode *> &nodes, bool onOff);

Q_SIGNALS:
    void timeChanged(VxTime time);
    void timeStepChanged(VxTime step);
    void playRangeChanged(const VxTimeRange &range);
    void animRangeChanged(const VxTimeRange &range);
    void playbackStarted();
    void playbackFinished();
    void loopPlaybackChanged(bool onOff);
    void animatingChanged(bool animating);

    void nodeAdded(VxNode *node);
    /// node is removed with everything below it; only the top one is reported.
    void aboutToRemoveNode(VxNode *node);
    /// node, the top one again, is out of the scene and still alive.
    void nodeRemoved(VxNode *node);
    void nodeParentChanged(VxNode *node, VxNode *oldParent, VxNode *newParent);
    /// node was moved among its siblings, or was inserted before some of them when it was added to
    /// the scene or below another parent; then it follows nodeAdded() or nodeParentChanged(). A
    /// view that appended the node moves it to its index now.
    void nodeOrderChanged(VxNode *node);
    void nodeVisibleChanged(VxNode *node, bool visible);
    /// Properties of the node, of its object or of sub-elements were added or removed. Removed ones
    /// have no owner, but may still exist: the history keeps some.
    void nodePropertiesChanged(VxNode *node);
    /// Keys or values of such a property changed; sent just before its own valueChanged(), within
    /// a VxChangeBlock at the block's end.
    void nodeValuesChanged(VxNode *node);
    void nodeSelectionListChanged();
    void primarySelectionChanged(VxNode *node);

    void sceneLoadStarting();
    void sceneLoaded();
    void sceneClearStarting();
    void sceneCleared();
    /// A view of the scene at the current time needs repainting. Sent at most once per event loop
    /// iteration.
    void viewChanged();

private:
    std::unique_ptr<Private> d;
};

/// The scene of the application; null outside the lifetime of the application object.
extern VXCORE_EXPORT VxScene *vxScene;

#endif
