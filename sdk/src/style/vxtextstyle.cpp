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

QString vxToolTipText(const QString &plain)
{
    // The toolkit decides by the text itself whether it is markup.
    return Qt::mightBeRichText(plain) ? QStringLiteral("<qt style='white-space:pre-wrap'>%1</qt>")
                                            .arg(plain.toHtmlEscaped())
                                      : plain;
}
