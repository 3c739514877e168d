#include <vxcore/vxtextstyle.h>

#include <QtGui/QTextDocument>

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

QString vxToolTipText(const QString &plain)
{
    // The toolkit decides by the text itself whether it is markup.
    return Qt::mightBeRichText(plain) ? QStringLiteral("<qt style='white-space:pre-wrap'>%1</qt>")
                                            .arg(plain.toHtmlEscaped())
                                      : plain;
}
