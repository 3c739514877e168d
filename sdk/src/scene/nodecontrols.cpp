#include "scene/nodecontrols.h"

#include "keys/recordmemory.h"
#include "keys/vxproperty_p.h"

#include <vxcore/vxfloatproperty.h>

namespace {

struct ControlInfo
{
    const char *name;
    const char *label;
    const char *group;
    VxFloatProperty::Axis axis;
    bool isScale;
};

constexpr const char Translation[] = "/General/Transforms/Translation";
constexpr const char Rotation[] = "/General/Transforms/Rotation";
constexpr const char Scale[] = "/General/Transforms/Scale";

constexpr ControlInfo Controls[NodeControlCount] = {
    {"XTranslate", "X Translate", Translation, VxFloatProperty::XAxis, false},
    {"YTranslate", "Y Translate", Translation, VxFloatProperty::YAxis, false},
    {"ZTranslate", "Z Translate", Translation, VxFloatProperty::ZAxis, false},
    {"XRotate", "X Rotate", Rotation, VxFloatProperty::XAxis, false},
    {"YRotate", "Y Rotate", Rotation, VxFloatProperty::YAxis, false},
    {"ZRotate", "Z Rotate", Rotation, VxFloatProperty::ZAxis, false},
    {"Scale", "Scale", Scale, VxFloatProperty::AllAxes, true},
    {"XScale", "X Scale", Scale, VxFloatProperty::XAxis, true},
    {"YScale", "Y Scale", Scale, VxFloatProperty::YAxis, true},
    {"ZScale", "Z Scale", Scale, VxFloatProperty::ZAxis, true},
};

struct ControlTexts
{
    QString name;
    QString label; ///< in the document, which is the same in every language
    QString path;
};

/// Shared by the controls of all nodes.
const std::array<ControlTexts, NodeControlCount> &controlTexts()
{
    static const auto texts = [] {
        std::array<ControlTexts, NodeControlCount> made;
        for (size_t i = 0; i < made.size(); ++i)
            made[i] = {QString::fromLatin1(Controls[i].name),
                       QString::fromLatin1(Controls[i].label),
                       QString::fromLatin1(Controls[i].group)};
        return made;
    }();
    return texts;
}

/// Controls are made on demand, between keys: like their records, they lie together in memory.
class ControlProperty final : public VxFloatProperty
{
public:
    using VxFloatProperty::VxFloatProperty;

    static void *operator new(std::size_t size)
    {
        return allocateRecord(size, alignof(ControlProperty));
    }
    static void operator delete(void *property, std::size_t size)
    {
        freeRecord(property, size, alignof(ControlProperty));
    }
};

} // namespace

VxFloatProperty *makeNodeControl(NodeControl control)
{
    const ControlInfo &info = Controls[control];
    auto *property = new ControlProperty(controlTexts()[control].name, info.isScale ? 1.0f : 0.0f);
    property->setPath(controlTexts()[control].path);
    // Bypasses the setter: an open hold would record a label for each control of each new node.
    VxProperty::Private::of(property)->label = controlTexts()[control].label;
    property->setAxis(info.axis);
    if (info.isScale) {
        property->setPercentage(true);
        property->setSensitivity(0.01f);
    }
    return property;
}

double nodeControlDefault(NodeControl control)
{
    return Controls[control].isScale ? 1.0 : 0.0;
}

int nodeControlOfName(const QString &name)
{
    for (int i = 0; i < NodeControlCount; ++i) {
        if (controlTexts()[size_t(i)].name == name)
            return i;
    }
    return -1;
}

NodeControlValues nodeControlValues(const NodeControls &controls, VxTime time)
{
    NodeControlValues values;
    for (size_t i = 0; i < controls.size(); ++i) {
        values[i] = controls[i] ? double(controls[i]->getValue(time))
                                : nodeControlDefault(static_cast<NodeControl>(i));
    }
    return values;
}

AffineTransform nodeTransform(const NodeControlValues &values, VxNode::RotationOrder order,
                              const QVector3D &origin)
{
    AffineTransform transform;
    for (const int axis : vxRotationAxes(vxRotationOrder(order)))
        transform.rotate(axis, values[size_t(XRotation + axis)]);
    for (int axis = 0; axis < 3; ++axis) {
        const double scale = values[UniformScale] * values[size_t(XScale + axis)];
        for (double &element : transform.column[axis])
            element *= scale;
        transform.column[3][axis] = double(origin[axis]) + values[size_t(XPosition + axis)];
    }
    return transform;
}
