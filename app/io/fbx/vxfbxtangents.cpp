#include "io/fbx/vxfbxtangents.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

using namespace VxFbxKeyFlag;

constexpr double third = 1.0 / 3.0;

double finiteOrZero(double number)
{
    return std::isfinite(number) ? number : 0.0;
}

// One of the two weights that share a float's bytes, in steps of 1/10000.
double weight(const VxFbxTangentKey &key, quint32 flag, int half)
{
    if (!(key.flags & flag) || key.isTcb())
        return third;
    quint32 bits = 0;
    std::memcpy(&bits, &key.data[2], sizeof bits);
    return std::clamp(((bits >> (16 * half)) & 0xFFFF) * 1e-4, 1e-4, 0.99);
}

double chord(const VxFbxTangentKey &from, const VxFbxTangentKey &to)
{
    return finiteOrZero((to.value - from.value) / (to.time - from.time));
}

// Kochanek and Bartels with the slopes of the chords; at an end the only chord counts in full.
VxFbxSlopes tcbSlopes(const VxFbxTangentKey &key, double a, double b, bool isEnd)
{
    const double tension = finiteOrZero(double(key.data[0]));
    const double continuity = finiteOrZero(double(key.data[1]));
    const double bias = finiteOrZero(double(key.data[2]));
    const double half = (isEnd ? 1.0 : 0.5) * (1.0 - tension);
    const double before = 1.0 + bias;
    const double after = 1.0 - bias;
    const double same = 1.0 + continuity;
    const double other = 1.0 - continuity;
    return {half * (before * other * a + after * same * b),
            half * (before * same * a + after * other * b)};
}

// Mixes a slope with the chord selected by a bias in percent.
double biased(double slope, double percent, double a, double b)
{
    const double share = std::clamp(std::abs(percent) / 100.0, 0.0, 1.0);
    return slope + ((percent > 0.0 ? b : a) - slope) * share;
}

// Limits a slope so that the handles stay within the neighbours' values.
double limited(double slope, double a, double b, double leftWeight, double rightWeight)
{
    const double sign = slope < 0.0 ? -1.0 : 1.0;
    const double most = std::min(sign * a / leftWeight, sign * b / rightWeight);
    return sign * std::clamp(std::abs(slope), 0.0, std::max(0.0, most));
}

bool isNearlyEqual(double a, double b)
{
    return std::abs(a - b) <= 1e-6 * std::max({1.0, std::abs(a), std::abs(b)});
}

VxFbxSlopes autoSlopes(const VxFbxTangentKey *before, const VxFbxTangentKey &key,
                       const VxFbxTangentKey *after, double a, double b)
{
    if (!before || !after) {
        const double slope = key.flags & Progressive ? 0.0 : (before ? a : b);
        return {slope, slope};
    }
    const double past = key.time - before->time;
    const double future = after->time - key.time;
    double slope = finiteOrZero((after->value - before->value) / (past + future));
    if ((key.flags & Clamped) &&
        (isNearlyEqual(before->value, key.value) || isNearlyEqual(after->value, key.value)))
        return {0.0, 0.0};
    VxFbxSlopes slopes{slope, slope};
    if (!(key.flags & TimeIndependent)) {
        const double share = past / (past + future);
        slope = 0.5 * slope + 0.5 * (a * (1.0 - share) + b * share);
        const double leftBias =
            before->isCubic() && !before->isTcb() ? -double(before->data[1]) : 0;
        slopes = {biased(slope, finiteOrZero(leftBias), a, b),
                  biased(slope, finiteOrZero(double(key.data[0])), a, b)};
    }
    if (key.flags & Progressive) {
        slopes.left = limited(slopes.left, a, b, before->nextLeftWeight(), key.rightWeight());
        slopes.right = limited(slopes.right, a, b, before->nextLeftWeight(), key.rightWeight());
    }
    return slopes;
}

} // namespace

bool VxFbxTangentKey::isCubic() const
{
    return !(flags & (Constant | Linear)) && (flags & Cubic);
}

bool VxFbxTangentKey::isTcb() const
{
    return isCubic() && (flags & Tcb);
}

bool VxFbxTangentKey::isAuto() const
{
    return isCubic() && (flags & Auto) && !(flags & Tcb);
}

double VxFbxTangentKey::rightWeight() const
{
    return weight(*this, RightWeighted, 0);
}

double VxFbxTangentKey::nextLeftWeight() const
{
    return weight(*this, NextLeftWeighted, 1);
}

VxFbxSlopes vxFbxSlopes(const VxFbxTangentKey *before, const VxFbxTangentKey &key,
                        const VxFbxTangentKey *after)
{
    const double a = before ? chord(*before, key) : 0.0;
    const double b = after ? chord(key, *after) : 0.0;
    VxFbxSlopes slopes{};
    if (key.isTcb()) {
        slopes = tcbSlopes(key, a, b, !before || !after);
    } else if (key.isAuto()) {
        slopes = autoSlopes(before, key, after, a, b);
    } else {
        slopes.right = double(key.data[0]);
        // The slope to the left is stored with the previous key, unless that has tension,
        // continuity and bias instead.
        const bool isStored = before && before->isCubic() && !before->isTcb();
        const bool isBroken = key.flags & Broken;
        slopes.left = isStored ? double(before->data[1]) : (isBroken ? a : slopes.right);
    }
    return {finiteOrZero(slopes.left), finiteOrZero(slopes.right)};
}
