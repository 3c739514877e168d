#ifndef BONECHAINTOOL_H
#define BONECHAINTOOL_H

#include "viewport/viewportcamera.h"
#include "viewport/viewporttool.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QVector3D>
#include <QVector>
#include <vxcore/vxnode.h>

class VxScene;

/// Draws a chain of bones click by click. It begins at the end of the bone that is the primary
/// selection, else at the first click, below the selected node or a new skeleton. Return, Escape or
/// a double click ends it and makes all bones, as one undo entry; Backspace takes the last click
/// back. Another tool discards it.
///
/// The first joint is put on the grid, the others at the depth of the joint before them.
class BoneChainTool : public ViewportTool
{
    Q_OBJECT
public:
    /// The scene is borrowed and must outlive the tool.
    explicit BoneChainTool(VxScene *scene, QObject *parent = nullptr);

    /// The joints so far, in the world; the first one may be the end of a selected bone.
    const QVector<QVector3D> &joints() const { return m_joints; }
    /// Starts anew from the present selection.
    void begin();

    bool press(const ViewportPointer &at) override;
    bool hover(const ViewportPointer &at) override;
    void leave() override;
    bool usesKey(const QKeyEvent &event) const override;
    void key(const QKeyEvent &event) override;
    bool isBusy() const override { return m_joints.size() > m_given; }
    void cancel() override;
    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

    /// Makes the bones. Nothing happens without any.
    void finish();

Q_SIGNALS:
    /// The chain was ended by the user.
    void finished();

private:
    QVector3D pointAt(const ViewportPointer &at) const;
    bool isDoubleClick(const QPointF &pixel) const;
    void removeLastJoint();

    VxScene *const m_scene;
    QPointer<VxNode> m_parent;
    QVector<QVector3D> m_joints;
    int m_given = 0; // joints that were not clicked: 1 from a selected bone
    std::optional<QVector3D> m_mouse;
    QElapsedTimer m_sincePress;
    QPointF m_pressedAt;
};

#endif
