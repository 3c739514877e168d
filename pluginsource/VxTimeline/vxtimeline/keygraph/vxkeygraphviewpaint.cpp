// Painting the key graph view.

#include "vxtimeline/keygraph/keygraphchannelpainter.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview_p.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionRubberBand>
#include <vxcore/vxscene.h>

KeyGraphStage VxKeyGraphView::Private::stage() const
{
    return {q->size(),
            leftBackgroundWidth,
            rightBackgroundWidth,
            vxScene->getPlayRange(),
            vxScene->getTimeStep(),
            valueUnit};
}

// As many as fit.
QStringList VxKeyGraphView::Private::labels() const
{
    const QVector<VxKeyGraphChannel *> list = channels();
    const int lineHeight = qMax(1, look.label.getHeight() + look.margin);
    const int count = qMin(list.size(), q->height() / lineHeight + 1);
    QStringList result;
    for (int i = 0; i < count; ++i)
        result.append(list.at(i)->getLabel());
    return result;
}

void VxKeyGraphView::Private::updateLayer()
{
    const qreal ratio = q->devicePixelRatioF();
    const QSize size = (QSizeF(q->size()) * ratio).toSize();
    const QStringList newLabels = labels();
    const bool fits = layer.size() == size && layer.devicePixelRatio() == ratio;
    if (layerValid && fits && layerLabels == newLabels)
        return;
    if (!fits)
        layer = QImage(size, QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(ratio);
    layer.fill(Qt::transparent);
    layerLabels = newLabels;
    layerValid = true;
    const KeyGraphStage shown = stage();
    KeyGraphChannelPainter(&layer, scale, look, shown, q).paint(channels(), curves);
}

void VxKeyGraphView::Private::paintTimeLine(QPainter *painter)
{
    const int x = TimelineSnap::saturatedInt(scale.x(vxScene->getTime()));
    if (x < 0 || x >= q->width())
        return;
    painter->fillRect(QRect(x, 0, 1, q->height()), highlighted
                                                       ? q->palette().color(QPalette::Highlight)
                                                       : painter->pen().color());
}

void VxKeyGraphView::Private::paintRubberBand(QPainter *painter)
{
    QStyleOptionRubberBand option;
    option.initFrom(q);
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect = QRect(pressPos, currentPos).normalized();
    q->style()->drawControl(QStyle::CE_RubberBand, &option, painter, q);
}

void VxKeyGraphView::Private::paint(QPainter *painter)
{
    const KeyGraphStage shown = stage();
    KeyGraphPainter(painter, scale, look, shown).paintStage();
    paintTimeLine(painter);
    updateLayer();
    painter->drawImage(0, 0, layer);
    if (mouseState == RubberBand)
        paintRubberBand(painter);
}

QRect VxKeyGraphView::getLabelFreeRect() const
{
    return KeyGraphPainter(nullptr, d->scale, d->look, d->stage()).labelFreeRect();
}

void VxKeyGraphView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    if (!d->keyGraph)
        return;
    if (!d->timesFitted && !d->timesSetByUser)
        d->fitTimes();
    if (d->framePending)
        d->frameChannels();
    if (d->buttonRatio != devicePixelRatioF())
        d->styleButtons();
    d->wasPainted = true;
    d->framePending = false;
    QPainter painter(this);
    d->paint(&painter);
}
