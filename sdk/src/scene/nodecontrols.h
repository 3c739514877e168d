#ifndef NODECONTROLS_H
#define NODECONTROLS_H

#include "scene/affinetransform.h"

#include <array>
#include <vxcore/vxnode.h>

class VxFloatProperty;

/// The ten transform controls of a node, in the order in which they are made and listed.
enum NodeControl {
    XPosition,
    YPosition,
    ZPosition,
    XRotation,
    YRotation,
    ZRotation,
    UniformScale,
    XScale,
    YScale,
    ZScale,
    NodeControlCount
};

using NodeControls = std::array<VxFloatProperty *, NodeControlCount>;

/// A new control with its name, label, group path, axis and default value; the caller's.
VxFloatProperty *makeNodeControl(NodeControl control);
/// The initial value of a control, also used for a destroyed one.
double nodeControlDefault(NodeControl control);
/// The control of a name; -1 for any other name.
int nodeControlOfName(const QString &name);

/// The values of all controls at one time.
using NodeControlValues = std::array<double, NodeControlCount>;

/// The values at a time; a destroyed control has its default.
NodeControlValues nodeControlValues(const NodeControls &controls, VxTime time);
/// translate(origin + position) * rotation * scale.
AffineTransform nodeTransform(const NodeControlValues &values, VxNode::RotationOrder order,
                              const QVector3D &origin);

#endif
