#include "parameters/vxpropertyscrub.h"

namespace {

constexpr int PixelsPerStep = 2;

double factorOf(Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier)
        return 0.1;
    return modifiers & Qt::ControlModifier ? 10.0 : 1.0;
}

} // namespace

double VxPropertyScrub::moveTo(int x, Qt::KeyboardModifiers modifiers)
{
    const double factor = factorOf(modifiers);
    const int steps = (x - m_anchor) / PixelsPerStep;
    if (factor == m_factor)
        return m_before + steps * m_factor;
    m_before += steps * m_factor;
    m_anchor = x;
    m_factor = factor;
    return m_before;
}
