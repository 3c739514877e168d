#include <vxcore/vxposefigure.h>

#include "scene/nodecontrols.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxcopyname.h>
#include <vxcore/vxmirrornames.h>
#include <vxcore/vxskeleton.h>

namespace {

constexpr double NoLength = 1e-9; // relative to the figure's numbers

VxVector stepBetween(const VxVector &from, const VxVector &to)
{
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

VxRotation rotationOf(const VxRestPose &rest, const VxNode *node)
{
    return vxRotation({rest[XRotation], rest[YRotation], rest[ZRotation]},
                      vxRotationOrder(node->getRotationOrder()));
}

} // namespace

VxNode *VxPoseFigure::rootOf(VxNode *node)
{
    while (!qobject_cast<VxSkeleton *>(node) && node->getNodeParent())
        node = node->getNodeParent();
    return node;
}

QVector<VxFigureNodes> VxPoseFigure::byFigure(const QVector<VxNode *> &nodes)
{
    QVector<VxFigureNodes> figures;
    QHash<const VxNode *, int> figureOf; // the nodes passed so far
    for (VxNode *node : nodes) {
        QVector<const VxNode *> passed;
        VxNode *at = node;
        int figure = figureOf.value(at, -1);
        while (figure < 0) {
            passed.append(at);
            if (qobject_cast<VxSkeleton *>(at) || !at->getNodeParent()) {
                figure = figures.size();
                figures.append(VxFigureNodes{at, {}});
                break;
            }
            at = at->getNodeParent();
            figure = figureOf.value(at, -1);
        }
        for (const VxNode *each : qAsConst(passed))
            figureOf.insert(each, figure);
        figures[figure].nodes.append(node);
    }
    return figures;
}

VxPoseFigure::VxPoseFigure(VxNode *root)
    : m_root(root)
{
    m_axes.insert(root, VxIdentityRotation);
    m_places.insert(root, VxVector{});
    collect();
}

/** Another skeleton below the root is a figure of its own. */
void VxPoseFigure::collect()
{
    QVector<VxNode *> open{m_root};
    while (!open.isEmpty()) {
        const VxNode *parent = open.takeLast();
        const VxRotation axes = m_axes.value(parent);
        const VxVector from = m_places.value(parent);
        QVector<VxNode *> children;
        parent->getNodeChildren(children);
        for (VxNode *node : qAsConst(children)) {
            if (qobject_cast<VxSkeleton *>(node))
                continue;
            const VxRestPose rest = node->getRestValues();
            const QVector3D origin = node->getOrigin();
            const VxVector local{double(origin.x()) + double(rest[XPosition]),
                                 double(origin.y()) + double(rest[YPosition]),
                                 double(origin.z()) + double(rest[ZPosition])};
            const VxVector moved = axes * local;
            m_axes.insert(node, axes * rotationOf(rest, node));
            m_places.insert(node, {from[0] + moved[0], from[1] + moved[1], from[2] + moved[2]});
            m_nodes.append(node);
            if (!m_byName.contains(node->getName()))
                m_byName.insert(node->getName(), node);
            const QString plain = plainName(node->getName());
            m_byPlainName.insert(plain, m_byPlainName.contains(plain) ? nullptr : node);
            open.append(node);
        }
    }
}

QString VxPoseFigure::plainName(const QString &name)
{
    return VxCopyName::read(name.section(QLatin1Char(':'), -1)).original().toLower();
}

VxNode *VxPoseFigure::find(const QString &name) const
{
    VxNode *same = m_byName.value(name);
    return same ? same : m_byPlainName.value(plainName(name));
}

VxNode *VxPoseFigure::findMirrored(const QString &name) const
{
    static const VxMirrorNames names;
    const QString other = names.mirrored(name);
    return find(other.isEmpty() ? name : other);
}

VxJointRest VxPoseFigure::rest(const VxNode *node) const
{
    VxJointRest rest;
    rest.values = node->getRestValues();
    rest.order = vxRotationOrder(node->getRotationOrder());
    rest.axes = m_axes.value(node, VxIdentityRotation);
    rest.parentAxes = node == m_root ? vxTransposed(rotationOf(rest.values, node))
                                     : m_axes.value(node->getNodeParent(), VxIdentityRotation);
    return rest;
}

VxVector VxPoseFigure::findNormal() const
{
    QVector<VxVector> across;
    VxVector longest{};
    double size = 0;
    for (const VxNode *node : m_nodes) {
        const VxVector place = m_places.value(node);
        size = std::max(size, vxDot(place, place));
        const VxNode *other = findMirrored(node->getName());
        if (!other || other == node)
            continue;
        const VxVector step = stepBetween(place, m_places.value(other));
        across.append(step);
        if (vxDot(step, step) > vxDot(longest, longest))
            longest = step;
    }
    VxVector sum{};
    for (const VxVector &step : qAsConst(across)) {
        const double sign = vxDot(step, longest) < 0 ? -1 : 1;
        for (std::size_t i = 0; i < 3; ++i)
            sum[i] += sign * step[i];
    }
    const double length = std::sqrt(vxDot(sum, sum));
    if (!std::isfinite(length) || length <= NoLength * std::sqrt(size))
        return {1, 0, 0};
    return {sum[0] / length, sum[1] / length, sum[2] / length};
}

VxRotation VxPoseFigure::reflection() const
{
    const VxVector normal = findNormal();
    VxRotation matrix = VxIdentityRotation;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            matrix[row][column] -= 2 * normal[row] * normal[column];
    }
    return matrix;
}
