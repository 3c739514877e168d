#include "create/standardfigure.h"

#include "create/boneedits.h"
#include "create/namenumbers.h"

#include <QHash>
#include <QRegularExpression>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxskeleton.h>

namespace {

struct Limits
{
    float min;
    float max;
};

/// One bone of the trunk or of the left side.
struct FigureBone
{
    const char *name; ///< begins each word with a capital
    const char *parent;
    QVector3D origin; ///< centimetres, in the parent's space
    QVector3D end;
    VxNode::RotationOrder order;
    Limits limits[3]; ///< degrees about X, Y and Z; equal ones: no limits
};

constexpr Limits Free{0, 0};

// The rotation order keeps each joint's wide angles away from the middle axis.
const FigureBone trunk[] = {
    {"Hips", "", {0, 98, 0}, {0, 8, 0}, VxNode::YXZ, {Free, Free, Free}},
    {"Spine", "Hips", {0, 8, 0}, {0, 18, 0}, VxNode::XZY, {{-30, 60}, {-45, 45}, {-35, 35}}},
    {"Chest", "Spine", {0, 18, 0}, {0, 24, 0}, VxNode::XZY, {{-30, 50}, {-45, 45}, {-30, 30}}},
    {"Neck", "Chest", {0, 24, 0}, {0, 8, 0}, VxNode::XZY, {{-45, 45}, {-45, 45}, {-35, 35}}},
    {"Head", "Neck", {0, 8, 0}, {0, 20, 0}, VxNode::XZY, {{-45, 45}, {-60, 60}, {-35, 35}}},
};

const FigureBone leftSide[] = {
    {"Shoulder", "Chest", {3, 20, 0}, {14, 1, 0}, VxNode::ZYX, {{-20, 20}, {-30, 30}, {-15, 45}}},
    {"UpperArm",
     "Shoulder",
     {14, 1, 0},
     {28, 0, 0},
     VxNode::ZYX,
     {{-90, 90}, {-135, 60}, {-100, 90}}},
    {"Forearm", "UpperArm", {28, 0, 0}, {25, 0, 0}, VxNode::ZYX, {{-90, 90}, {-150, 0}, {-10, 10}}},
    {"Hand", "Forearm", {25, 0, 0}, {17, 0, 0}, VxNode::ZYX, {{-20, 20}, {-40, 40}, {-80, 80}}},
    {"Thigh", "Hips", {9, -4, 0}, {0, -42, 0}, VxNode::XZY, {{-120, 45}, {-45, 45}, {-30, 60}}},
    {"Shin", "Thigh", {0, -42, 0}, {0, -42, 0}, VxNode::XZY, {{0, 150}, {-20, 20}, {-10, 10}}},
    {"Foot", "Shin", {0, -42, 0}, {0, -10, 12}, VxNode::XZY, {{-40, 60}, {-30, 30}, {-30, 30}}},
    {"Toes", "Foot", {0, -10, 12}, {0, 0, 8}, VxNode::XZY, {{-60, 40}, {-10, 10}, {-10, 10}}},
};

/** "Left Upper Arm" of "LeftUpperArm". */
QString wordsOf(QString name)
{
    static const QRegularExpression wordStart(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    return name.replace(wordStart, QStringLiteral(" "));
}

class FigureBuilder
{
public:
    explicit FigureBuilder(NameNumbers *names)
        : m_names(names)
    {
    }

    void add(const FigureBone &bone, const QString &side)
    {
        const QString name = side + QLatin1String(bone.name);
        auto *made = new VxBone(m_names->unique(name));
        made->setLabel(wordsOf(name));
        const bool isRight = side == QLatin1String("Right");
        const QVector3D mirror(isRight ? -1.0f : 1.0f, 1, 1);
        made->setOrigin(bone.origin * mirror);
        made->setEndPoint(bone.end * mirror);
        made->setRestPose(BoneEdits::restInPlace());
        made->setRotationOrder(bone.order);
        setLimits(made, bone, isRight);
        const QString parent = QLatin1String(bone.parent);
        VxNode *above = m_bones.value(side + parent, m_bones.value(parent, m_skeleton.get()));
        above->addNodeChild(made);
        m_bones.insert(name, made);
    }

    std::unique_ptr<VxSkeleton> build()
    {
        m_skeleton = std::make_unique<VxSkeleton>(m_names->unique(QStringLiteral("Figure")));
        for (const FigureBone &bone : trunk)
            add(bone, {});
        for (const char *side : {"Left", "Right"}) {
            for (const FigureBone &bone : leftSide)
                add(bone, QLatin1String(side));
        }
        return std::move(m_skeleton);
    }

private:
    /** A mirror image swaps the limits of the rotations about the axes in the mirror plane. */
    static void setLimits(const VxBone *bone, const FigureBone &data, bool isRight)
    {
        VxFloatProperty *const angles[] = {bone->getXRotControl(), bone->getYRotControl(),
                                           bone->getZRotControl()};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const Limits &limits = data.limits[axis];
            if (limits.min >= limits.max)
                continue;
            if (isRight && axis > 0)
                angles[axis]->setMinMax(-limits.max, -limits.min, true);
            else
                angles[axis]->setMinMax(limits.min, limits.max, true);
        }
    }

    NameNumbers *m_names;
    std::unique_ptr<VxSkeleton> m_skeleton;
    QHash<QString, VxNode *> m_bones;
};

} // namespace

std::unique_ptr<VxSkeleton> makeStandardFigure(NameNumbers *names)
{
    return FigureBuilder(names).build();
}
