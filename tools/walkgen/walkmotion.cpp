#include "walkmotion.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;

/// sin(2 pi (time / stride + offset)) for an offset in strides.
double wave(double seconds, double offset = 0.0)
{
    return std::sin(2.0 * Pi * (seconds / WalkMotion::StrideSeconds + offset));
}

/// The same at twice the pace, for what happens in every step.
double stepWave(double seconds, double offset = 0.0)
{
    return std::sin(4.0 * Pi * (seconds / WalkMotion::StrideSeconds + offset));
}

bool isLeft(const QString &bone)
{
    return bone.startsWith(QLatin1Char('l'));
}

/// The right side does what the left did half a stride ago.
double sideOffset(const QString &bone)
{
    return isLeft(bone) ? 0.0 : 0.5;
}

double mirror(const QString &bone)
{
    return isLeft(bone) ? 1.0 : -1.0;
}

QVector3D degrees(double x, double y, double z)
{
    return {float(x), float(y), float(z)};
}

QVector3D legRotation(const QString &bone, double seconds)
{
    const double side = sideOffset(bone);
    const double swing = wave(seconds, side);
    const double lift = std::max(0.0, wave(seconds, side + 0.22));
    if (bone.endsWith(QLatin1String("Thigh")))
        return degrees(-4.0 - 24.0 * swing, 2.0 * swing, 1.5 * mirror(bone));
    if (bone.endsWith(QLatin1String("Shin")))
        return degrees(6.0 + 48.0 * lift * lift, 0.0, 0.0);
    if (bone.endsWith(QLatin1String("Foot")))
        return degrees(-2.0 + 14.0 * wave(seconds, side + 0.4), 0.0, 0.0);
    return degrees(-22.0 * std::max(0.0, wave(seconds, side + 0.42)), 0.0, 0.0);
}

QVector3D armRotation(const QString &bone, double seconds)
{
    const double side = sideOffset(bone);
    const double swing = wave(seconds, side + 0.5);
    if (bone.endsWith(QLatin1String("Collar")))
        return degrees(0.0, 2.0 * swing, 1.5 * stepWave(seconds) * mirror(bone));
    if (bone.endsWith(QLatin1String("Shoulder")))
        return degrees(0.0, -22.0 * swing * mirror(bone), -72.0 * mirror(bone));
    if (bone.endsWith(QLatin1String("Forearm")))
        return degrees(0.0, (-24.0 - 10.0 * std::max(0.0, swing)) * mirror(bone), 0.0);
    return degrees(4.0 * swing, 0.0, 3.0 * mirror(bone));
}

QVector3D trunkRotation(const QString &bone, double seconds)
{
    if (bone == QLatin1String("hip"))
        return degrees(2.0, -5.0 * wave(seconds), 2.0 * wave(seconds, 0.1));
    if (bone.startsWith(QLatin1String("abdomen")))
        return degrees(1.0, 2.5 * wave(seconds), -1.5 * wave(seconds, 0.1));
    if (bone.startsWith(QLatin1String("chest")))
        return degrees(1.5, 3.0 * wave(seconds), -0.5 * wave(seconds, 0.1));
    if (bone.startsWith(QLatin1String("neck")))
        return degrees(-1.5, -2.0 * wave(seconds), 0.0);
    return degrees(-2.0 + 1.2 * stepWave(seconds, 0.1), -1.0 * wave(seconds), 0.0);
}

bool endsWithOneOf(const QString &bone, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(),
                       [&bone](const char *name) { return bone.endsWith(QLatin1String(name)); });
}

} // namespace

QVector3D WalkMotion::hipPosition(double seconds)
{
    return degrees(1.8 * wave(seconds, 0.25), -1.5 + 2.2 * stepWave(seconds, 0.06),
                   StrideLength * seconds / StrideSeconds);
}

QVector3D WalkMotion::rotation(const QString &bone, double seconds)
{
    if (endsWithOneOf(bone, {"Thigh", "Shin", "Foot", "Toe"}))
        return legRotation(bone, seconds);
    if (endsWithOneOf(bone, {"Collar", "Shoulder", "Forearm", "Hand"}))
        return armRotation(bone, seconds);
    if (bone == QLatin1String("hip") || bone == QLatin1String("head") ||
        bone.startsWith(QLatin1String("abdomen")) || bone.startsWith(QLatin1String("chest")) ||
        bone.startsWith(QLatin1String("neck")))
        return trunkRotation(bone, seconds);
    return {};
}

float WalkMotion::rounded(double value)
{
    const double scaled = std::round(value * 10000.0) / 10000.0;
    return scaled == 0.0 ? 0.0f : float(scaled);
}
