#include "pose/posefigure.h"

#include "create/namenumbers.h"

#include <cmath>
#include <vxcore/vxmirrornames.h>
#include <vxcore/vxskeleton.h>

namespace {

constexpr double NoLength = 1e-9; // relative to the figure's numbers

double dot(const VxVector &a, const VxVector &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

VxVector difference(const VxVector &a, const VxVector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

} // namespace

VxVector operator*(const VxRotation &matrix, const VxVector &vector)
{
    VxVector result{};
    for (std::size_t row = 0; row < 3; ++row)
        result[row] =
            matrix[row][0] * vector[0] + matrix[row][1] * vector[1] + matrix[row][2] * vector[2];
    return result;
}

VxRotation identityRotation()
{
    return {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
}

VxNode *PoseFigure::rootOf(VxNode *node)
{
    while (!qobject_cast<VxSkeleton *>(node) && node->getNodeParent())
        node = node->getNodeParent();
    return node;
}

QVector<FigureNodes> PoseFigure::byFigure(const QVector<VxNode *> &nodes)
{
    QVector<FigureNodes> figures;
    QHash<const VxNode *, int> figureOf; // the nodes passed so far
    for (VxNode *node : nodes) {
        QVector<const VxNode *> passed;
        VxNode *at = node;
        int figure = figureOf.value(at, -1);
        while (figure < 0) {
            passed.append(at);
            if (qobject_cast<VxSkeleton *>(at) || !at->getNodeParent()) {
                figure = figures.size();
                figures.append(FigureNodes{at, {}});
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

PoseFigure::PoseFigure(VxNode *root)
    : m_root(root)
{
    m_axes.insert(root, identityRotation());
    m_places.insert(root, VxVector{});
    collect();
}

/** Another skeleton below the root is a figure of its own. */
void PoseFigure::collect()
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
            const PoseValues rest = NodeChannels(node).rest();
            const QVector3D origin = node->getOrigin();
            const VxVector local{double(origin.x()) + rest[XPlace],
                                 double(origin.y()) + rest[YPlace],
                                 double(origin.z()) + rest[ZPlace]};
            const VxVector moved = axes * local;
            m_axes.insert(node, axes * vxRotation(anglesOf(rest), orderOf(node)));
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

QString PoseFigure::plainName(const QString &name)
{
    return NameNumbers::withoutNumber(name.section(QLatin1Char(':'), -1)).toLower();
}

VxNode *PoseFigure::find(const QString &name) const
{
    VxNode *same = m_byName.value(name);
    return same ? same : m_byPlainName.value(plainName(name));
}

VxNode *PoseFigure::findMirrored(const QString &name) const
{
    static const VxMirrorNames names;
    const QString other = names.mirrored(name);
    return find(other.isEmpty() ? name : other);
}

VxRotation PoseFigure::restAxes(const VxNode *node) const
{
    return m_axes.value(node, identityRotation());
}

VxRotation PoseFigure::parentRestAxes(const VxNode *node) const
{
    return restAxes(node->getNodeParent());
}

VxVector PoseFigure::findNormal() const
{
    QVector<VxVector> across;
    VxVector longest{};
    double size = 0;
    for (const VxNode *node : m_nodes) {
        const VxVector place = m_places.value(node);
        size = std::max(size, dot(place, place));
        const VxNode *other = findMirrored(node->getName());
        if (!other || other == node)
            continue;
        const VxVector step = difference(m_places.value(other), place);
        across.append(step);
        if (dot(step, step) > dot(longest, longest))
            longest = step;
    }
    VxVector sum{};
    for (const VxVector &step : qAsConst(across)) {
        const double sign = dot(step, longest) < 0 ? -1 : 1;
        for (std::size_t i = 0; i < 3; ++i)
            sum[i] += sign * step[i];
    }
    const double length = std::sqrt(dot(sum, sum));
    if (!std::isfinite(length) || length <= NoLength * std::sqrt(size))
        return {1, 0, 0};
    return {sum[0] / length, sum[1] / length, sum[2] / length};
}

VxRotation PoseFigure::reflection() const
{
    const VxVector normal = findNormal();
    VxRotation matrix = identityRotation();
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            matrix[row][column] -= 2 * normal[row] * normal[column];
    }
    return matrix;
}
