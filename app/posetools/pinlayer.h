#ifndef PINLAYER_H
#define PINLAYER_H

#include "viewport/viewporttool.h"

class VxScene;

/// Marks the nodes that are pinned in IK.
class PinLayer : public ViewportTool
{
    Q_OBJECT
public:
    PinLayer(const VxScene *scene, QObject *parent);

    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

private:
    const VxScene *const m_scene;
};

#endif
