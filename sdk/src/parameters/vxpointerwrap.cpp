#include "parameters/vxpointerwrap.h"

#include <cstdlib>

namespace {

constexpr int Aside = 2;          // from the edge, else the pointer would wrap back at once
constexpr int SmallestRoom = 100; // below it jumps and moves cannot be distinguished

} // namespace

VxPointerWrap::VxPointerWrap(int left, int right)
    : m_left(left)
    , m_right(right)
{
}

int VxPointerWrap::follow(int x)
{
    const int width = m_right - m_left;
    // No real move crosses half of a screen at once.
    if (m_jumping && std::abs(x - m_last) > width / 2 && std::abs(x - m_target) < width / 4) {
        m_shift += m_last - m_target;
        m_jumping = false;
    }
    // Back from the edge: the pointer was not warped.
    if (m_jumping && x > m_left + width / 4 && x < m_right - width / 4)
        m_jumping = false;
    m_last = x;
    m_any = true;
    return x + m_shift;
}

bool VxPointerWrap::needsJump(int *target)
{
    const bool atRight = m_last >= m_right;
    if (!m_any || m_jumping || m_right - m_left < SmallestRoom || (!atRight && m_last > m_left))
        return false;
    m_target = atRight ? m_left + Aside : m_right - Aside;
    m_jumping = true;
    *target = m_target;
    return true;
}
