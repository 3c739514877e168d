#ifndef RICHSCENE_H
#define RICHSCENE_H

#include "io/vxscenecamera.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

/// A small scene whose file has every member of the format.
namespace RichScene {

inline void addProperties(VxNode *node)
{
    auto *rich = new VxFloatProperty(QStringLiteral("rich"), 0.25f);
    node->addProperty(rich, QStringLiteral("/A/B"));
    rich->setLabel(QStringLiteral("Rich"));
    rich->setAxis(VxFloatProperty::YAxis);
    rich->setMinMax(-2.0f, 2.0f, true);
    rich->setSensitivity(0.125f);
    rich->setDefaultInterpolation(VxKeyInterp::Tcb);
    rich->setPercentage(true);
    rich->setHidden(true);
    rich->setDynamicallyHidden(true);
    rich->setExcluded(true);
    rich->setKey(0, 1.0f, VxKeyInterp::Linear);
    rich->setKey(160, 1.5f, VxKeyInterp::Tcb, 0.5f, 0.25f, -0.5f);
    rich->setKey(320, -1.5f, VxKeyInterp::Constant);
    rich->setLocked(true);
    auto *fixed = new VxFloatProperty(QStringLiteral("fixed"), 3.0f);
    node->addProperty(fixed, QString());
    fixed->setAnimatable(false);
    auto *count = new VxIntProperty(QStringLiteral("count"), 4);
    node->addProperty(count, QString());
    count->setMinMax(0, 9, true);
    count->setKey(480, 7);
    node->addProperty(new VxBoolProperty(QStringLiteral("flag"), true), QString());
    node->addProperty(new VxStringProperty(QStringLiteral("note"), QStringLiteral("\u00dcber")),
                      QString());
}

inline void addReferences(VxNode *from, VxNode *to)
{
    from->getXRotControl()->setKey(160, 5.0f, 0); // hidden by the alias
    to->getXRotControl()->setKey(0, 30.0f, VxKeyInterp::Tcb);
    from->getXRotControl()->setAliasedProperty(to->getXRotControl());
    from->getYRotControl()->setOverridingControl(to->getXRotControl());
    from->getZRotControl()->setLink(to->getXRotControl(), true, 2.0, 1.0);
}

inline void setHeader(VxScene *scene)
{
    scene->setTimeStep(200);
    scene->setAnimRange({-400, 8000});
    scene->setPlayRange({400, 4000});
    scene->setTime(600);
    scene->loopPlayback(true);
    scene->setAnimating(false);
    VxSceneViews::of(scene)->setViews(
        {VxTimeRange(0, 800), VxTimeRange(800, 1600), VxTimeRange(1600, 2400)});
    VxMarkers::of(scene)->add({0, QStringLiteral("step"), VxTimeRange(160, 160)});
    VxMarkers::of(scene)->add({0, QStringLiteral("walk"), VxTimeRange(320, 640)});
    VxTimeDisplay display;
    display.unit = VxTimeDisplay::Timecode;
    display.rate = {30000, 1001};
    display.dropsFrames = false;
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    VxCameraState camera;
    camera.orthographic = true;
    VxSceneCamera::of(scene)->setState(camera);
}

inline void build(VxScene *scene)
{
    setHeader(scene);
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    scene->addNode(figure);
    auto *bone = new VxBone(QStringLiteral("bone"));
    scene->addNode(bone, figure);
    auto *node = new VxNode(QStringLiteral("light"));
    scene->addNode(node);
    bone->setLabel(QStringLiteral("Bone"));
    bone->setOrigin({1, 2, 3});
    bone->setEndPoint({4, 5, 6});
    bone->setRestPose(VxRestPose{1, 2, 3, 40, 50, 60, 1, 1, 2, 1});
    bone->setRotationOrder(VxNode::YXZ);
    bone->setIkNode(true);
    bone->setPinned(true);
    node->setVisible(false);
    node->setSelectable(false);
    addProperties(node);
    addReferences(bone, node);
    auto *object = new VxObject(QStringLiteral("lamp"));
    object->addSubElement(new VxMorph(QStringLiteral("Bend")));
    object->addSubElement(new VxElement(QStringLiteral("bulb")));
    node->setObject(object);
}

} // namespace RichScene

#endif
