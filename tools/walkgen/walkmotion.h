#ifndef WALKMOTION_H
#define WALKMOTION_H

#include <QString>
#include <QVector3D>

/// The walk as a function of time: pure arithmetic, from which keys are taken.
namespace WalkMotion {

/// Seconds of one stride (two steps), and strides in the sample.
constexpr double StrideSeconds = 1.2;
constexpr int Strides = 4;
/// Centimetres covered in one stride.
constexpr double StrideLength = 130.0;

/// The hip's place relative to rest, in centimetres.
QVector3D hipPosition(double seconds);

/// The rotation of a bone in degrees about X, Y and Z. Zero for bones that do not move.
QVector3D rotation(const QString &bone, double seconds);

/// To four decimals, so that the sample does not depend on the last bit of a sine.
float rounded(double value);

} // namespace WalkMotion

#endif
