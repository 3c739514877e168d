#ifndef VXTEXTSTYLE_H
#define VXTEXTSTYLE_H

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <vxcore/vxcoreglobal.h>

/// The style of one kind of text: its colour, its font and the font's metrics. A plain value: the
/// metrics are computed once, when the style is made, so that painting many labels does not look
/// the font up for each of them.
class VXCORE_EXPORT VxTextStyle
{
public:
    /// An invalid colour and the application's font.
    VxTextStyle();
    VxTextStyle(const QColor &color, const QFont &font);

    QColor getColor() const { return m_color; }
    const QFont &getFont() const { return m_font; }
    const QFontMetrics &getFontMetrics() const { return m_fontMetrics; }

    /// Pixels from the top of a line to its baseline.
    int getAscent() const { return m_fontMetrics.ascent(); }
    /// Pixels of a whole line, ascent and descent.
    int getHeight() const { return m_fontMetrics.height(); }
    /// Pixels the text advances when it is written in one line.
    int getWidth(const QString &text) const { return m_fontMetrics.horizontalAdvance(text); }

private:
    QColor m_color;
    QFont m_font;
    QFontMetrics m_fontMetrics;
};

/// The text of a tool tip that shows a name exactly as it is written, also one that looks like
/// markup: names are read from files of others.
VXCORE_EXPORT QString vxToolTipText(const QString &plain);

#endif
