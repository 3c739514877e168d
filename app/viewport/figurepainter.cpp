#include "viewport/figurepainter.h"

#include "viewport/boneshape.h"
#include "viewport/figurelines.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <QPalette>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr double JointSide = 4.5;
constexpr double EdgeWidth = 1;
constexpr double LinkWidth = 0.8;
constexpr double BodyOpacity = 0.25;
constexpr double AxisWidth = 1.6;
constexpr double OutlineWidth = 2; // of selected bones, both sides together
constexpr double HoverWidth = 2;
constexpr QPointF NameOffset(12, -10); // from the joint
constexpr int NameMargin = 4;

} // namespace

QColor viewportColor(const char *name, const QColor &fallback)
{
    const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr;
    const QColor found = style ? style->getInterfaceColor(QLatin1String(name)) : QColor();
    return found.isValid() ? found : fallback;
}

FigurePainter::FigurePainter(QPainter *painter, const ViewportCamera &camera,
                             const QPalette &palette)
    : m_painter(painter)
    , m_camera(camera)
    , m_palette(palette)
{
}

void FigurePainter::paint(const FigureLines &figure, const VxNode *hovered)
{
    m_painter->setRenderHint(QPainter::Antialiasing);
    paintPass(figure, {false, nullptr, m_palette.color(QPalette::Text), 0});
    paintAxes(figure);
    paintPass(figure, {true, nullptr,
                       viewportColor("Style_Key_Selected_Outline",
                                     m_palette.color(QPalette::HighlightedText)),
                       OutlineWidth});
    paintPass(figure,
              {true, nullptr,
               viewportColor("Style_Key_Selected", m_palette.color(QPalette::Highlight)), 0});
    if (hovered)
        paintHovered(figure, hovered);
}

void FigurePainter::paintPass(const FigureLines &figure, const Pass &pass)
{
    const auto counts = [&pass](const auto &part) {
        return part.selected == pass.selected && (!pass.only || part.node == pass.only);
    };
    QColor body = pass.ink;
    body.setAlphaF(pass.extraWidth > 0 ? 0 : BodyOpacity);
    m_painter->setBrush(body);
    m_painter->setPen(
        QPen(pass.ink, EdgeWidth + pass.extraWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const FigureLines::Bone &bone : figure.bones) {
        if (!counts(bone))
            continue;
        if (const auto shape = boneShape(bone, m_camera))
            shape->paint(m_painter);
    }
    m_painter->setBrush(Qt::NoBrush);
    m_painter->setPen(QPen(pass.ink, LinkWidth + pass.extraWidth, Qt::SolidLine, Qt::RoundCap));
    for (const FigureLines::Link &link : figure.links) {
        if (!counts(link))
            continue;
        if (const auto line = m_camera.project(link.from, link.to))
            m_painter->drawLine(*line);
    }
    m_painter->setPen(QPen(pass.ink, JointSide + pass.extraWidth, Qt::SolidLine, Qt::RoundCap));
    for (const FigureLines::Joint &joint : figure.joints) {
        if (!counts(joint))
            continue;
        if (const auto point = m_camera.project(joint.at))
            m_painter->drawPoint(*point);
    }
}

void FigurePainter::paintAxes(const FigureLines &figure)
{
    const QColor inks[] = {viewportColor("Style_X_Axis", Qt::red),
                           viewportColor("Style_Y_Axis", Qt::green),
                           viewportColor("Style_Z_Axis", Qt::blue)};
    const float length = m_camera.axisLength();
    for (const FigureLines::Axes &axes : figure.axes) {
        for (size_t i = 0; i < axes.directions.size(); ++i) {
            m_painter->setPen(QPen(inks[i].lighter(130), AxisWidth, Qt::SolidLine, Qt::RoundCap));
            const QVector3D end = axes.at + axes.directions.at(i) * length;
            if (const auto line = m_camera.project(axes.at, end))
                m_painter->drawLine(*line);
        }
    }
}

void FigurePainter::paintHovered(const FigureLines &figure, const VxNode *node)
{
    const QColor ink = m_palette.color(QPalette::Highlight).lighter(130);
    paintPass(figure, {node->isSelected(), node, ink, HoverWidth});
    for (const FigureLines::Joint &joint : figure.joints) {
        if (joint.node != node)
            continue;
        if (const auto at = m_camera.project(joint.at))
            paintName(*at + NameOffset, node->getLabel());
        return;
    }
}

void FigurePainter::paintName(const QPointF &at, const QString &name)
{
    const QFontMetricsF metrics(m_painter->font());
    QRectF box(at, QSizeF(metrics.horizontalAdvance(name) + 2 * NameMargin,
                          metrics.height() + NameMargin));
    const QRectF view(QPointF(), m_camera.viewSize());
    box.translate(qMin(0.0, view.right() - box.right()), -box.height());
    box.translate(0, qMax(0.0, view.top() - box.top()));
    paintTextBox(m_painter, box, name, m_palette, 225);
}

void paintTextBox(QPainter *painter, const QRectF &box, const QString &text,
                  const QPalette &palette, int alpha)
{
    QColor ground = palette.color(QPalette::ToolTipBase);
    ground.setAlpha(alpha);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(box, 3, 3);
    painter->setPen(palette.color(QPalette::ToolTipText));
    painter->drawText(box, Qt::AlignCenter, text);
}
