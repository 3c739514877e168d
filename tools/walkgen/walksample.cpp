#include "walksample.h"

#include "walkfigure.h"
#include "walkmotion.h"

#include <QVector>
#include <array>
#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

constexpr int FramesPerSecond = 30;
constexpr VxTime Step = VxTicksPerSecond / FramesPerSecond;
constexpr int LastFrame = int(WalkMotion::StrideSeconds * WalkMotion::Strides * FramesPerSecond);
constexpr int Axes = 3;

double secondsOf(VxTime time)
{
    return double(time) / VxTicksPerSecond;
}

std::array<VxFloatProperty *, Axes> rotations(const VxNode *node)
{
    return {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()};
}

bool isFinger(const QString &bone)
{
    return bone.at(bone.size() - 1).isDigit();
}

bool isArm(const QString &bone)
{
    return bone.endsWith(QLatin1String("Collar")) || bone.endsWith(QLatin1String("Shoulder")) ||
           bone.endsWith(QLatin1String("Forearm")) || bone.endsWith(QLatin1String("Hand"));
}

/// Keys a property at regular times with what a function of time gives.
template <class Function>
void bake(VxFloatProperty *property, VxTime spacing, int type, const Function &valueAt)
{
    QVector<VxTime> times;
    QVector<float> values;
    QVector<quint8> types;
    for (VxTime time = 0; time <= LastFrame * Step; time += spacing) {
        times.append(time);
        values.append(WalkMotion::rounded(valueAt(secondsOf(time))));
        types.append(quint8(type));
    }
    property->setKeys(
        {times.constData(), values.constData(), types.constData(), nullptr, times.size()});
}

void animateBone(VxBone *bone)
{
    const QString name = bone->getName();
    const bool moves = !WalkMotion::rotation(name, 0.31).isNull();
    const VxTime stride = VxTime(WalkMotion::StrideSeconds * VxTicksPerSecond);
    for (int axis = 0; moves && axis < Axes; ++axis) {
        bake(rotations(bone)[size_t(axis)], isArm(name) ? stride / 8 : Step,
             isArm(name) ? VxKeyInterp::Tcb : VxKeyInterp::Linear,
             [&](double seconds) { return double(WalkMotion::rotation(name, seconds)[axis]); });
    }
    // A loose fist that changes its hold once a stride.
    if (isFinger(name) && !name.contains(QLatin1String("Thumb"))) {
        const double side = name.startsWith(QLatin1Char('l')) ? -1.0 : 1.0;
        bake(bone->getZRotControl(), stride, VxKeyInterp::Constant, [&](double seconds) {
            const int count = int(std::lround(seconds / WalkMotion::StrideSeconds));
            return side * (18.0 + (count % 2 == 0 ? 0.0 : 6.0));
        });
    }
}

void animateHip(VxBone *hip)
{
    VxFloatProperty *controls[] = {hip->getXPosControl(), hip->getYPosControl(),
                                   hip->getZPosControl()};
    for (int axis = 0; axis < Axes; ++axis)
        bake(controls[axis], Step, VxKeyInterp::Linear,
             [axis](double seconds) { return double(WalkMotion::hipPosition(seconds)[axis]); });
}

QVector<VxBone *> addFigure(VxSkeleton *skeleton)
{
    QVector<VxBone *> bones;
    for (const WalkBone &rest : walkFigure()) {
        auto *bone = new VxBone(rest.name);
        bone->setLabel(rest.label);
        bone->setOrigin(rest.origin);
        bone->setEndPoint(rest.end);
        bone->setRotationOrder(VxNode::ZYX);
        bones.append(bone);
        VxNode *parent = rest.parent < 0 ? static_cast<VxNode *>(skeleton) : bones.at(rest.parent);
        parent->addNodeChild(bone);
        animateBone(bone);
    }
    animateHip(bones.first());
    return bones;
}

/// A smile and a blink as morphs on the figure's shape, shown as percentages.
void addMorphs(VxSkeleton *skeleton)
{
    auto *shape = new VxObject(QStringLiteral("WalkerShape"));
    shape->setLabel(QStringLiteral("Walker Shape"));
    skeleton->setObject(shape);
    auto *blink = new VxMorph(QStringLiteral("Blink"));
    auto *smile = new VxMorph(QStringLiteral("Smile"));
    shape->addSubElement(blink);
    shape->addSubElement(smile);
    for (int second = 0; second * FramesPerSecond + 10 <= LastFrame; second += 2) {
        const VxTime start = (second * FramesPerSecond + 4) * Step;
        blink->getValueControl()->setKey(start, 0.0f, VxKeyInterp::Linear);
        blink->getValueControl()->setKey(start + 2 * Step, 1.0f, VxKeyInterp::Linear);
        blink->getValueControl()->setKey(start + 5 * Step, 0.0f, VxKeyInterp::Linear);
    }
    const int frames[] = {0, 40, 90, LastFrame};
    const float values[] = {0.0f, 0.75f, 0.3f, 1.0f};
    const float tensions[] = {0.0f, 0.5f, -0.4f, 0.0f};
    for (int i = 0; i < 4; ++i)
        smile->getValueControl()->setKey(frames[i] * Step, values[i], VxKeyInterp::Tcb, tensions[i],
                                         0.0f, i == 1 ? 0.3f : 0.0f);
}

