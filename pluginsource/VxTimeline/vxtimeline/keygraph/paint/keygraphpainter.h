#ifndef KEYGRAPHPAINTER_H
#define KEYGRAPHPAINTER_H

#include "vxtimeline/keygraph/paint/keygraphgrid.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <vxcore/vxtextstyle.h>
#include <vxcore/vxtimerange.h>

class QPainter;
class QWidget;

/// Colours, fonts and metrics of the key graph, cached from the style.
struct KeyGraphLook
{
    /// From the application's style; a colour that it lacks is taken from the widget's palette.
    static KeyGraphLook of(const QWidget *widget);

    /// The colour of a channel's label and curve: its own, or text colour when that is invalid,
    /// made lighter or darker by its number, so that adjacent channels of one colour differ.
    QColor channelColor(const QColor &own, int number) const;

    QColor background;
    QColor side; // left and right of the curve area
    QColor outside;
    QColor grid;
    QColor majorGrid;
    VxTextStyle label;
    VxTextStyle axis;
    QColor text;
    int margin = 0; // pixels
};

/// The content of the graph apart from its channels.
struct KeyGraphStage
{
    QSize size;
    int leftWidth = 0; // pixels of the areas left and right of the curve area
    int rightWidth = 0;
    VxTimeRange playRange;
    VxTime timeStep = 0; // ticks per frame
    QString valueUnit;   // of all channels, such as "%"; empty when they differ or have none
};

/// Paints the background of a key graph, from lists of lines with their labels. It has no state and
/// determines only the order of painting.
class KeyGraphPainter
{
public:
    /// All borrowed for the painter's life; the painter may be null when nothing is painted.
    KeyGraphPainter(QPainter *painter, const KeyGraphScale &scale, const KeyGraphLook &look,
                    const KeyGraphStage &stage);

    /// The area without labels of channels, values or frames; may be empty.
    QRect labelFreeRect() const;

    /// Background, the shade outside of the play range, grid and its labels.
    void paintStage();

private:
    QVector<KeyGraphGrid::Line> valueLines() const;
    void paintGrounds();
    void paintValueGrid();
    void paintFrameGrid();
    qreal lineWidth() const;

    QPainter *m_painter;
    const KeyGraphScale &m_scale;
    const KeyGraphLook &m_look;
    const KeyGraphStage &m_stage;
};

#endif
