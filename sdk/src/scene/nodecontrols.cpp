#include "scene/nodecontrols.h"

#include "keys/vxproperty_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QtMath>
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
    {"XTranslate", QT_TRANSLATE_NOOP("VxNode", "X Translate"), Translation, VxFloatProperty::XAxis,
     false},
    {"YTranslate", QT_TRANSLATE_NOOP("VxNode", "Y Translate"), Translation, VxFloatProperty::YAxis,
     false},
    {"ZTranslate", QT_TRANSLATE_NOOP("VxNode", "Z Translate"), Translation, VxFloatProperty::ZAxis,
     false},
    {"XRotate", QT_TRANSLATE_NOOP("VxNode", "X Rotate"), Rotation, VxFloatProperty::XAxis, false},
    {"YRotate", QT_TRANSLATE_NOOP("VxNode", "Y Rotate"), Rotation, VxFloatProperty::YAxis, false},
    {"ZRotate", QT_TRANSLATE_NOOP("VxNode", "Z Rotate"), Rotation, VxFloatProperty::ZAxis, false},
    {"Scale", QT_TRANSLATE_NOOP("VxNode", "Scale"), Scale, VxFloatProperty::AllAxes, true},
    {"XScale", QT_TRANSLATE_NOOP("VxNode", "X Scale"), Scale, VxFloatProperty::XAxis, true},
    {"YScale", QT_TRANSLATE_NOOP("VxNode", "Y Scale"), Scale, VxFloatProperty::YAxis, true},
    {"ZScale", QT_TRANSLATE_NOOP("VxNode", "Z Scale"), Scale, VxFloatProperty::ZAxis, true},
};

/// The axes of each rotation order, as they are multiplied from left to right.
constexpr int Orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};

/// A rotation matrix, columns first: column[i] is where axis i goes.
struct Rotation3
{
    double column[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

    /// Multiplies by a rotation about one axis from the right: only the two columns of the other
    /// axes mix.
    void turn(int axis, double degrees)
    {
        if (degrees == 0)
            return;
        const double angle = qDegreesToRadians(degrees);
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        double *first = column[(axis + 1) % 3];
        double *second = column[(axis + 2) % 3];
        for (int row = 0; row < 3; ++row) {
            const double a = first[row];
            const double b = second[row];
            first[row] = a * cosine + b * sine;
            second[row] = b * cosine - a * sine;
        }
    }
};

} // namespace

VxFloatProperty *makeNodeControl(NodeControl control)
{
    const ControlInfo &info = Controls[control];
    auto *property =
        new VxFloatProperty(QString::fromLatin1(info.name), info.isScale ? 1.0f : 0.0f);
    // Past the setter: an open hold would record a label for each control of each new node.
    VxProperty::Private::of(property)->label = QCoreApplication::translate("VxNode", info.label);
    property->setAxis(info.axis);
    if (info.isScale) {
        property->setPercentage(true);
        property->setSensitivity(0.01f);
    }
    return property;
}

QString nodeControlPath(NodeControl control)
{
    return QString::fromLatin1(Controls[control].group);
}

NodeControlValues nodeControlValues(const NodeControls &controls, VxTime time)
{
    NodeControlValues values;
    for (size_t i = 0; i < controls.size(); ++i) {
        const double missing = Controls[i].isScale ? 1.0 : 0.0;
        values[i] = controls[i] ? double(controls[i]->getValue(time)) : missing;
    }
    return values;
}

QMatrix4x4 nodeTransform(const NodeControlValues &values, VxNode::RotationOrder order,
                         const QVector3D &origin)
{
    Rotation3 rotation;
    for (const int axis : Orders[order])
        rotation.turn(axis, values[size_t(XRotation + axis)]);

    QMatrix4x4 matrix;
    for (int axis = 0; axis < 3; ++axis) {
        const double scale = values[UniformScale] * values[size_t(XScale + axis)];
        for (int row = 0; row < 3; ++row)
            matrix(row, axis) = float(rotation.column[axis][row] * scale);
        matrix(axis, 3) = float(double(origin[axis]) + values[size_t(XPosition + axis)]);
    }
    // Writing elements leaves the matrix flagged as a general one; let it find the cheaper kinds.
    matrix.optimize();
    return matrix;
}
