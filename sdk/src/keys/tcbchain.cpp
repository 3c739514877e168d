#include "keys/tcbchain.h"

#include <algorithm>
#include <cmath>

namespace {

// Usual magnitude of tension, continuity and bias; another bias is tried beyond it.
constexpr double UsualRange = 1.0;

struct Shape
{
    double tension = 0, continuity = 0, bias = 0;

    double size() const
    {
        const double size = std::max({std::abs(tension), std::abs(continuity), std::abs(bias)});
        return std::isfinite(size) ? size : HUGE_VAL;
    }
};

/* With k = 1 - T, both tangents in the unit of even keys:
       in + out = k ((1 + B) l + (1 - B) r),  out - in = k C ((1 + B) l - (1 - B) r). */
Shape shapeForBias(double l, double r, double in, double out, double bias)
{
    const double both = (1 + bias) * l + (1 - bias) * r;
    const double difference = (1 + bias) * l - (1 - bias) * r;
    const double k = both == 0 ? 1 : (in + out) / both;
    const double broken = out - in;
    return {1 - k, broken == 0 ? 0 : broken / (k * difference), bias};
}

bool reproduces(const Shape &shape, double l, double r, double in, double out)
{
    const CurveKey key{0, 0, shape.tension, shape.continuity, shape.bias};
    CurveChord left, right;
    left.rise = l;
    right.rise = r;
    left.span = right.span = 1;
    const double tolerance = 1e-9 * std::max(std::abs(in), std::abs(out));
    return std::abs(incomingTangent(key, left, right) - in) <= tolerance &&
           std::abs(outgoingTangent(key, left, right) - out) <= tolerance;
}

Shape bestShape(double l, double r, double in, double out)
{
    if (in == 0 && out == 0)
        return {1, 0, 0};
    Shape best = shapeForBias(l, r, in, out, 0);
    if (best.size() <= UsualRange && reproduces(best, l, r, in, out))
        return best;
    double least = HUGE_VAL;
    const auto tryBias = [&](double bias) {
        const Shape shape = shapeForBias(l, r, in, out, bias);
        if (shape.size() < least && reproduces(shape, l, r, in, out)) {
            least = shape.size();
            best = shape;
        }
    };
    for (int i = -8; i <= 8; ++i)
        tryBias(i / 8.0);
    if (l != r)
        tryBias((l + r) / (r - l));
    const double equalChords = std::sqrt(std::abs((out - in) / (out + in)));
    if (std::isfinite(equalChords)) {
        tryBias(equalChords);
        tryBias(-equalChords);
    }
    // Unreachable tangents: the plain smooth key; refine() then adds keys.
    return least == HUGE_VAL ? Shape() : best;
}

CurveKey keyAt(const TcbChain::Knot &knot, int channel)
{
    return {double(knot.time), double(float(knot.value[std::size_t(channel)]))};
}

} // namespace

VxTcb tcbOfTangents(const CurveChord &left, const CurveChord &right, double in, double out)
{
    // Scales tangents per tick to even keys, which removes the factor of unequal spans.
    const double half = (left.span + right.span) / 2;
    const Shape shape = bestShape(left.rise, right.rise, in * half, out * half);
    return {float(shape.tension), float(shape.continuity), float(shape.bias)};
}

TcbChain::TcbChain(int channels, std::vector<Knot> knots)
    : m_channels(channels)
    , m_knots(std::move(knots))
{
    if (m_knots.size() > 1)
        m_knots.back().type = m_knots[m_knots.size() - 2].type;
    straightenAfterSmooth();
    shapeKeys();
}

void TcbChain::straightenAfterSmooth()
{
    for (std::size_t i = 1; i + 1 < m_knots.size(); ++i) {
        Knot &knot = m_knots[i];
        Knot &next = m_knots[i + 1];
        if (m_knots[i - 1].type != VxKeyInterp::Tcb || knot.type != VxKeyInterp::Linear)
            continue;
        knot.type = VxKeyInterp::Tcb;
        for (std::size_t c = 0; c < std::size_t(m_channels); ++c) {
            knot.out[c] = (double(float(next.value[c])) - double(float(knot.value[c]))) /
                          (double(next.time) - double(knot.time));
            next.in[c] = knot.out[c];
        }
    }
    if (m_knots.size() > 1)
        m_knots.back().type = m_knots[m_knots.size() - 2].type;
}

