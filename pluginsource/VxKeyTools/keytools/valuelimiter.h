#ifndef VALUELIMITER_H
#define VALUELIMITER_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

/// Makes values of a property from numbers: within its limits and those of its type.
template <class V> class ValueLimiter
{
public:
    template <class Property> explicit ValueLimiter(const Property &property)
    {
        if (!property.isClamped())
            return;
        m_low = double(property.getMin());
        m_high = double(property.getMax());
    }
    V operator()(double value) const
    {
        const double limited = std::clamp(std::isfinite(value) ? value : 0, m_low, m_high);
        return std::is_same_v<V, float> ? V(limited) : V(std::round(limited));
    }

private:
    double m_low = double(std::numeric_limits<V>::lowest());
    double m_high = double(std::numeric_limits<V>::max());
};

#endif
