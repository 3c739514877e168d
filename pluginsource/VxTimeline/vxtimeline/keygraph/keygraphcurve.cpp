#include "vxtimeline/keygraph/keygraphcurve.h"

#include "vxtimeline/keygraph/vxkeygraphchannel.h"

namespace {

// Far beyond any window, and small enough for the painter's arithmetic.
constexpr double FarAway = 1e6;

} // namespace

std::vector<VxTime> keyGraphSampleTimes(const KeyGraphScale &scale, int width)
{
    std::vector<VxTime> times;
    times.reserve(static_cast<std::size_t>(qMax(0, width) / 2 + 1));
    for (int x = 0; x < width; x += 2)
        times.push_back(scale.time(x));
    return times;
}

QVector<QPointF> keyGraphCurvePoints(const std::vector<VxTime> &times,
                                     const std::vector<double> &values, const KeyGraphScale &scale)
{
    QVector<QPointF> points(static_cast<int>(times.size()));
    QPointF *point = points.data();
    for (std::size_t i = 0; i < times.size(); ++i, ++point)
        *point = QPointF(scale.exactX(times[i]), qBound(-FarAway, scale.y(values[i]), FarAway));
    return points;
}

void KeyGraphCurves::invalidate()
{
    m_width = -1;
    m_values.clear();
}

void KeyGraphCurves::prepare(const KeyGraphScale &scale, int width)
{
    if (width == m_width && scale.hasTimesOf(m_scale))
        return;
    invalidate();
    m_scale = scale;
    m_width = width;
    m_times = keyGraphSampleTimes(scale, width);
}

QVector<QPointF> KeyGraphCurves::points(const VxKeyGraphChannel &channel, int index,
                                        const KeyGraphScale &scale, int width)
{
    prepare(scale, width);
    const auto slot = static_cast<std::size_t>(index);
    if (m_values.size() <= slot)
        m_values.resize(slot + 1);
    std::vector<double> &values = m_values[slot];
    if (values.empty() && !m_times.empty()) {
        values.resize(m_times.size());
        channel.getValues(m_times.data(), static_cast<int>(m_times.size()), values.data());
    }
    return keyGraphCurvePoints(m_times, values, scale);
}
