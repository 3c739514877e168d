#include "style/vxcolors.h"

#include <algorithm>
#include <iterator>

namespace {

// The colours of one scheme. Disabled text differs from plain dimming, to stay readable on buttons.
struct Scheme
{
    QRgb window, base, alternateBase, button, text, buttonText, disabledText;
    QRgb light, midlight, mid, dark, shadow, brightText;
    QRgb highlight, highlightedText, disabledHighlight, disabledHighlightedText;
    QRgb link, linkVisited, toolTipBase, toolTipText, placeholder;
};

const Scheme darkScheme = {0xff3a3d42, 0xff2f3237, 0xff33363b, 0xff494d54, 0xffe2e4e8, 0xffe9ebee,
                           0xff9ca1a9, 0xff5e636b, 0xff53575f, 0xff868b94, 0xff6a6f78, 0xff0c0d0e,
                           0xffffffff, 0xff2f74c0, 0xffffffff, 0xff565a61, 0xffd0d3d8, 0xff6fb0f2,
                           0xffb79cf0, 0xff23252a, 0xffe2e4e8, 0xff9ca1a9};

const Scheme lightScheme = {0xffeff0f2, 0xffffffff, 0xfff5f6f8, 0xffe2e4e8, 0xff1d1f23, 0xff1d1f23,
                            0xff757a82, 0xffffffff, 0xfff4f5f7, 0xffa5aab2, 0xff9ba0a8, 0xff6d727a,
                            0xff000000, 0xff2a6cc0, 0xffffffff, 0xffc9cdd3, 0xff4a4e55, 0xff1f5fb0,
                            0xff6a3fb5, 0xfffffbe8, 0xff1d1f23, 0xff757a82};

// White on black. Highlights are light, with black text, so that selected and focused parts are
// as visible as text.
const Scheme contrastScheme = {
    0xff000000, 0xff000000, 0xff161616, 0xff1c1c1c, 0xffffffff, 0xffffffff, 0xffa8a8a8, 0xff606060,
    0xff404040, 0xffb0b0b0, 0xffc8c8c8, 0xff000000, 0xffffffff, 0xff5cc8ff, 0xff000000, 0xff808080,
    0xff000000, 0xff8fd0ff, 0xffd0b0ff, 0xff000000, 0xffffffff, 0xffc0c0c0};

struct NamedColor
{
    const char *name;
    QRgb dark, light, contrast;
};

// The axis colours are the base of a family: the key graph makes each of them lighter or darker by
// nearly a factor of two, a little different for each channel, by whether the base's value is above
// or below half. They are chosen for contrast of the results.
const NamedColor namedColors[] = {
    {"Style_All_Axis", 0xff8f9299, 0xff5c5f66, 0xff8f9299},
    {"Style_Channel", 0xff8f8a70, 0xff5c5640, 0xff8f8a70},
    {"Style_Graph_Background", 0xff2a2d31, 0xfffafbfc, 0xff000000},
    {"Style_Graph_Grid", 0xff3a3d42, 0xffe3e5e9, 0xff303030},
    {"Style_Graph_Grid_Major", 0xff4c5057, 0xffc9cdd3, 0xff585858},
    {"Style_Graph_Outside", 0x60000000, 0x18000000, 0x28ffffff},
    {"Style_Key", 0xff9ea5af, 0xff6b7280, 0xffd0d0d0},
    {"Style_Key_Outline", 0xff101114, 0xff24272c, 0xff000000},
    {"Style_Key_Selected", 0xffffbe32, 0xffffb81c, 0xffffd000},
    {"Style_Key_Selected_Outline", 0xfffff6dc, 0xff241800, 0xffffffff},
    {"Style_Play_Range", 0xff5aa6ee, 0xff2a6cc0, 0xff6cc8ff},
    {"Style_Playhead", 0xffff6d4d, 0xffd9401c, 0xffff8a5c},
    {"Style_Playhead_Outline", 0xff3b0f06, 0xff6b1703, 0xff000000},
    {"Style_X_Axis", 0xff962626, 0xff840808, 0xff962626},
    {"Style_Y_Axis", 0xff2b8a2f, 0xff0c7a12, 0xff2b8a2f},
    {"Style_Z_Axis", 0xff2a559b, 0xff0c2f88, 0xff2a559b},
};

// Bases as well: contrast and distances are those of the results.
const NamedColor safeCurveColors[] = {
    {"Style_All_Axis", 0xff999999, 0xff000000, 0xff9a9a9a},
    {"Style_X_Axis", 0xff991219, 0xff920c08, 0xff811b2c},
    {"Style_Y_Axis", 0xff5f9700, 0xff1a5c00, 0xff479403},
    {"Style_Z_Axis", 0xff5e4b98, 0xff1722a7, 0xff3f3cad},
};

template <class Colors>
const Colors &ofScheme(VxStyle::ColorScheme scheme, const Colors &dark, const Colors &light,
                       const Colors &contrast)
{
    switch (scheme) {
    case VxStyle::ColorScheme::Light:
        return light;
    case VxStyle::ColorScheme::Contrast:
        return contrast;
    default:
        return dark;
    }
}

template <std::size_t Count>
QColor findColor(const NamedColor (&colors)[Count], VxStyle::ColorScheme scheme,
                 const QString &name)
{
    const auto found =
        std::find_if(std::begin(colors), std::end(colors),
                     [&](const NamedColor &color) { return name == QLatin1String(color.name); });
    if (found == std::end(colors))
        return QColor();
    return QColor::fromRgba(ofScheme(scheme, found->dark, found->light, found->contrast));
}

void setGrounds(QPalette &palette, const Scheme &colors)
{
    palette.setColor(QPalette::Window, colors.window);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.alternateBase);
    palette.setColor(QPalette::Button, colors.button);
    palette.setColor(QPalette::ToolTipBase, colors.toolTipBase);
    palette.setColor(QPalette::Light, colors.light);
    palette.setColor(QPalette::Midlight, colors.midlight);
    palette.setColor(QPalette::Mid, colors.mid);
    palette.setColor(QPalette::Dark, colors.dark);
    palette.setColor(QPalette::Shadow, colors.shadow);
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colors.disabledHighlight);
}

