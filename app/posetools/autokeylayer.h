#ifndef AUTOKEYLAYER_H
#define AUTOKEYLAYER_H

#include "viewport/viewporttool.h"

class VxScene;

/// Tints the viewport's edge while changes of values make keys.
class AutoKeyLayer : public ViewportTool
{
    Q_OBJECT
public:
    AutoKeyLayer(const VxScene *scene, QObject *parent);

    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

private:
    const VxScene *const m_scene;
};

#endif
