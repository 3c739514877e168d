#include "keys/keysmoothfit.h"

namespace {

// Weight of the samples' own slopes beside the least squares: decides where two keys have few
// samples between them.
constexpr double SlopeWeight = 1e-3;

} // namespace

KeySmoothFit::KeySmoothFit(const KeySamples &samples, double error)
    : m_samples(samples)
    , m_error(error)
{
}

TcbChain::Knot KeySmoothFit::knot(int i) const
{
    const FitTarget::Point point = m_samples.point(i);
    return {m_samples.times()[i], VxKeyInterp::Tcb, point.value, point.slope, point.slope};
}

/* The tangents o and p, for s from 0 to 1, minimise the squares of
       value - (h00 a + h01 b) - h10 o - h11 p    with the Hermite basis h. */
void KeySmoothFit::solve(int i, int j, TcbChain::Knot *left, TcbChain::Knot *right) const
{
    const double start = left->time;
    const double span = double(right->time) - start;
    double aa = SlopeWeight, ab = 0, bb = SlopeWeight;
    std::array<double, FitTarget::MaxChannels> ra = {}, rb = {};
    for (std::size_t c = 0; c < channels(); ++c) {
        ra[c] = SlopeWeight * left->out[c] * span;
        rb[c] = SlopeWeight * right->in[c] * span;
    }
    for (int k = i + 1; k < j; ++k) {
        const double s = (m_samples.times()[k] - start) / span;
        const double h10 = s * (1 - s) * (1 - s);
        const double h11 = -s * s * (1 - s);
        const double h01 = s * s * (3 - 2 * s);
        aa += h10 * h10;
        ab += h10 * h11;
        bb += h11 * h11;
        for (std::size_t c = 0; c < channels(); ++c) {
            const double rest =
                m_samples.value(c, k) - left->value[c] - h01 * (right->value[c] - left->value[c]);
            ra[c] += h10 * rest;
            rb[c] += h11 * rest;
        }
    }
    const double determinant = aa * bb - ab * ab;
    for (std::size_t c = 0; c < channels(); ++c) {
        left->out[c] = (ra[c] * bb - rb[c] * ab) / determinant / span;
        right->in[c] = (rb[c] * aa - ra[c] * ab) / determinant / span;
    }
}

bool KeySmoothFit::isWithin(int i, int j, const TcbChain::Knot &left,
                            const TcbChain::Knot &right) const
{
    const double start = left.time;
    const double span = double(right.time) - start;
    std::array<CurveSegment, FitTarget::MaxChannels> curves;
    for (std::size_t c = 0; c < channels(); ++c) {
        const double rise = right.value[c] - left.value[c];
        const double out = left.out[c] * span;
        const double in = right.in[c] * span;
        curves[c] = {
            start, 1 / span, left.value[c], out, 3 * rise - 2 * out - in, out + in - 2 * rise};
    }
    std::array<double, FitTarget::MaxChannels> values = {};
    for (int k = i + 1; k < j; ++k) {
        for (std::size_t c = 0; c < channels(); ++c)
            values[c] = curves[c].at(m_samples.times()[k]);
        if (!m_samples.isWithin(k, values, m_error))
            return false;
    }
    return true;
}

bool KeySmoothFit::reaches(int i, int j) const
{
    TcbChain::Knot left = knot(i);
    TcbChain::Knot right = knot(j);
    solve(i, j, &left, &right);
    return isWithin(i, j, left, right);
}

TcbChain KeySmoothFit::chain(const std::vector<int> &kept) const
{
    std::vector<TcbChain::Knot> knots;
    knots.reserve(kept.size());
    for (const int i : kept)
        knots.push_back(knot(i));
    for (std::size_t i = 0; i + 1 < kept.size(); ++i)
        solve(kept[i], kept[i + 1], &knots[i], &knots[i + 1]);
    return TcbChain(m_samples.channels(), std::move(knots));
}
