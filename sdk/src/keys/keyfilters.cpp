#include <algorithm>
#include <cmath>
#include <vxcore/vxkeyfilter.h>

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double GaussianReach = 4; // standard deviations
constexpr int MaxTable = 1 << 16;
// Sum of three angle differences (degrees) up to which no equivalent rotation can be nearer.
constexpr double NearAngles = 90;

double seconds(double ticks)
{
    return ticks / VxTicksPerSecond;
}

/// Gaussian weights by distance in ticks, tabulated for small distances.
class GaussianWeights
{
public:
    explicit GaussianWeights(double sigma)
        : m_sigma(sigma * VxTicksPerSecond)
        , m_reach(std::min(GaussianReach * m_sigma, 4.3e9))
    {
        if (m_reach >= MaxTable)
            return;
        m_table.resize(std::size_t(m_reach) + 1);
        for (std::size_t i = 0; i < m_table.size(); ++i)
            m_table[i] = weight(double(i));
    }
    qint64 reach() const { return qint64(m_reach); }
    double at(qint64 distance) const
    {
        return m_table.empty() ? weight(double(distance)) : m_table[std::size_t(distance)];
    }

private:
    double weight(double distance) const
    {
        const double x = distance / m_sigma;
        return std::exp(-x * x / 2);
    }
    double m_sigma;
    double m_reach;
    std::vector<double> m_table;
};

/// Half the time from the previous key to the next one.
double spanOfKey(const VxTime *times, int count, int k)
{
    return (double(times[std::min(k + 1, count - 1)]) - times[std::max(k - 1, 0)]) / 2;
}

/// The end of the keys from `first` on that have equal distances.
int endOfEvenKeys(const VxTime *times, int count, int first)
{
    int end = first + 1;
    if (end == count)
        return end;
    const qint64 step = qint64(times[end]) - times[first];
    while (end < count && qint64(times[end]) - times[end - 1] == step)
        ++end;
    return end;
}

/// The smoothed value of one key. `first`: the first key within reach, ascending from call to call.
void smoothOne(const VxTime *times, const float *values, int count, int i,
               const GaussianWeights &weights, int *first, float *result)
{
    while (qint64(times[i]) - times[*first] > weights.reach())
        ++*first;
    double s0 = 0, s1 = 0, s2 = 0, v0 = 0, v1 = 0;
    for (int k = *first; k < count; ++k) {
        const qint64 distance = qint64(times[k]) - times[i];
        if (distance > weights.reach())
            break;
        const double w = weights.at(std::abs(distance)) * spanOfKey(times, count, k);
        const double d = seconds(double(distance));
        s0 += w;
        s1 += w * d;
        s2 += w * d * d;
        v0 += w * double(values[k]);
        v1 += w * d * double(values[k]);
    }
    const double determinant = s0 * s2 - s1 * s1;
    if (determinant > 1e-12 * s0 * s2)
        *result = float((v0 * s2 - v1 * s1) / determinant);
}

/// The weights, with a sum of 1, of a key and of those 1, 2, ... `steps` before and after it,
/// `step` ticks apart.
std::vector<double> kernel(const GaussianWeights &weights, qint64 step, int steps)
{
    std::vector<double> half(std::size_t(steps) + 1);
    double sum = 0;
    for (int k = 0; k <= steps; ++k) {
        half[std::size_t(k)] = weights.at(k * step);
        sum += (k == 0 ? 1 : 2) * half[std::size_t(k)];
    }
    for (double &weight : half)
        weight /= sum;
    return half;
}

/// Smooths keys at equal distances by their weighted mean: the slope of the line through a key has
/// no effect where its neighbours are symmetric. Values before and after the keys are read too.
void smoothEven(const float *values, int count, const std::vector<double> &half, float *result)
{
    constexpr int Lanes = 8; // in registers
    const int steps = int(half.size()) - 1;
    std::vector<double> wide(std::size_t(count) + 2 * std::size_t(steps) + Lanes);
    std::copy(values - steps, values + count + steps, wide.begin());
    for (int i = 0; i < count; i += Lanes) {
        const double *middle = wide.data() + steps + i;
        double sums[Lanes];
        for (int lane = 0; lane < Lanes; ++lane)
            sums[lane] = half[0] * middle[lane];
        for (int k = 1; k <= steps; ++k) {
            const double weight = half[std::size_t(k)];
            for (int lane = 0; lane < Lanes; ++lane)
                sums[lane] += weight * (middle[lane - k] + middle[lane + k]);
        }
        for (int lane = 0; lane < std::min(Lanes, count - i); ++lane)
            result[i + lane] = float(sums[lane]);
    }
}

