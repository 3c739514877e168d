#ifndef FIGUREPAINTER_H
#define FIGUREPAINTER_H

#include <QColor>
#include <QPointF>

class QPainter;
class QPalette;
class QRectF;
class VxNode;
class ViewportCamera;
struct FigureLines;

/// Paints figures through a camera: bones, joints and axes; over them the selected ones, with an
/// outline visible on any background, and the node under the mouse with its name.
class FigurePainter
{
public:
    /// All are borrowed for the painter's life.
    FigurePainter(QPainter *painter, const ViewportCamera &camera, const QPalette &palette);

    /// hovered may be null.
    void paint(const FigureLines &figure, const VxNode *hovered);

private:
    /// The bones and joints of a painting pass.
    struct Pass
    {
        bool selected;
        const VxNode *only; // null for all
        QColor ink;
        double extraWidth; // pixels, both sides together
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

/// Paints a text in a box with the colours of tool tips; alpha is that of the box.
void paintTextBox(QPainter *painter, const QRectF &box, const QString &text,
                  const QPalette &palette, int alpha);

#endif
