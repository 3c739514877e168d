#ifndef KEYGRAPHCHANNELPAINTER_H
#define KEYGRAPHCHANNELPAINTER_H

#include "vxtimeline/keygraph/paint/keygraphkeys.h"
#include "vxtimeline/keygraph/paint/keygraphmarkpainter.h"

#include <QtCore/QVector>
#include <QtGui/QPainter>

class KeyGraphCurves;
class KeyGraphScale;
class QColor;
class QImage;
class QWidget;
class VxKeyGraphChannel;
struct KeyGraphLook;
struct KeyGraphStage;

/// Paints the labels, curves and key marks of channels into an image, channel upon channel.
///
/// A graph of an ordinary number of keys is painted mark by mark through the style. Beyond that
/// number most marks are hidden, and a DenseKeyPainter paints the visible ones; the image is the
/// same.
class KeyGraphChannelPainter
{
public:
    /// All borrowed for the painter's life. picture: premultiplied, of the stage's size at some
    /// device pixel ratio, transparent. widget: its style draws the key marks.
    KeyGraphChannelPainter(QImage *picture, const KeyGraphScale &scale, const KeyGraphLook &look,
                           const KeyGraphStage &stage, const QWidget *widget);

    void paint(const QVector<VxKeyGraphChannel *> &channels, KeyGraphCurves &curves);
    /// The two ways of painting.
    void paintEach(const QVector<VxKeyGraphChannel *> &channels, KeyGraphCurves &curves);
    void paintDense(const QVector<VxKeyGraphChannel *> &channels, KeyGraphCurves &curves);

private:
    int keysOnScreen(const QVector<VxKeyGraphChannel *> &channels) const;
    const std::vector<KeyGraphMark> &marksOf(const VxKeyGraphChannel &channel);
    QColor colorOf(const VxKeyGraphChannel &channel, int number) const;
    void paintLabel(const VxKeyGraphChannel &channel, int number, QPainter::CompositionMode mode);
    void paintMarks(const std::vector<KeyGraphMark> &marks);

    QImage *m_picture;
    const KeyGraphScale &m_scale;
    const KeyGraphLook &m_look;
    const KeyGraphStage &m_stage;
    qreal m_ratio; // of the image's pixels to the widget's
    KeyGraphMarkPainter m_markPainter;
    KeyGraphMarks m_marks;
};

#endif
