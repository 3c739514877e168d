#include "keytools/errorsearch.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double LeastError = 1e-5;
constexpr double LargestError = 1e5;
// Of the error's logarithm.
constexpr double Precision = 0.002;
constexpr double LongestStep = 2;
// Of straight segments for a smooth curve, from which the first step follows.
constexpr double UsualSlope = -0.5;
constexpr double LeastSlope = -0.05;
constexpr int MaxInterpolations = 10;

double logarithmOf(double keys)
{
    return std::log(std::max(keys, 1.0));
}

} // namespace

ErrorSearch::ErrorSearch(double keys)
    : m_target(logarithmOf(keys))
    , m_next((std::log(LeastError) + std::log(LargestError)) / 2)
    , m_slope(UsualSlope)
{
    m_low.error = std::log(LeastError);
    m_high.error = std::log(LargestError);
}

void ErrorSearch::setFirst(double error)
{
    m_next = std::clamp(std::log(error), m_low.error, m_high.error);
}

bool ErrorSearch::isDone() const
{
    return m_high.error - m_low.error <= Precision;
}

double ErrorSearch::next() const
{
    return std::exp(m_next);
}

double ErrorSearch::error() const
{
    return std::exp(m_high.error);
}

bool ErrorSearch::add(int keys)
{
    const Point tried = {m_next, logarithmOf(keys), true};
    const bool isFewEnough = tried.keys <= m_target;
    Point &bound = isFewEnough ? m_high : m_low;
    const double step = tried.error - bound.error;
    if (bound.isKnown && step != 0)
        m_slope = std::min((tried.keys - bound.keys) / step, LeastSlope);
    bound = tried;
    ++m_tries;
    choose();
    return isFewEnough;
}

// Near either bound a step of less than the precision closes the interval.
void ErrorSearch::choose()
{
    const double margin = 0.9 * Precision;
    const bool isBetween = m_low.isKnown && m_high.isKnown;
    const double width = m_high.error - m_low.error;
    if (m_tries > MaxInterpolations || width <= 2 * margin) {
        m_next = (m_low.error + m_high.error) / 2;
        return;
    }
    if (isBetween) {
        const double part = (m_low.keys - m_target) / std::max(m_low.keys - m_high.keys, 1e-9);
        m_next = m_low.error + part * width;
    } else {
        const Point &known = m_low.isKnown ? m_low : m_high;
        const double step = (m_target - known.keys) / m_slope;
        m_next = known.error + std::clamp(step, -LongestStep, LongestStep);
    }
    m_next = std::clamp(m_next, m_low.error + margin, m_high.error - margin);
}