void TcbChain::shapeKeys()
{
    m_tcb.assign(m_knots.size(), {});
    for (std::size_t i = 0; i < m_knots.size(); ++i) {
        const Knot &knot = m_knots[i];
        if (knot.type != VxKeyInterp::Tcb || m_knots.size() < 2)
            continue;
        const bool hasLeft = i > 0;
        const bool hasRight = i + 1 < m_knots.size();
        const bool shapesLeft = hasLeft && m_knots[i - 1].type == VxKeyInterp::Tcb;
        for (int c = 0; c < m_channels; ++c) {
            const CurveKey key = keyAt(knot, c);
            const CurveChord left =
                hasLeft ? CurveChord(keyAt(m_knots[i - 1], c), key) : CurveChord();
            const CurveChord right =
                hasRight ? CurveChord(key, keyAt(m_knots[i + 1], c)) : CurveChord();
            const double in = knot.in[std::size_t(c)];
            const double out = knot.out[std::size_t(c)];
            m_tcb[i][std::size_t(c)] =
                tcbOfTangents(hasLeft ? left : right, hasRight ? right : left,
                              shapesLeft ? in : out, hasRight ? out : in);
        }
    }
}

CurveKey TcbChain::curveKey(std::size_t i, int channel) const
{
    CurveKey key = keyAt(m_knots[i], channel);
    const VxTcb &tcb = m_tcb[i][std::size_t(channel)];
    key.tension = double(tcb.tension);
    key.continuity = double(tcb.continuity);
    key.bias = double(tcb.bias);
    return key;
}

CurveSegment TcbChain::segment(std::size_t i, int channel) const
{
    return segmentAt(int(i), int(m_knots.size()), m_knots[i].type,
                     [this, channel](int k) { return curveKey(std::size_t(k), channel); });
}

double TcbChain::worst(const FitTarget &target, std::size_t i, VxTime *time)
{
    std::array<CurveSegment, FitTarget::MaxChannels> curves;
    for (int c = 0; c < m_channels; ++c)
        curves[std::size_t(c)] = segment(i, c);
    m_places.clear();
    target.places(m_knots[i].time, m_knots[i + 1].time, &m_places);
    double worst = 0;
    std::array<double, FitTarget::MaxChannels> values = {};
    for (const VxTime place : m_places) {
        for (std::size_t c = 0; c < std::size_t(m_channels); ++c)
            values[c] = curves[c].at(place);
        const double error = target.error(place, values);
        if (error > worst) {
            worst = error;
            *time = place;
        }
    }
    return worst;
}

void TcbChain::insert(const FitTarget &target, const std::vector<Split> &splits)
{
    std::vector<Knot> knots;
    knots.reserve(m_knots.size() + splits.size());
    std::size_t next = 0;
    for (std::size_t i = 0; i < m_knots.size(); ++i) {
        knots.push_back(m_knots[i]);
        if (next == splits.size() || splits[next].segment != i)
            continue;
        const FitTarget::Point point = target.at(splits[next].time);
        knots.push_back(
            {splits[next].time, m_knots[i].type, point.value, point.slope, point.slope});
        ++next;
    }
    m_knots = std::move(knots);
}

double TcbChain::refine(const FitTarget &target, double error)
{
    double largest = 0;
    for (;;) {
        std::vector<Split> splits;
        largest = 0;
        for (std::size_t i = 0; i + 1 < m_knots.size(); ++i) {
            VxTime time = 0;
            const double distance = worst(target, i, &time);
            largest = std::max(largest, distance);
            if (!(distance > error))
                continue;
            // The constant key gives no tangent to the smooth segment before it: a key right before
            // it does.
            const bool endsConstant =
                m_knots[i].type == VxKeyInterp::Tcb && m_knots[i + 1].type == VxKeyInterp::Constant;
            splits.push_back({i, endsConstant ? m_places.back() : time});
        }
        if (splits.empty())
            return largest;
        insert(target, splits);
        shapeKeys();
    }
}

VxFittedKeys TcbChain::keys(int channel) const
{
    VxFittedKeys keys;
    const auto c = std::size_t(channel);
    bool hasTcb = false;
    for (std::size_t i = 0; i < m_knots.size(); ++i) {
        keys.times.push_back(m_knots[i].time);
        keys.values.push_back(float(m_knots[i].value[c]));
        keys.types.push_back(m_knots[i].type);
        keys.tcb.push_back(m_tcb[i][c]);
        hasTcb = hasTcb || m_tcb[i][c] != VxTcb();
    }
    if (!hasTcb)
        keys.tcb.clear();
    return keys;
}
