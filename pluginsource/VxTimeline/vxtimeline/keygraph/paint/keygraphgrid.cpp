#include "vxtimeline/keygraph/paint/keygraphgrid.h"

#include <cmath>

namespace KeyGraphGrid {

namespace {

constexpr double SmallestMinorSpacing = 12.0; // pixels
constexpr qint64 MinLabels = 3;
constexpr double LargestLineNumber = 1e15; // limit of precision for adjacent lines

// The first digit of a round step, 1, 2 or 5.
int leadingDigit(double step)
{
    const double digit = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    return digit < 1.5 ? 1 : digit < 3.5 ? 2 : 5;
}

// A range of whole multiples of a step.
struct Run
{
    qint64 first = 0;
    qint64 last = -1;
};

Run multiplesBetween(double low, double high, double step)
{
    const double first = std::ceil(low / step);
    const double last = std::floor(high / step);
    if (!(std::abs(first) < LargestLineNumber && std::abs(last) < LargestLineNumber))
        return {};
    return {static_cast<qint64>(first), static_cast<qint64>(last)};
}

// The step of labelled lines: the smallest round one that keeps them spacing pixels apart, or the
// largest one that still fits three labels between the first and the last possible position.
double valueStep(const KeyGraphScale &scale, int height, double spacing, double labelHeight)
{
    const double perPixel = std::abs(scale.valuePerPixel);
    const double ends[] = {scale.value(labelHeight), scale.value(height - labelHeight)};
    double step = roundStep(spacing * perPixel);
    const auto labels = [&ends](double candidate) {
        const Run run = multiplesBetween(qMin(ends[0], ends[1]), qMax(ends[0], ends[1]), candidate);
        return run.last - run.first + 1;
    };
    while (labels(step) < MinLabels) {
        const double finer = step / (leadingDigit(step) == 5 ? 2.5 : 2.0);
        if (finer < qMax(1.0, labelHeight) * perPixel)
            break;
        step = finer;
    }
    return step;
}

int widestLabel(const KeyGraphScale &scale, int width, VxTime timeStep,
                const std::function<int(const QString &)> &labelWidth)
{
    const auto labelAt = [&](double x) {
        return QString::number(static_cast<qint64>(std::floor(scale.ticks(x) / timeStep)));
    };
    return qMax(labelWidth(labelAt(0)), labelWidth(labelAt(width)));
}

} // namespace

double roundStep(double smallest)
{
    if (!(smallest > 0.0) || !std::isfinite(smallest))
        return 1.0;
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        // Tolerance, because powers of ten are not exact.
        if (digit * power >= smallest * (1.0 - 1e-9))
            return digit * power;
    }
    return 10.0 * power;
}

int partsOf(double step)
{
    return leadingDigit(step) == 2 ? 4 : 5;
}

QString valueLabel(double value, double step)
{
    const double exponent = std::floor(std::log10(step) + 1e-9);
    if (exponent < -5.0 || std::abs(value) >= 1e7)
        return QString::number(value, 'g', 6);
    const int decimals = exponent < 0.0 ? static_cast<int>(-exponent) : 0;
    const double shown = std::abs(value) < step * 0.5 ? 0.0 : value;
    return QString::number(shown, 'f', decimals);
}

QVector<Line> valueLines(const KeyGraphScale &scale, int height, double spacing, double labelHeight)
{
    const double perPixel = std::abs(scale.valuePerPixel);
    const double step = valueStep(scale, height, spacing, labelHeight);
    const int parts = step / partsOf(step) / perPixel < SmallestMinorSpacing ? 1 : partsOf(step);
    const double low = qMin(scale.value(0), scale.value(height));
    const double high = qMax(scale.value(0), scale.value(height));
    const Run run = multiplesBetween(low, high, step / parts);
    QVector<Line> lines;
    for (qint64 i = run.first; i <= run.last; ++i) {
        const double value = double(i) * step / parts;
        const bool major = i % parts == 0;
        lines.append({scale.y(value), major, major ? valueLabel(value, step) : QString()});
    }
    return lines;
}

QVector<Line> frameLines(const KeyGraphScale &scale, int width, VxTime timeStep, double gap,
                         const std::function<int(const QString &)> &labelWidth)
{
    if (timeStep < 1)
        return {};
    const double framesPerPixel = scale.ticksPerPixel / timeStep;
    const double widest = widestLabel(scale, width, timeStep, labelWidth);
    const double step = std::round(roundStep(qMax(1.0, (widest + gap) * framesPerPixel)));
    int parts = step == 2.0 ? 2 : step == 1.0 ? 1 : partsOf(step);
    if (step / parts / framesPerPixel < SmallestMinorSpacing)
        parts = 1;
    const Run run =
        multiplesBetween(scale.ticks(0) / timeStep, scale.ticks(width) / timeStep, step / parts);
    QVector<Line> lines;
    for (qint64 i = run.first; i <= run.last; ++i) {
        const double frame = double(i) * step / parts;
        const bool major = i % parts == 0;
        lines.append({scale.x(frame * timeStep), major,
                      major ? QString::number(static_cast<qint64>(frame)) : QString()});
    }
    return lines;
}

} // namespace KeyGraphGrid
