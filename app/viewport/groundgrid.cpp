#include "viewport/groundgrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int LinesToEachSide = 20;
constexpr int MajorEvery = 5;

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

QVector<GroundLine> groundGrid(const QVector3D &center, float step)
{
    // Around a major line, so that the pattern stays in place when the view moves.
    const auto nearestMajor = [step](float at) {
        return qint64(std::llround(at / (step * MajorEvery))) * MajorEvery;
    };
    const qint64 middleX = nearestMajor(center.x());
    const qint64 middleZ = nearestMajor(center.z());
    const auto at = [step](qint64 number) { return float(number) * step; };

    QVector<GroundLine> lines;
    lines.reserve(4 * LinesToEachSide + 2);
    for (int i = -LinesToEachSide; i <= LinesToEachSide; ++i) {
        const qint64 x = middleX + i;
        const qint64 z = middleZ + i;
        lines.append({{at(x), 0, at(middleZ - LinesToEachSide)},
                      {at(x), 0, at(middleZ + LinesToEachSide)},
                      roleOf(x, GroundLine::ZAxis)});
        lines.append({{at(middleX - LinesToEachSide), 0, at(z)},
                      {at(middleX + LinesToEachSide), 0, at(z)},
                      roleOf(z, GroundLine::XAxis)});
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const GroundLine &a, const GroundLine &b) { return a.role < b.role; });
    return lines;
}
