#include "keys/tcbchain.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int PlacesPerSegment = 32;

/// The cubic Bezier value (1 - u)^3 p0 + 3u(1 - u)^2 p1 + 3u^2(1 - u) p2 + u^3 p3.
double bezier(double p0, double p1, double p2, double p3, double u)
{
    const double v = 1 - u;
    return v * v * v * p0 + 3 * u * v * v * p1 + 3 * u * u * v * p2 + u * u * u * p3;
}

double bezierSlope(double p0, double p1, double p2, double p3, double u)
{
    const double v = 1 - u;
    return 3 * (v * v * (p1 - p0) + 2 * u * v * (p2 - p1) + u * u * (p3 - p2));
}

/// The parameter at which handles at x1 and x2 (0 to 1) reach the fraction s of the span: Newton's
/// method, with bisection where it leaves the bracket.
double parameterAt(double s, double x1, double x2)
{
    double low = 0;
    double high = 1;
    double u = s;
    for (int i = 0; i < 60; ++i) {
        const double beyond = bezier(0, x1, x2, 1, u) - s;
        if (std::abs(beyond) < 1e-14)
            break;
        (beyond > 0 ? high : low) = u;
        const double next = u - beyond / bezierSlope(0, x1, x2, 1, u);
        u = next > low && next < high ? next : (low + high) / 2;
    }
    return u;
}

class PointTarget : public FitTarget
{
public:
    explicit PointTarget(const std::vector<VxCurvePoint> &points)
        : m_points(points)
    {
    }

    Point at(VxTime time) const override;
    double error(VxTime time, const std::array<double, MaxChannels> &values) const override
    {
        return std::abs(values[0] - at(time).value[0]);
    }
    void places(VxTime from, VxTime to, std::vector<VxTime> *times) const override;

private:
    const std::vector<VxCurvePoint> &m_points;
};

FitTarget::Point PointTarget::at(VxTime time) const
{
    const auto after =
        std::upper_bound(m_points.begin() + 1, m_points.end() - 1, time,
                         [](VxTime t, const VxCurvePoint &point) { return t < point.time; });
    const VxCurvePoint &a = *(after - 1);
    const VxCurvePoint &b = *after;
    const double span = double(b.time) - double(a.time);
    const double s = (double(time) - double(a.time)) / span;
    if (a.type == VxKeyInterp::Constant)
        return {{a.value}, {0}};
    if (a.type == VxKeyInterp::Linear)
        return {{a.value + s * (b.value - a.value)}, {(b.value - a.value) / span}};
    const double w1 = std::clamp(a.outWeight, 0.0, 1.0);
    const double w2 = std::clamp(b.inWeight, 0.0, 1.0);
    const double p1 = a.value + w1 * span * a.outSlope / VxTicksPerSecond;
    const double p2 = b.value - w2 * span * b.inSlope / VxTicksPerSecond;
    const double u = parameterAt(s, w1, 1 - w2);
    const double run = std::max(bezierSlope(0, w1, 1 - w2, 1, u), 1e-6) * span;
    return {{bezier(a.value, p1, p2, b.value, u)},
            {bezierSlope(a.value, p1, p2, b.value, u) / run}};
}

void PointTarget::places(VxTime from, VxTime to, std::vector<VxTime> *times) const
{
    const qint64 span = qint64(to) - from;
    const qint64 count = std::min<qint64>(span, PlacesPerSegment);
    for (qint64 i = 1; i < count; ++i)
        times->push_back(VxTime(from + span * i / count));
    if (!times->empty() && times->back() != to - 1)
        times->push_back(to - 1);
}

} // namespace

VxFittedKeys vxFitCurve(const std::vector<VxCurvePoint> &points, double error)
{
    std::vector<TcbChain::Knot> knots;
    knots.reserve(points.size());
    double largestValue = 0;
    for (const VxCurvePoint &point : points) {
        largestValue = std::max(largestValue, std::abs(point.value));
        knots.push_back({point.time,
                         point.type,
                         {point.value},
                         {point.inSlope / VxTicksPerSecond},
                         {point.outSlope / VxTicksPerSecond}});
    }
    error = std::max(error > 0 ? error : 0, SinglePrecision * largestValue);
    TcbChain chain(1, std::move(knots));
    const double largest = points.size() < 2 ? 0 : chain.refine(PointTarget(points), error);
    VxFittedKeys keys = chain.keys(0);
    keys.error = largest;
    return keys;
}
