#ifndef COLORVISION_H
#define COLORVISION_H

#include <QColor>
#include <array>
#include <cmath>

/// Simulated dichromacy and perceived distances of colours.
namespace ColorVision {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

enum class Kind { Normal, Protanopia, Deuteranopia, Tritanopia };
constexpr Kind AllKinds[] = {Kind::Normal, Kind::Protanopia, Kind::Deuteranopia, Kind::Tritanopia};

/// Linear parts of red, green and blue, 0 to 1 (IEC 61966-2-1, sRGB).
inline Triple linear(const QColor &color)
{
    const auto part = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return {part(color.redF()), part(color.greenF()), part(color.blueF())};
}

inline Triple product(const Matrix &matrix, const Triple &vector)
{
    Triple result{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * vector[column];
    return result;
}

/// What a person with complete dichromacy sees, in linear parts. Matrices for severity 1.0 of
/// G. M. Machado, M. M. Oliveira, L. A. F. Fernandes: "A Physiologically-based Model for Simulation
/// of Color Vision Deficiency", IEEE Transactions on Visualization and Computer Graphics 15 (6),
/// 2009.
inline Triple seen(const QColor &color, Kind kind)
{
    static const Matrix protanopia = {{{0.152286, 1.052583, -0.204868},
                                       {0.114503, 0.786281, 0.099216},
                                       {-0.003882, -0.048116, 1.051998}}};
    static const Matrix deuteranopia = {{{0.367322, 0.860646, -0.227968},
                                         {0.280085, 0.672501, 0.047413},
                                         {-0.011820, 0.042940, 0.968881}}};
    static const Matrix tritanopia = {{{1.255528, -0.076749, -0.178779},
                                       {-0.078411, 0.930809, 0.147602},
                                       {0.004733, 0.691367, 0.303900}}};
    Triple result = linear(color);
    if (kind != Kind::Normal) {
        result = product(kind == Kind::Protanopia     ? protanopia
                         : kind == Kind::Deuteranopia ? deuteranopia
                                                      : tritanopia,
                         result);
    }
    for (double &part : result)
        part = std::min(1.0, std::max(0.0, part));
    return result;
}

/// CIE 1976 L*a*b* for the white D65.
inline Triple lab(const Triple &rgb)
{
    static const Matrix toXyz = {{{0.4124564, 0.3575761, 0.1804375},
                                  {0.2126729, 0.7151522, 0.0721750},
                                  {0.0193339, 0.1191920, 0.9503041}}};
    const Triple xyz = product(toXyz, rgb);
    const auto f = [](double t) {
        return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
    };
    const double x = f(xyz[0] / 0.95047), y = f(xyz[1]), z = f(xyz[2] / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

inline double radians(double degrees)
{
    return degrees * M_PI / 180;
}

/// Hue angle in degrees, 0 to 360; 0 for grey.
inline double hue(double a, double b)
{
    const double degrees = a == 0 && b == 0 ? 0 : std::atan2(b, a) * 180 / M_PI;
    return degrees < 0 ? degrees + 360 : degrees;
}

inline double pow7Ratio(double chroma)
{
    const double power = std::pow(chroma, 7);
    return std::sqrt(power / (power + std::pow(25.0, 7)));
}

/// The colour difference CIEDE2000 of two colours in L*a*b*, after G. Sharma, W. Wu, E. N. Dalal:
/// "The CIEDE2000 Color-Difference Formula", Color Research and Application 30 (1), 2005. About 1
/// is just noticeable side by side.
inline double difference(const Triple &first, const Triple &second)
{
    const double g =
        0.5 *
        (1 - pow7Ratio((std::hypot(first[1], first[2]) + std::hypot(second[1], second[2])) / 2));
    const double a1 = first[1] * (1 + g), a2 = second[1] * (1 + g);
    const double c1 = std::hypot(a1, first[2]), c2 = std::hypot(a2, second[2]);
    const double h1 = hue(a1, first[2]), h2 = hue(a2, second[2]);
    double dh = 0, meanHue = h1 + h2;
    if (c1 * c2 > 0) {
        dh = h2 - h1 > 180 ? h2 - h1 - 360 : h2 - h1 < -180 ? h2 - h1 + 360 : h2 - h1;
        if (std::abs(h1 - h2) <= 180)
            meanHue = (h1 + h2) / 2;
        else
            meanHue = h1 + h2 < 360 ? (h1 + h2 + 360) / 2 : (h1 + h2 - 360) / 2;
    }
    const double dHue = 2 * std::sqrt(c1 * c2) * std::sin(radians(dh / 2));
    const double meanL = (first[0] + second[0]) / 2, meanC = (c1 + c2) / 2;
    const double t =
        1 - 0.17 * std::cos(radians(meanHue - 30)) + 0.24 * std::cos(radians(2 * meanHue)) +
        0.32 * std::cos(radians(3 * meanHue + 6)) - 0.20 * std::cos(radians(4 * meanHue - 63));
    const double square = (meanL - 50) * (meanL - 50);
    const double l = (second[0] - first[0]) / (1 + 0.015 * square / std::sqrt(20 + square));
    const double c = (c2 - c1) / (1 + 0.045 * meanC);
    const double h = dHue / (1 + 0.015 * meanC * t);
    const double turn = 30 * std::exp(-std::pow((meanHue - 275) / 25, 2));
    return std::sqrt(l * l + c * c + h * h -
                     std::sin(radians(2 * turn)) * 2 * pow7Ratio(meanC) * c * h);
}

inline double difference(const QColor &first, const QColor &second, Kind kind)
{
    return difference(lab(seen(first, kind)), lab(seen(second, kind)));
}

} // namespace ColorVision

#endif
