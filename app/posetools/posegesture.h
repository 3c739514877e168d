#ifndef POSEGESTURE_H
#define POSEGESTURE_H

#include "posetools/gesturenode.h"

#include <QObject>
#include <QString>
#include <memory>
#include <unordered_map>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxundostackhold.h>

class VxScene;

/// A gesture that poses nodes: from its construction to accept() or rollBack() every change belongs
/// to one undo entry.
///
/// It ends by itself, with ended(), when one of its nodes is about to be removed (everything is
/// reverted), or when the scene's time or the hierarchy above a node changes (what was done stays).
class PoseGesture : public QObject
{
    Q_OBJECT
public:
    /// text: of the undo entry. Pauses playback.
    PoseGesture(VxScene *scene, const QString &text);
    ~PoseGesture() override;

    bool isOpen() const { return m_hold && m_hold->isOpen(); }
    bool makesKeys() const { return m_makesKeys; }

    /// A node with its values at the start of the gesture, provided that nothing else sets them.
    GestureNode &node(VxNode *node);
    /// Writes a value and counts the outcome.
    void set(GestureNode *node, int channel, double value);
    /// Moves a node by an offset in the world; parent: from its parent's space to the world.
    void move(GestureNode *node, const QMatrix4x4 &parent, const VxVector &offset);

    /// Clears the counts of outcomes; call it before the writes of every move.
    void resetCounts();
    int limited() const { return m_limited; }
    int refused() const { return m_refused; }
    void countLimited() { ++m_limited; }
    void countRefused() { ++m_refused; }

    /// Ends the gesture with its undo entry, or without one when nothing has changed.
    void accept();
    /// Ends the gesture and reverts it.
    void rollBack();

Q_SIGNALS:
    /// The gesture has ended by itself.
    void ended();

private:
    bool concerns(const VxNode *changed) const;
    void handleRemoval(const VxNode *removed);

    VxScene *const m_scene;
    const QString m_text;
    const VxTime m_time;
    const bool m_makesKeys;
    std::unique_ptr<VxUndoStackHold> m_hold;
    std::unordered_map<const VxNode *, std::unique_ptr<GestureNode>> m_nodes;
    int m_limited = 0;
    int m_refused = 0;
};

#endif
