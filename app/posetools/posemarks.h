#ifndef POSEMARKS_H
#define POSEMARKS_H

#include "viewport/viewporttool.h"

class VxScene;

/// Tints the viewport's edge while changes of values make keys, and marks the nodes that are pinned
/// in IK.
class PoseMarks : public ViewportTool
{
    Q_OBJECT
public:
    /// The scene is borrowed and must outlive the layer.
    PoseMarks(const VxScene *scene, QObject *parent);

    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

private:
    const VxScene *const m_scene;
};

#endif
