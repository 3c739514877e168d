#ifndef TRANSFORMTOOL_H
#define TRANSFORMTOOL_H

#include "gizmo/gizmo.h"
#include "posetools/limb.h"
#include "posetools/posetools.h"
#include "posetools/posetoolsettings.h"
#include "viewport/viewportcamera.h"
#include "viewport/viewporttool.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class VxScene;

/// The nodes that a gizmo acts on, and its position.
struct GizmoTarget
{
    QVector<VxNode *> nodes; ///< never empty
    VxNode *primary;         ///< of them the one whose axes the gizmo has
    GizmoFrame frame;
    GizmoLocks locks{};
};

/// A tool with a gizmo. A drag of a part poses the target's nodes, always from the values at the
/// press; it ends as one undo entry.
///
/// Shift snaps, Ctrl drags at a tenth of the speed. A number that is typed during the drag takes
/// the place of the mouse; Enter ends the drag with it, Escape and a lost release revert the drag.
/// The joints of pinned limbs below the nodes stay where they are.
class TransformTool : public ViewportTool
{
    Q_OBJECT
public:
    bool press(const ViewportPointer &at) override;
    void drag(const ViewportPointer &at) override;
    void release(const ViewportPointer &at) override;
    bool hover(const ViewportPointer &at) override;
    void leave() override;
    bool usesKey(const QKeyEvent &event) const override;
    void key(const QKeyEvent &event) override;
    bool isBusy() const override { return m_isPressed; }
    void cancel() override;
    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

    /// The gizmo at the scene's time; none without selected nodes.
    std::optional<GizmoTarget> target() const;
    /// What the drag does now, as painted beside the mouse; empty without a drag.
    QString readout() const;

protected:
    TransformTool(PoseTools::Tool tool, VxScene *scene, PoseToolSettings *settings, GizmoKind kind,
                  QObject *parent);

    VxScene *scene() const { return m_scene; }
    const PoseToolSettings *settings() const { return m_settings; }
    PoseGesture *gesture() const { return m_gesture.get(); }
    /// Of the press.
    const ViewportCamera &pressCamera() const { return m_camera; }
    const GizmoFrame &pressFrame() const { return m_pressTarget->frame; }
    GizmoPart part() const { return m_part; }
    /// Starts the drag of a part; for a press on something else than the gizmo.
    void begin(const GizmoTarget &target, GizmoPart part, const ViewportPointer &at);

    virtual GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const = 0;
    /// Registers the nodes with gesture().
    virtual void beginDrag(const GizmoTarget &target, const QPointF &pixel) = 0;
    /// Sets the amount of the drag.
    virtual void follow(const QPointF &pixel, bool snaps) = 0;
    /// The same from a typed number, for a part that has a single amount.
    virtual void setAmount(double amount) = 0;
    virtual bool hasAmount() const { return true; }
    /// Gives the nodes the values for the amount.
    virtual void write() = 0;
    virtual QString amountText() const = 0;
    /// A sentence behind the amount, such as about a limit; empty for none.
    virtual QString remark() const;

    /// The parts that none of the nodes allows. locksOf: those of one node.
    GizmoLocks commonLocks(const QVector<VxNode *> &nodes,
                           const std::function<GizmoLocks(const GestureNode &)> &locksOf) const;
    /// The axes of a node in an orientation: those of rings, which rotate counterclockwise seen
    /// from their tips, and those of arrows. They differ below a mirrored parent.
    std::array<QVector3D, 3> ringAxes(VxNode *node,
                                      PoseToolSettings::Orientation orientation) const;
    std::array<QVector3D, 3> arrowAxes(VxNode *node,
                                       PoseToolSettings::Orientation orientation) const;
    /// The origin of the primary node, or with a common pivot the middle of all nodes' origins.
    QVector3D pivotOf(const QVector<VxNode *> &nodes, const VxNode *primary) const;
    /// The name of the part's axis and a blank, for a text about the drag; empty without an axis.
    QLatin1String axisPrefix() const;

private:
    /// Of the undo entry and of messages.
    QString title() const { return PoseTools::title(m_tool); }
    void update(Qt::KeyboardModifiers modifiers);
    void applyTyped();
    void beginPins(const QVector<VxNode *> &moved);
    void finish();
    void reset();
    void paintReadout(QPainter *painter, const ViewportCamera &camera,
                      const QPalette &palette) const;

    const PoseTools::Tool m_tool;
    VxScene *const m_scene;
    PoseToolSettings *const m_settings;
    const GizmoKind m_kind;
    GizmoPart m_hovered = GizmoPart::None;

    /// Of the drag, from press to release.
    bool m_isPressed = false;
    GizmoPart m_part = GizmoPart::None;
    std::unique_ptr<PoseGesture> m_gesture; // null once it has ended
    std::optional<GizmoTarget> m_pressTarget;
    ViewportCamera m_camera;
    QPointF m_mouse; // as last seen
    QPointF m_pixel; // where the slowed-down mouse would be
    QString m_typed;
    std::vector<Limb> m_pins;
    int m_slippedPins = 0;
};

#endif
