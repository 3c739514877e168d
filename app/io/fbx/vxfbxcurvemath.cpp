#include "io/fbx/vxfbxcurvemath.h"

#include <algorithm>
#include <cmath>

namespace {

// One segment, with the one-sided limits at its ends.
struct Piece
{
    double start;
    double end;
    VxCurveSample first;
    VxCurveSample last;
    VxMotionSegment segment;
};

bool isWeighted(const VxMotionCurve &curve, std::size_t segment)
{
    return !curve.shapes.empty() && curve.shapes[segment].segment == VxMotionSegment::Cubic &&
           (std::abs(curve.shapes[segment].outWeight - 1.0 / 3.0) > 1e-9 ||
            std::abs(curve.shapes[segment + 1].inWeight - 1.0 / 3.0) > 1e-9);
}

// The parameter of the Bezier curve 0, w0, 1 - w1, 1 at value u; the curve is monotonic.
double parameterAt(double u, double w0, double w1)
{
    double low = 0.0;
    double high = 1.0;
    double s = u;
    for (int i = 0; i < 60 && high - low > 1e-15; ++i) {
        const double r = 1.0 - s;
        const double x = 3.0 * r * r * s * w0 + 3.0 * r * s * s * (1.0 - w1) + s * s * s - u;
        (x < 0.0 ? low : high) = s;
        const double slope = 3.0 * (r * r * w0 + 2.0 * r * s * (1.0 - w1 - w0) + s * s * w1);
        const double next = slope > 0.0 ? s - x / slope : -1.0;
        s = next > low && next < high ? next : 0.5 * (low + high);
        if (std::abs(x) < 1e-15)
            break;
    }
    return s;
}

VxCurveSample sampleCubic(const VxMotionCurve &curve, std::size_t i, double time)
{
    const VxMotionShape &from = curve.shapes[i];
    const VxMotionShape &to = curve.shapes[i + 1];
    const double span = curve.times[i + 1] - curve.times[i];
    const double u = std::clamp((time - curve.times[i]) / span, 0.0, 1.0);
    const double w0 = from.outWeight;
    const double w1 = to.inWeight;
    const double y[] = {curve.values[i], curve.values[i] + from.outSlope * w0 * span,
                        curve.values[i + 1] - to.inSlope * w1 * span, curve.values[i + 1]};
    const double s = isWeighted(curve, i) ? parameterAt(u, w0, w1) : u;
    const double r = 1.0 - s;
    const double value =
        r * r * r * y[0] + 3.0 * r * r * s * y[1] + 3.0 * r * s * s * y[2] + s * s * s * y[3];
    const double dy =
        3.0 * (r * r * (y[1] - y[0]) + 2.0 * r * s * (y[2] - y[1]) + s * s * (y[3] - y[2]));
    const double dx = 3.0 * (r * r * w0 + 2.0 * r * s * (1.0 - w1 - w0) + s * s * w1) * span;
    const double slope = dx > 0.0 ? dy / dx : 0.0;
    return {value, std::isfinite(slope) ? slope : 0.0};
}

// Joins consecutive pieces. Where the end value of one differs from the start value of the next,
// the end is moved one tick earlier.
class CurveWriter
{
public:
    void append(const Piece &piece)
    {
        if (!m_curve.times.empty())
            closeAt(piece.start, piece.first.value);
        m_last = piece.last;
        m_lastStart = piece.start;
        m_lastSegment = piece.segment;
        VxMotionShape shape;
        shape.segment = piece.segment;
        shape.inSlope = m_inSlope;
        shape.outSlope = piece.first.slope;
        add(piece.start, piece.first.value, shape);
    }

    VxMotionCurve finish(double end, double value)
    {
        closeAt(end, value);
        VxMotionShape shape;
        shape.inSlope = m_inSlope;
        add(end, value, shape);
        return std::move(m_curve);
    }

    std::size_t count() const { return m_curve.times.size(); }

private:
    void closeAt(double time, double value)
    {
        m_inSlope = m_last.slope;
        const double scale = std::max({1.0, std::abs(value), std::abs(m_last.value)});
        if (m_lastSegment == VxMotionSegment::Step ||
            std::abs(value - m_last.value) <= 1e-7 * scale ||
            time - m_lastStart < 2.0 * VxFbxSceneTick)
            return;
        VxMotionShape shape;
        shape.segment = VxMotionSegment::Step;
        shape.inSlope = m_last.slope;
        add(time - VxFbxSceneTick, m_last.value, shape);
    }

    void add(double time, double value, const VxMotionShape &shape)
    {
        m_curve.times.push_back(time);
        m_curve.values.push_back(value);
        m_curve.shapes.push_back(shape);
    }

    VxMotionCurve m_curve;
    VxCurveSample m_last;
    double m_inSlope = 0.0;
    double m_lastStart = 0.0;
    VxMotionSegment m_lastSegment = VxMotionSegment::Step;
};

double hermite(const Piece &piece, double time)
{
    const double span = piece.end - piece.start;
    const double u = (time - piece.start) / span;
    const double r = 1.0 - u;
    return r * r * (1.0 + 2.0 * u) * piece.first.value +
           u * u * (1.0 + 2.0 * r) * piece.last.value +
           span * (r * r * u * piece.first.slope - u * u * r * piece.last.slope);
}

using Function = std::function<double(double, VxCurveSide)>;

// The slopes at the ends from values inside the piece: a parabola through three of them.
Piece pieceOf(const Function &f, double start, double end)
{
    const double step = (end - start) * 1e-3;
    const double y0 = f(start, VxCurveSide::Right);
    const double y1 = f(end, VxCurveSide::Left);
    const double before = (-3.0 * y0 + 4.0 * f(start + step, VxCurveSide::Right) -
                           f(start + 2.0 * step, VxCurveSide::Right)) /
                          (2.0 * step);
    const double after = (3.0 * y1 - 4.0 * f(end - step, VxCurveSide::Right) +
                          f(end - 2.0 * step, VxCurveSide::Right)) /
                         (2.0 * step);
    const bool isFlat = y0 == y1 && before == 0.0 && after == 0.0;
    return {start,
            end,
            {y0, before},
            {y1, after},
            isFlat ? VxMotionSegment::Step : VxMotionSegment::Cubic};
}

bool isClose(const Piece &piece, const Function &f, double tolerance)
{
    for (const double part : {0.2, 0.5, 0.8}) {
        const double time = piece.start + part * (piece.end - piece.start);
        if (std::abs(hermite(piece, time) - f(time, VxCurveSide::Right)) > tolerance)
            return false;
    }
    return true;
}

} // namespace

