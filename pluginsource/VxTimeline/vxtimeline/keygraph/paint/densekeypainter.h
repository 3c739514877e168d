#ifndef DENSEKEYPAINTER_H
#define DENSEKEYPAINTER_H

#include "vxtimeline/keygraph/paint/keygraphcanvas.h"
#include "vxtimeline/keygraph/paint/keygraphkeys.h"
#include "vxtimeline/keygraph/paint/keygraphpen.h"
#include "vxtimeline/keygraph/paint/keygraphruns.h"

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <array>
#include <optional>
#include <vector>

class KeyGraphMarkPainter;

/// Paints the curves and marks of a graph with more keys than can be visible.
///
/// Hundreds of thousands of marks overlap, and most of them show few pixels or none. So they are
/// painted front to back, each under the present content: an opaque pixel is never touched again,
/// and hidden items cost next to nothing. The style draws one mark of each look, whose image is
/// then used everywhere.
class DenseKeyPainter
{
public:
    /// picture: premultiplied, borrowed; markPainter: borrowed.
    DenseKeyPainter(QImage *picture, KeyGraphMarkPainter *markPainter);
    /// False when a mark of this device pixel ratio is too large for a stamp.
    static bool canShow(qreal ratio);

    /// A channel: runs of its curve, below them its marks in stacking order, below these its whole
    /// curve. points: in the widget's pixels, from left to right.
    void paintChannel(const QVector<QPointF> &points, const std::vector<KeyGraphMark> &marks,
                      const std::vector<KeyGraphRun> &runs, const QColor &color);

private:
    const KeyGraphStamp &stamp(const KeyGraphMark &mark);
    QPoint cornerOf(const KeyGraphMark &mark) const;
    void paintMarks(const std::vector<KeyGraphMark> &marks);
    void paintRun(const QVector<QPointF> &points, const KeyGraphRun &run, const QColor &color);
    bool isHidden(const QVector<QPointF> &points, int piece);

    static constexpr int LookCount = 8; // a type of two bits, selected or not

    qreal m_ratio;
    KeyGraphMarkPainter *m_markPainter;
    KeyGraphCanvas m_canvas;
    KeyGraphPen m_pen;
    std::array<std::optional<KeyGraphStamp>, LookCount> m_stamps;
    /// Pieces of the present curve that were found hidden: they stay so.
    std::vector<quint8> m_hidden;
};

#endif
