#ifndef FIGUREPAINTER_H
#define FIGUREPAINTER_H

#include <QColor>
#include <QPointF>

class QPainter;
class QPalette;
class VxNode;
class ViewportCamera;
struct FigureLines;

/// Paints figures as a camera sees them: bones, joints and axes; on top of them what is selected,
/// with an outline that shows on any ground, and the node under the mouse with its name.
class FigurePainter
{
public:
    /// All are borrowed for the painter's life.
    FigurePainter(QPainter *painter, const ViewportCamera &camera, const QPalette &palette);

    /// hovered may be null.
    void paint(const FigureLines &figure, const VxNode *hovered);

private:
    /// Which bones and joints a pass is for.
    struct Pass
    {
        bool selected;
        const VxNode *only; // null for all
        QColor ink;
        double extraWidth; // pixels, at both sides together
    };

    void paintPass(const FigureLines &figure, const Pass &pass);
    void paintAxes(const FigureLines &figure);
    void paintHovered(const FigureLines &figure, const VxNode *node);
    void paintName(const QPointF &at, const QString &name);

    QPainter *m_painter;
    const ViewportCamera &m_camera;
    const QPalette &m_palette;
};

/// A colour of the application's style by its name, or the one given when the style has none.
QColor viewportColor(const char *name, const QColor &fallback);

#endif