VxCurveSample vxSampleCurve(const VxMotionCurve &curve, double time, VxCurveSide side)
{
    const auto begin = curve.times.begin();
    const auto after = side == VxCurveSide::Left ? std::lower_bound(begin, curve.times.end(), time)
                                                 : std::upper_bound(begin, curve.times.end(), time);
    if (after == begin)
        return {curve.values.front(), 0.0};
    if (after == curve.times.end())
        return {curve.values.back(), 0.0};
    const auto i = static_cast<std::size_t>(after - begin) - 1;
    const VxMotionSegment segment =
        curve.shapes.empty() ? VxMotionSegment::Linear : curve.shapes[i].segment;
    if (segment == VxMotionSegment::Step)
        return {curve.values[i], 0.0};
    if (segment == VxMotionSegment::Cubic)
        return sampleCubic(curve, i, time);
    const double slope =
        (curve.values[i + 1] - curve.values[i]) / (curve.times[i + 1] - curve.times[i]);
    return {curve.values[i] + slope * (time - curve.times[i]), slope};
}

void vxScaleCurve(VxMotionCurve *curve, double factor, double offset)
{
    for (double &value : curve->values)
        value = factor * value + offset;
    for (VxMotionShape &shape : curve->shapes) {
        shape.inSlope *= factor;
        shape.outSlope *= factor;
    }
}

std::vector<double> vxKeyTimes(const std::vector<const VxMotionCurve *> &curves)
{
    std::vector<double> times;
    for (const VxMotionCurve *curve : curves)
        times.insert(times.end(), curve->times.begin(), curve->times.end());
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

// A damaged file must not turn few keys into millions.
std::size_t vxMaxSampledKeys(std::size_t breakCount)
{
    return 5 * breakCount + 200;
}

VxMotionCurve vxSampledCurve(const std::vector<double> &breaks, const Function &function,
                             double tolerance)
{
    const std::size_t maxKeys = vxMaxSampledKeys(breaks.size());
    CurveWriter writer;
    std::vector<double> open; // ends of the pieces to the right of the present one
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        double start = breaks[i];
        open.assign(1, breaks[i + 1]);
        while (!open.empty()) {
            const Piece piece = pieceOf(function, start, open.back());
            const bool isShort = piece.end - piece.start < 2.0 * VxFbxSceneTick;
            if (isShort || writer.count() + breaks.size() - i >= maxKeys ||
                isClose(piece, function, tolerance)) {
                writer.append(piece);
                start = piece.end;
                open.pop_back();
            } else {
                open.push_back(0.5 * (piece.start + piece.end));
            }
        }
    }
    return breaks.empty()
               ? VxMotionCurve()
               : writer.finish(breaks.back(), function(breaks.back(), VxCurveSide::Right));
}

VxMotionCurve VxCurveSum::toCurve(double tolerance) const
{
    if (terms.empty())
        return {};
    if (terms.size() == 1) {
        const double factor = terms.front().factor;
        VxMotionCurve curve = *terms.front().curve;
        vxScaleCurve(&curve, factor, offset);
        return curve;
    }
    std::vector<const VxMotionCurve *> curves;
    bool hasWeights = false;
    for (const Term &term : terms) {
        curves.push_back(term.curve);
        for (std::size_t i = 0; i + 1 < term.curve->times.size() && !hasWeights; ++i)
            hasWeights = isWeighted(*term.curve, i);
    }
    const std::vector<double> times = vxKeyTimes(curves);
    const auto sum = [this](double time, VxCurveSide side) {
        VxCurveSample total{offset, 0.0};
        for (const Term &term : terms) {
            const VxCurveSample sample = vxSampleCurve(*term.curve, time, side);
            total.value += term.factor * sample.value;
            total.slope += term.factor * sample.slope;
        }
        return total;
    };
    if (hasWeights)
        return vxSampledCurve(
            times, [&sum](double t, VxCurveSide side) { return sum(t, side).value; }, tolerance);
    CurveWriter writer;
    for (std::size_t i = 0; i + 1 < times.size(); ++i) {
        Piece piece{times[i], times[i + 1], sum(times[i], VxCurveSide::Right),
                    sum(times[i + 1], VxCurveSide::Left), VxMotionSegment::Cubic};
        const double chord = (piece.last.value - piece.first.value) / (piece.end - piece.start);
        const double room = 1e-12 * (1.0 + std::abs(chord));
        if (std::abs(piece.first.slope - chord) <= room &&
            std::abs(piece.last.slope - chord) <= room)
            piece.segment = chord == 0.0 ? VxMotionSegment::Step : VxMotionSegment::Linear;
        writer.append(piece);
    }
    return writer.finish(times.back(), sum(times.back(), VxCurveSide::Right).value);
}
