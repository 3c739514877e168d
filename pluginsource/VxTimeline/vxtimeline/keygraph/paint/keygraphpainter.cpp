#include "vxtimeline/keygraph/paint/keygraphpainter.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>
#include <cmath>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr double ValueLineSpacing = 44.0; // pixels, at least
constexpr double FrameLabelGap = 28.0;    // pixels between labels, at least

QColor named(const char *name, const QColor &fallBack)
{
    const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr;
    const QColor color = style ? style->getInterfaceColor(QLatin1String(name)) : QColor();
    return color.isValid() ? color : fallBack;
}

QColor halfTransparent(QColor color)
{
    color.setAlphaF(0.5);
    return color;
}

// Pixel columns and rows for lines and fills; far coordinates are clamped to just outside.
int clampedPixel(double coordinate, int end)
{
    return static_cast<int>(qBound(-1.0, std::floor(coordinate), double(end) + 1.0));
}

} // namespace

KeyGraphLook KeyGraphLook::of(const QWidget *widget)
{
    const QPalette palette = widget->palette();
    KeyGraphLook look;
    look.text = palette.color(widget->foregroundRole());
    look.background = named("Style_Graph_Background", palette.color(QPalette::Base));
    look.side = halfTransparent(palette.color(QPalette::Window));
    look.outside = named("Style_Graph_Outside", halfTransparent(palette.color(QPalette::Shadow)));
    look.grid = named("Style_Graph_Grid", palette.color(QPalette::Midlight));
    look.majorGrid = named("Style_Graph_Grid_Major", palette.color(QPalette::Mid));
    if (const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr) {
        look.label = style->textStyle(VxStyle::TS_GraphLabel);
        look.axis = style->textStyle(VxStyle::TS_GraphAxis);
    }
    look.margin = widget->style()->pixelMetric(
        static_cast<QStyle::PixelMetric>(VxStyle::PM_VxBaseMargin), nullptr, widget);
    return look;
}

QColor KeyGraphLook::channelColor(const QColor &own, int number) const
{
    const QColor color = own.isValid() ? own : text;
    const int factor = 185 - (3 * number) % 15;
    return color.value() < 129 ? color.darker(factor) : color.lighter(factor);
}

KeyGraphPainter::KeyGraphPainter(QPainter *painter, const KeyGraphScale &scale,
                                 const KeyGraphLook &look, const KeyGraphStage &stage)
    : m_painter(painter)
    , m_scale(scale)
    , m_look(look)
    , m_stage(stage)
{
}

void KeyGraphPainter::paintStage()
{
    m_painter->save();
    paintGrounds();
    paintValueGrid();
    paintFrameGrid();
    m_painter->restore();
}

void KeyGraphPainter::paintGrounds()
{
    const int width = m_stage.size.width();
    const int height = m_stage.size.height();
    m_painter->fillRect(QRect(QPoint(), m_stage.size), m_look.background);
    m_painter->fillRect(QRect(0, 0, m_stage.leftWidth, height), m_look.side);
    m_painter->fillRect(QRect(width - m_stage.rightWidth, 0, m_stage.rightWidth, height),
                        m_look.side);
    const int start = clampedPixel(m_scale.x(m_stage.playRange.getStart()), width);
    const int end = clampedPixel(m_scale.x(m_stage.playRange.getEnd()), width) + 1;
    m_painter->fillRect(QRect(0, 0, start, height), m_look.outside);
    m_painter->fillRect(QRect(end, 0, width - end, height), m_look.outside);
}

// One device pixel at any scale, so that all lines of the grid look alike. They are filled rects,
// because a pen is slower.
qreal KeyGraphPainter::lineWidth() const
{
    return 1.0 / m_painter->device()->devicePixelRatioF();
}

QVector<KeyGraphGrid::Line> KeyGraphPainter::valueLines() const
{
    const int height = m_stage.size.height();
    const int textHeight = m_look.axis.getHeight();
    auto lines = KeyGraphGrid::valueLines(m_scale, height, qMax(ValueLineSpacing, 2.0 * textHeight),
                                          textHeight);
    // A label is above its line; none where it would be cut off or overlap the frame numbers.
    for (KeyGraphGrid::Line &line : lines) {
        const int y = clampedPixel(line.position, height);
        if (y < textHeight || y > height - textHeight)
            line.label.clear();
    }
    return lines;
}

QRect KeyGraphPainter::labelFreeRect() const
{
    int widest = 0;
    for (const KeyGraphGrid::Line &line : valueLines()) {
        if (!line.label.isEmpty())
            widest = qMax(widest, m_look.axis.getWidth(line.label + m_stage.valueUnit));
    }
    const int left = m_stage.leftWidth + 2 * m_look.margin + widest;
    return QRect(left, 0, m_stage.size.width() - m_stage.rightWidth - left,
                 m_stage.size.height() - m_look.axis.getHeight() - m_look.margin);
}

void KeyGraphPainter::paintValueGrid()
{
    const int height = m_stage.size.height();
    const int left = m_stage.leftWidth + m_look.margin;
    m_painter->setFont(m_look.axis.getFont());
    for (const KeyGraphGrid::Line &line : valueLines()) {
        const int y = clampedPixel(line.position, height);
        m_painter->fillRect(QRectF(0, y, m_stage.size.width(), lineWidth()),
                            line.major ? m_look.majorGrid : m_look.grid);
        if (line.label.isEmpty())
            continue;
        m_painter->setPen(m_look.axis.getColor());
        m_painter->drawText(left, y - m_look.axis.getFontMetrics().descent(),
                            line.label + m_stage.valueUnit);
    }
}

void KeyGraphPainter::paintFrameGrid()
{
    const int width = m_stage.size.width();
    const int height = m_stage.size.height();
    const int baseline = height - m_look.axis.getFontMetrics().descent() - 1;
    const auto labelWidth = [this](const QString &text) { return m_look.axis.getWidth(text); };
    m_painter->setFont(m_look.axis.getFont());
    for (const KeyGraphGrid::Line &line :
         KeyGraphGrid::frameLines(m_scale, width, m_stage.timeStep, FrameLabelGap, labelWidth)) {
        const int x = clampedPixel(line.position, width);
        const int lineHeight = line.major ? height - m_look.axis.getHeight() : height;
        m_painter->fillRect(QRectF(x, 0, lineWidth(), lineHeight),
                            line.major ? m_look.majorGrid : m_look.grid);
        const int textWidth = line.label.isEmpty() ? 0 : labelWidth(line.label);
        const int left = x - textWidth / 2;
        if (textWidth == 0 || left < m_stage.leftWidth ||
            left + textWidth > width - m_stage.rightWidth)
            continue;
        m_painter->setPen(m_look.axis.getColor());
        m_painter->drawText(left, baseline, line.label);
    }
}
