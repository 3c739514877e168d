#ifndef WALKINGLEG_H
#define WALKINGLEG_H

#include "keytoolstage.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxskeleton.h>

/// A leg whose hip wanders and whose joints swing, keyed on every fifth frame.
struct Leg
{
    Leg()
        : hip(new VxBone("hip"))
        , knee(new VxBone("knee"))
        , foot(new VxBone("foot"))
    {
        auto *figure = new VxSkeleton("figure");
        vxScene->addNode(figure);
        vxScene->addNode(hip, figure);
        vxScene->addNode(knee, hip);
        vxScene->addNode(foot, knee);
        hip->setOrigin({0, 90, 0});
        knee->setOrigin({0, -42, 0});
        foot->setOrigin({0, -40, 0});
        for (int frame = 0; frame <= 60; frame += 5) {
            const VxTime t = frame * KeyToolStage::Frame;
            hip->getZPosControl()->setKey(t, frame * 0.5F, VxKeyInterp::Tcb);
            hip->getXRotControl()->setKey(t, float(-15 + 10 * std::sin(frame / 9.0)),
                                          VxKeyInterp::Tcb);
            knee->getXRotControl()->setKey(t, float(40 + 15 * std::sin(frame / 7.0)),
                                           VxKeyInterp::Tcb);
            foot->getYRotControl()->setKey(t, float(10 * std::sin(frame / 5.0)), VxKeyInterp::Tcb);
        }
    }
    QVector3D place(VxTime time) const
    {
        return foot->getWorldTransform(time).column(3).toVector3D();
    }
    VxBone *hip;
    VxBone *knee;
    VxBone *foot;
};

#endif