/// The coefficients of a second order low pass: the input's are b, 2 b and b.
struct LowPass
{
    explicit LowPass(double tangent)
    {
        const double norm = 1 / (1 + std::sqrt(2.0) * tangent + tangent * tangent);
        b = tangent * tangent * norm;
        a1 = 2 * (tangent * tangent - 1) * norm;
        a2 = (1 - std::sqrt(2.0) * tangent + tangent * tangent) * norm;
    }
    double b, a1, a2;
};

/// One pass in place, started in the steady state of the first value. The terms of the input are
/// added first: only the last two results are waited for.
template <class Iterator> void filterOnce(Iterator begin, Iterator end, const LowPass &filter)
{
    double x1 = *begin, x2 = *begin, y1 = *begin, y2 = *begin;
    for (Iterator at = begin; at != end; ++at) {
        const double x = *at;
        const double input = filter.b * (x + 2 * x1 + x2) - filter.a2 * y2;
        y2 = y1;
        y1 = input - filter.a1 * y1;
        x2 = x1;
        x1 = x;
        *at = y1;
    }
}

/// Low pass forwards and backwards; point reflections pad both ends so that the filter settles.
void filterForwardAndBack(std::vector<double> *grid, double ratio)
{
    const int count = int(grid->size());
    const LowPass filter(std::tan(Pi * ratio) / std::pow(std::sqrt(2.0) - 1, 0.25));
    const int pad = std::min(count - 1, int(std::min(3 / ratio, 1e8)) + 6);
    std::vector<double> padded;
    padded.reserve(std::size_t(count) + 2 * std::size_t(pad));
    for (int i = pad; i > 0; --i)
        padded.push_back(2 * grid->front() - (*grid)[std::size_t(i)]);
    padded.insert(padded.end(), grid->begin(), grid->end());
    for (int i = 1; i <= pad; ++i)
        padded.push_back(2 * grid->back() - (*grid)[std::size_t(count - 1 - i)]);
    filterOnce(padded.begin(), padded.end(), filter);
    filterOnce(padded.rbegin(), padded.rend(), filter);
    std::copy_n(padded.begin() + pad, count, grid->begin());
}

/// Cubic interpolation with the slopes of parabolas through three points; abscissas ascend.
class CubicThrough
{
public:
    CubicThrough(std::vector<double> places, std::vector<double> values)
        : m_x(std::move(places))
        , m_y(std::move(values))
        , m_slopes(m_x.size())
    {
        const std::size_t n = m_x.size();
        for (std::size_t i = 0; i < n; ++i) {
            const double left = i > 0 ? chord(i - 1) : chord(0);
            const double right = i + 1 < n ? chord(i) : chord(n - 2);
            const double a = i > 0 ? m_x[i] - m_x[i - 1] : 0;
            const double b = i + 1 < n ? m_x[i + 1] - m_x[i] : 0;
            m_slopes[i] = (left * b + right * a) / (a + b);
        }
    }
    /// Calls must have ascending x.
    double at(double x)
    {
        while (m_i + 2 < m_x.size() && m_x[m_i + 1] <= x)
            ++m_i;
        const double h = m_x[m_i + 1] - m_x[m_i];
        const double s = (x - m_x[m_i]) / h;
        const double rise = m_y[m_i + 1] - m_y[m_i];
        const double out = m_slopes[m_i] * h;
        const double in = m_slopes[m_i + 1] * h;
        return m_y[m_i] + s * (out + s * (3 * rise - 2 * out - in + s * (out + in - 2 * rise)));
    }

private:
    double chord(std::size_t i) const { return (m_y[i + 1] - m_y[i]) / (m_x[i + 1] - m_x[i]); }

    std::vector<double> m_x, m_y, m_slopes;
    std::size_t m_i = 0;
};

/// The unrounded distance between grid points, in ticks.
double gridStep(const VxTime *times, int count)
{
    double least = HUGE_VAL;
    for (int i = 1; i < count; ++i)
        least = std::min(least, double(times[i]) - times[i - 1]);
    const double span = double(times[count - 1]) - times[0];
    return std::max(least, span / (4.0 * count));
}

} // namespace

std::vector<float> vxSmoothGaussian(const VxTime *times, const float *values, int count,
                                    double sigma)
{
    std::vector<float> result(values, values + count);
    if (!(sigma > 0) || count < 3)
        return result;
    const GaussianWeights weights(sigma);
    int first = 0;
    for (int i = 0; i < count;) {
        const int even = endOfEvenKeys(times, count, i);
        const qint64 step = even > i + 1 ? qint64(times[i + 1]) - times[i] : 1;
        const int steps = int(std::min(weights.reach() / step, qint64(count)));
        // Of keys at equal distances, those whose neighbours all have the same span.
        const int from = i + steps + 1;
        const int to = even - steps - 1;
        const int next = from < to ? from : even;
        for (; i < next; ++i)
            smoothOne(times, values, count, i, weights, &first, &result[std::size_t(i)]);
        if (from < to) {
            smoothEven(values + from, to - from, kernel(weights, step, steps),
                       &result[std::size_t(from)]);
            i = to;
        }
        while (i < even) {
            smoothOne(times, values, count, i, weights, &first, &result[std::size_t(i)]);
            ++i;
        }
    }
    return result;
}