void setTexts(QPalette &palette, const Scheme &colors)
{
    palette.setColor(QPalette::WindowText, colors.text);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::ButtonText, colors.buttonText);
    palette.setColor(QPalette::BrightText, colors.brightText);
    palette.setColor(QPalette::ToolTipText, colors.toolTipText);
    palette.setColor(QPalette::HighlightedText, colors.highlightedText);
    palette.setColor(QPalette::PlaceholderText, colors.placeholder);
    palette.setColor(QPalette::Link, colors.link);
    palette.setColor(QPalette::LinkVisited, colors.linkVisited);
    for (QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, colors.disabledText);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, colors.disabledHighlightedText);
}

} // namespace

QPalette VxColors::palette(VxStyle::ColorScheme scheme)
{
    const Scheme &colors = ofScheme(scheme, darkScheme, lightScheme, contrastScheme);
    QPalette result;
    setGrounds(result, colors);
    setTexts(result, colors);
    return result;
}

QColor VxColors::interfaceColor(VxStyle::ColorScheme scheme, const QString &name)
{
    return findColor(namedColors, scheme, name);
}

QColor VxColors::safeCurveColor(VxStyle::ColorScheme scheme, const QString &name)
{
    return findColor(safeCurveColors, scheme, name);
}

VxStyle::ColorScheme VxColors::schemeFor(const QPalette &palette)
{
    const QColor &base = palette.color(QPalette::Active, QPalette::Base);
    if (base.rgb() == contrastScheme.base)
        return VxStyle::ColorScheme::Contrast;
    return base.lightness() < 128 ? VxStyle::ColorScheme::Dark : VxStyle::ColorScheme::Light;
}

QColor VxColors::mix(const QColor &first, const QColor &second, qreal amount)
{
    const auto between = [amount](qreal a, qreal b) { return a + (b - a) * amount; };
    return QColor::fromRgbF(
        between(first.redF(), second.redF()), between(first.greenF(), second.greenF()),
        between(first.blueF(), second.blueF()), between(first.alphaF(), second.alphaF()));
}
