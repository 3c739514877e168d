#include "vxtimeline/keygraph/keygraphchannelpainter.h"

#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/densekeypainter.h"
#include "vxtimeline/keygraph/paint/keygraphpainter.h"
#include "vxtimeline/keygraph/paint/keygraphpen.h"
#include "vxtimeline/keygraph/paint/keygraphruns.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"

namespace {

constexpr int DenseKeys = 4000; // keys on screen from which visibility tests pay off
constexpr int ManyCurves = 24;  // too many to be distinguished by colour

// The runs of a curve that are drawn once more over its marks.
std::vector<KeyGraphRun> runsOnTop(const std::vector<KeyGraphMark> &marks,
                                   const QVector<QPointF> &points, int curves)
{
    return curves > ManyCurves ? std::vector<KeyGraphRun>() : keyGraphHiddenRuns(marks, points);
}

} // namespace

KeyGraphChannelPainter::KeyGraphChannelPainter(QImage *picture, const KeyGraphScale &scale,
                                               const KeyGraphLook &look, const KeyGraphStage &stage,
                                               const QWidget *widget)
    : m_picture(picture)
    , m_scale(scale)
    , m_look(look)
    , m_stage(stage)
    , m_ratio(picture->devicePixelRatioF())
    , m_markPainter(widget)
    , m_marks(stage.size)
{
}

void KeyGraphChannelPainter::paint(const QVector<VxKeyGraphChannel *> &channels,
                                   KeyGraphCurves &curves)
{
    if (DenseKeyPainter::canShow(m_ratio) && keysOnScreen(channels) >= DenseKeys)
        paintDense(channels, curves);
    else
        paintEach(channels, curves);
}

int KeyGraphChannelPainter::keysOnScreen(const QVector<VxKeyGraphChannel *> &channels) const
{
    const VxTimeRange times = m_scale.timesBetween(0, m_stage.size.width());
    int count = 0;
    for (const VxKeyGraphChannel *channel : channels) {
        const KeyGraphKeys keys = channel->getKeys();
        count += keys.endAt(times.getEnd()) - keys.firstFrom(times.getStart());
    }
    return count;
}

const std::vector<KeyGraphMark> &KeyGraphChannelPainter::marksOf(const VxKeyGraphChannel &channel)
{
    const QVector<VxKeyGraphKey> &records = channel.getKeyCache();
    return m_marks.find(channel.getKeys(), records.constData(), m_scale);
}

void KeyGraphChannelPainter::paintLabel(const VxKeyGraphChannel &channel, int number,
                                        QPainter::CompositionMode mode)
{
    const QFontMetrics &metrics = m_look.label.getFontMetrics();
    const int top = m_look.margin + number * (metrics.height() + m_look.margin);
    if (top >= m_stage.size.height())
        return;
    QPainter painter(m_picture);
    painter.setCompositionMode(mode);
    painter.setPen(colorOf(channel, number));
    painter.setFont(m_look.label.getFont());
    painter.drawText(m_look.margin, top + metrics.ascent(),
                     metrics.elidedText(channel.getLabel(), Qt::ElideLeft, m_stage.leftWidth));
}

QColor KeyGraphChannelPainter::colorOf(const VxKeyGraphChannel &channel, int number) const
{
    return m_look.channelColor(channel.getColor(), number);
}

void KeyGraphChannelPainter::paintMarks(const std::vector<KeyGraphMark> &marks)
{
    QPainter painter(m_picture);
    for (const KeyGraphMark &mark : marks)
        m_markPainter.paint(&painter, mark);
}

void KeyGraphChannelPainter::paintEach(const QVector<VxKeyGraphChannel *> &channels,
                                       KeyGraphCurves &curves)
{
    const KeyGraphPixels pixels = KeyGraphPixels::of(m_picture);
    KeyGraphPen pen(pixels, m_picture->size(), m_ratio);
    for (int n = 0; n < channels.size(); ++n) {
        const VxKeyGraphChannel &channel = *channels.at(n);
        const QColor color = colorOf(channel, n);
        paintLabel(channel, n, QPainter::CompositionMode_SourceOver);
        const QVector<QPointF> points = curves.points(channel, n, m_scale, m_stage.size.width());
        pen.draw(points.constData(), points.size(), m_ratio, color);
        const std::vector<KeyGraphMark> &marks = marksOf(channel);
        paintMarks(marks);
        for (const KeyGraphRun &run : runsOnTop(marks, points, channels.size()))
            pen.draw(points.constData() + run.first, run.last - run.first + 1, m_ratio, color);
    }
}

// In reverse order, from the topmost item down to the covered ones.
void KeyGraphChannelPainter::paintDense(const QVector<VxKeyGraphChannel *> &channels,
                                        KeyGraphCurves &curves)
{
    DenseKeyPainter dense(m_picture, &m_markPainter);
    for (int n = channels.size() - 1; n >= 0; --n) {
        const VxKeyGraphChannel &channel = *channels.at(n);
        const QVector<QPointF> points = curves.points(channel, n, m_scale, m_stage.size.width());
        const std::vector<KeyGraphMark> &marks = marksOf(channel);
        dense.paintChannel(points, marks, runsOnTop(marks, points, channels.size()),
                           colorOf(channel, n));
        paintLabel(channel, n, QPainter::CompositionMode_DestinationOver);
    }
}