std::vector<float> vxSmoothButterworth(const VxTime *times, const float *values, int count,
                                       double cutoff)
{
    std::vector<float> result(values, values + count);
    if (!(cutoff > 0) || count < 3)
        return result;
    const double span = double(times[count - 1]) - times[0];
    const auto steps = std::size_t(std::ceil(span / gridStep(times, count)));
    const double step = span / double(steps);
    const double ratio = cutoff * seconds(step);
    if (!(ratio < 0.5))
        return result;
    const std::size_t points = steps + 1;
    std::vector<double> grid(values, values + count);
    if (points == std::size_t(count)) { // keys at equal distances are the grid
        filterForwardAndBack(&grid, ratio);
        result.assign(grid.begin(), grid.end());
        return result;
    }
    std::vector<double> places(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        places[std::size_t(i)] = double(times[i]) - times[0];
    std::vector<double> gridPlaces(points);
    for (std::size_t i = 0; i < points; ++i)
        gridPlaces[i] = double(i) * step;
    CubicThrough curve(places, grid);
    grid.resize(points);
    for (std::size_t i = 0; i < points; ++i)
        grid[i] = curve.at(gridPlaces[i]);
    filterForwardAndBack(&grid, ratio);
    CubicThrough filtered(gridPlaces, grid);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = float(filtered.at(places[i]));
    return result;
}

std::vector<float> vxRemoveSpikes(const VxTime *times, const float *values, int count,
                                  double window, double threshold, int *removed)
{
    std::vector<float> result(values, values + count);
    const qint64 reach = window > 0 ? qint64(std::min(window / 2 * VxTicksPerSecond, 4.3e9)) : 0;
    std::vector<int> good;
    std::vector<float> around;
    int first = 0;
    int end = 0;
    for (int i = 0; i < count; ++i) {
        while (qint64(times[i]) - times[first] > reach)
            ++first;
        while (end < count && qint64(times[end]) - times[i] <= reach)
            ++end;
        around.assign(values + first, values + end);
        const auto middle = around.begin() + (end - first) / 2;
        std::nth_element(around.begin(), middle, around.end());
        if (!(std::abs(double(values[i]) - double(*middle)) > threshold))
            good.push_back(i);
    }
    if (removed)
        *removed = good.empty() ? 0 : count - int(good.size());
    std::size_t next = 0;
    for (int i = 0; i < count && !good.empty(); ++i) {
        while (next < good.size() && good[next] < i)
            ++next;
        if (next < good.size() && good[next] == i)
            continue;
        if (next == 0 || next == good.size()) {
            result[std::size_t(i)] = values[next == 0 ? good.front() : good.back()];
            continue;
        }
        const int a = good[next - 1];
        const int b = good[next];
        const double part = (double(times[i]) - times[a]) / (double(times[b]) - times[a]);
        result[std::size_t(i)] =
            float(double(values[a]) + part * (double(values[b]) - double(values[a])));
    }
    return result;
}

int vxFilterEuler(const std::array<float *, 3> &angles, int count, VxRotationOrder order)
{
    int changed = 0;
    for (int i = 1; i < count; ++i) {
        double distance = 0;
        for (const float *axis : angles)
            distance += std::abs(double(axis[i]) - double(axis[i - 1]));
        if (distance <= NearAngles)
            continue;
        VxEuler own, previous;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            own[axis] = double(angles[axis][i]);
            previous[axis] = double(angles[axis][i - 1]);
        }
        const VxEuler nearest = vxNearestEuler(own, previous, order);
        changed += nearest != own ? 1 : 0;
        for (std::size_t axis = 0; axis < 3; ++axis)
            angles[axis][i] = float(nearest[axis]);
    }
    return changed;
}

std::vector<int> vxFlatKeys(const VxKeyColumns<float> &keys, double tolerance)
{
    std::vector<int> flat;
    const auto isSmooth = [&keys](int i) {
        return keys.types && keys.types[i] == VxKeyInterp::Tcb;
    };
    for (int first = 0, last = 0; first < keys.count; first = last + 1) {
        last = first;
        while (last + 1 < keys.count &&
               std::abs(double(keys.values[last + 1]) - double(keys.values[first])) <= tolerance)
            ++last;
        bool smooth = first > 0 && isSmooth(first - 1);
        for (int i = first; i <= last; ++i)
            smooth = smooth || isSmooth(i);
        const int stay = smooth ? 2 : 1;
        for (int i = first + stay; i + stay <= last; ++i)
            flat.push_back(i);
    }
    return flat;
}
