#ifndef KEYGRAPHCROWD_H
#define KEYGRAPHCROWD_H

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <array>
#include <optional>
#include <vector>

#include "vxtimeline/keygraph/keygraphcanvas.h"
#include "vxtimeline/keygraph/keygraphkeys.h"
#include "vxtimeline/keygraph/keygraphpen.h"
#include "vxtimeline/keygraph/keygraphruns.h"

class KeyGraphMarkPainter;

// Paints the curves and marks of a graph with more keys than can be seen.
//
// Hundreds of thousands of marks lie over each other, and most of them are seen in a few pixels or
// not at all. So they are painted from the topmost to the lowest, each under what is there: a
// pixel that nothing shines through is never touched again, and what is hidden costs next to
// nothing. The style draws one mark of each look, whose picture is then put everywhere.
class KeyGraphCrowd
{
public:
    // picture: premultiplied, borrowed; markPainter: borrowed.
    KeyGraphCrowd(QImage *picture, KeyGraphMarkPainter *markPainter);
    // False when a mark of this device pixel ratio is too large for a stamp.
    static bool canShow(qreal ratio);

    // A channel: runs of its curve, below them its marks in the order in which they lie over each
    // other, below these its whole curve. points: in the widget's pixels, from left to right.
    void paintChannel(const QVector<QPointF> &points, const std::vector<KeyGraphMark> &marks,
                      const std::vector<KeyGraphRun> &runs, const QColor &color);

private:
    const KeyGraphStamp &stamp(const KeyGraphMark &mark);
    QPoint placeOf(const KeyGraphMark &mark) const;
    void paintMarks(const std::vector<KeyGraphMark> &marks);
    void paintRun(const QVector<QPointF> &points, const KeyGraphRun &run, const QColor &color);
    bool isHidden(const QVector<QPointF> &points, int piece);

    static constexpr int LookCount = 8; // a type of two bits, selected or not

    qreal m_ratio;
    KeyGraphMarkPainter *m_markPainter;
    KeyGraphCanvas m_canvas;
    KeyGraphPen m_pen;
    std::array<std::optional<KeyGraphStamp>, LookCount> m_stamps;
    // Of the pieces of the present curve, those that were found to be hidden: they stay so.
    std::vector<quint8> m_hidden;
};

#endif