/// A lantern that the figure follows: what links, locks and switches are good for.
VxNode *makeLantern(VxFloatProperty *followed)
{
    auto *lantern = new VxNode(QStringLiteral("lantern"));
    lantern->setLabel(QStringLiteral("Lantern"));
    lantern->setOrigin({60, 150, 0});
    lantern->getZPosControl()->setLink(followed);
    lantern->getScaleControl()->setLocked(true);

    auto *brightness = new VxIntProperty(QStringLiteral("Brightness"), 60);
    brightness->setMinMax(0, 100, true);
    lantern->addProperty(brightness, QStringLiteral("/Light"));
    for (int frame = 0; frame <= LastFrame; frame += 12)
        brightness->setKey(frame * Step, frame % 24 == 0 ? 60 : 80);

    auto *lit = new VxBoolProperty(QStringLiteral("Lit"), true);
    lantern->addProperty(lit, QStringLiteral("/Light"));
    lit->setKey(0, 1);
    lit->setKey(100 * Step, 0);
    lit->setKey(108 * Step, 1);

    auto *sway = new VxFloatProperty(QStringLiteral("Sway"), 1.5f);
    sway->setMinMax(-20.0f, 20.0f);
    lantern->addProperty(sway, QStringLiteral("/Light/Motion"));
    sway->setLink(followed, true, 0.01);

    auto *calibration = new VxFloatProperty(QStringLiteral("Calibration"), 1.0f);
    calibration->setHidden(true);
    lantern->addProperty(calibration, QStringLiteral("/Light"));
    calibration->setKey(0, 1.0f, VxKeyInterp::Linear);
    calibration->setKey(LastFrame * Step, 1.05f, VxKeyInterp::Linear);

    auto *note =
        new VxStringProperty(QStringLiteral("Note"), QStringLiteral("Keeps pace with the walker"));
    lantern->addProperty(note, QStringLiteral("/General"));
    return lantern;
}

/// A handle on the skeleton for a control of a deep descendant.
void addAlias(VxSkeleton *skeleton, VxFloatProperty *source)
{
    auto *alias = new VxFloatProperty(QStringLiteral("HeadNod"));
    alias->setLabel(QStringLiteral("Head Nod"));
    skeleton->addProperty(alias, QStringLiteral("/Pose Controls/Head"));
    alias->setAliasedProperty(source);
}

} // namespace

void WalkSample::build(VxScene *scene)
{
    scene->beginLoad();
    scene->clear();
    scene->setTimeStep(Step);
    scene->setAnimRange({0, LastFrame * Step});
    scene->setPlayRange({0, LastFrame * Step});

    auto *skeleton = new VxSkeleton(QStringLiteral("walker"));
    skeleton->setLabel(QStringLiteral("Walker"));
    const QVector<VxBone *> bones = addFigure(skeleton);
    addMorphs(skeleton);
    for (VxBone *bone : bones) {
        if (bone->getName() == QLatin1String("head"))
            addAlias(skeleton, bone->getXRotControl());
    }
    VxNode *lantern = makeLantern(bones.first()->getZPosControl());
    scene->addNode(skeleton);
    scene->addNode(lantern);
    scene->loopPlayback(true);
    scene->endLoad();
}

VxBvhDocument WalkSample::motion()
{
    VxBvhDocument document;
    document.frameCount = LastFrame + 1;
    document.frameTime = 1.0 / FramesPerSecond;
    const std::vector<WalkBone> bones = walkFigure();
    const auto sample = [&document](const auto &valueAt) {
        for (int frame = 0; frame <= LastFrame; ++frame)
            document.values.push_back(WalkMotion::rounded(valueAt(secondsOf(frame * Step))));
    };
    for (size_t i = 0; i < bones.size(); ++i) {
        const WalkBone &bone = bones[i];
        VxBvhJoint joint;
        joint.name = bone.name;
        joint.parent = bone.parent;
        joint.offset = {bone.origin.x(), bone.origin.y(), bone.origin.z()};
        if (bone.parent < 0) {
            joint.channels = {VxBvhChannel::XPosition, VxBvhChannel::YPosition,
                              VxBvhChannel::ZPosition};
            // A position channel holds the whole place, the rest position included.
            for (int axis = 0; axis < Axes; ++axis)
                sample([&](double seconds) {
                    return double(bone.origin[axis] + WalkMotion::hipPosition(seconds)[axis]);
                });
        }
        for (const VxBvhChannel channel :
             {VxBvhChannel::ZRotation, VxBvhChannel::YRotation, VxBvhChannel::XRotation}) {
            joint.channels.push_back(channel);
            sample([&](double seconds) {
                return double(WalkMotion::rotation(bone.name, seconds)[vxBvhAxis(channel)]);
            });
        }
        const bool leaf = i + 1 == bones.size() || bones[i + 1].parent != int(i);
        if (leaf)
            joint.endSites.push_back({bone.end.x(), bone.end.y(), bone.end.z()});
        document.joints.push_back(joint);
    }
    return document;
}
