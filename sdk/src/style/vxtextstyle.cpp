#include <vxcore/vxtextstyle.h>

VxTextStyle::VxTextStyle()
    : m_fontMetrics(m_font)
{
}

VxTextStyle::VxTextStyle(const QColor &color, const QFont &font)
    : m_color(color)
    , m_font(font)
    , m_fontMetrics(font)
{
}

bool VxTextStyle::operator==(const VxTextStyle &other) const
{
    return m_color == other.m_color && m_font == other.m_font;
}
