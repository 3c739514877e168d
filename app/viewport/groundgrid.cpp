#include "viewport/groundgrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int LinesToEachSide = 20;
constexpr int MajorEvery = 5;
// Beyond it, single precision has the same place for neighbouring lines.
constexpr double FurthestMajor = 1e15;

GroundLine::Role roleOf(qint64 number, GroundLine::Role axis)
{
    if (number == 0)
        return axis;
    return number % MajorEvery == 0 ? GroundLine::Major : GroundLine::Minor;
}

} // namespace

float groundGridStep(float viewDistance)
{
    if (!(viewDistance > 0))
        return 1;
    const float desired = viewDistance / 12;
    const float power = std::pow(10.0f, std::floor(std::log10(desired)));
    const float digit = desired / power;
    return power * (digit < 1.5f ? 1 : digit < 3.5f ? 2 : digit < 7.5f ? 5 : 10);
}

QVector<GroundLine> groundGrid(const QVector3D &center, float step, GridPlane plane)
{
    // Around a major line, so that the pattern stays in place when the view moves.
    const auto nearestMajor = [step](float at) {
        const double majors = double(at) / (double(step) * MajorEvery);
        return qint64(std::llround(std::clamp(majors, -FurthestMajor, FurthestMajor))) * MajorEvery;
    };
    const int u = plane == GridPlane::YZ ? 1 : 0;
    const int v = plane == GridPlane::XY ? 1 : 2;
    const qint64 middleU = nearestMajor(center[u]);
    const qint64 middleV = nearestMajor(center[v]);
    const auto at = [step, u, v](qint64 numberU, qint64 numberV) {
        QVector3D point;
        point[u] = float(numberU) * step;
        point[v] = float(numberV) * step;
        return point;
    };
    static constexpr GroundLine::Role axes[] = {GroundLine::XAxis, GroundLine::YAxis,
                                                GroundLine::ZAxis};

    QVector<GroundLine> lines;
    lines.reserve(4 * LinesToEachSide + 2);
    for (int i = -LinesToEachSide; i <= LinesToEachSide; ++i) {
        lines.append({at(middleU + i, middleV - LinesToEachSide),
                      at(middleU + i, middleV + LinesToEachSide), roleOf(middleU + i, axes[v])});
        lines.append({at(middleU - LinesToEachSide, middleV + i),
                      at(middleU + LinesToEachSide, middleV + i), roleOf(middleV + i, axes[u])});
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const GroundLine &a, const GroundLine &b) { return a.role < b.role; });
    return lines;
}
