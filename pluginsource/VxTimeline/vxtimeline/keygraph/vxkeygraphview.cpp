#include "vxtimeline/keygraph/vxkeygraphview.h"

#include "vxtimeline/keygraph/paint/keygraphkeys.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview_p.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QResizeEvent>
#include <QtGui/QWheelEvent>
#include <algorithm>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmousebutton.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr double TimeMargin = 24.0;    // pixels free beside the animation range
constexpr double MinTimeWidth = 100.0; // minimum pixels for it, space permitting

// The remaining resizes of this process that centre the animation range: those while the main
// window is being laid out.
int centeringResizes = 3;

} // namespace

VxKeyGraphView::Private::Private(VxKeyGraphView *view)
    : q(view)
{
}

QVector<VxKeyGraphChannel *> VxKeyGraphView::Private::channels() const
{
    return keyGraph ? keyGraph->getChannels() : QVector<VxKeyGraphChannel *>();
}

void VxKeyGraphView::Private::followScene()
{
    const auto update = [this] { q->update(); };
    QObject::connect(vxScene, &VxScene::timeChanged, q, update);
    QObject::connect(vxScene, &VxScene::timeStepChanged, q, update);
    QObject::connect(vxScene, &VxScene::playRangeChanged, q, update);
    QObject::connect(vxScene, &VxScene::animRangeChanged, q, [this] {
        if (!timesSetByUser)
            fitTimes();
    });
    QObject::connect(vxScene, &VxScene::sceneCleared, q, [this] {
        timesSetByUser = keysLeft.has_value();
        fitTimes();
    });
}

void VxKeyGraphView::Private::followGraph()
{
    QObject::connect(keyGraph, &VxKeyGraph::channelsChanged, q, [this] { channelsChanged(); });
    QObject::connect(keyGraph, &VxKeyGraph::channelsChanged, q, &VxKeyGraphView::doUpdate);
    QObject::connect(keyGraph, &VxKeyGraph::channelListChanged, q, [this] { updateChannels(); });
    QObject::connect(keyGraph, &VxKeyGraph::channelListChanged, q,
                     &VxKeyGraphView::channelListChanged);
    QObject::connect(keyGraph, &VxKeyGraph::receivedKeyMessage, q, [this] { repaint(); });
}

void VxKeyGraphView::Private::channelsChanged()
{
    curves.invalidate();
    repaint();
}

void VxKeyGraphView::Private::repaint()
{
    layerValid = false;
    q->update();
}

// The view has a unit if all channels share it.
void VxKeyGraphView::Private::updateChannels()
{
    hit = Hit();
    valueUnit.clear();
    const QVector<VxKeyGraphChannel *> list = channels();
    const bool begins = !hadChannels && !list.isEmpty();
    hadChannels = !list.isEmpty();
    if (begins) {
        framePending = !wasPainted;
        frameChannels();
    }
    if (list.isEmpty())
        return;
    const QString unit = list.first()->getUnit();
    const auto hasUnit = [&unit](const auto *channel) { return channel->getUnit() == unit; };
    if (std::all_of(list.cbegin(), list.cend(), hasUnit))
        valueUnit = unit;
}

void VxKeyGraphView::Private::frameChannels()
{
    if (height <= 0.0)
        return;
    q->frameKeys();
    const QVector<VxKeyGraphChannel *> list = channels();
    const auto hasKeys = [](const auto *channel) { return channel->getNumKeys() > 0; };
    if (std::any_of(list.cbegin(), list.cend(), hasKeys))
        return;
    double low = list.isEmpty() ? 0.0 : list.first()->getValue(vxScene->getTime());
    double high = low;
    for (const VxKeyGraphChannel *channel : list) {
        const double value = channel->getValue(vxScene->getTime());
        low = qMin(low, value);
        high = qMax(high, value);
    }
    scale.frameValues(low, high, height);
    repaint();
}

void VxKeyGraphView::Private::updateTimes()
{
    if (!keysLeft)
        return;
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const KeyGraphScale former = scale;
    const int origin = metrics.keysOrigin(vxScene->getPlayRange().getStart());
    scale.followAxis(metrics, double(*keysLeft) + origin + metrics.halfFrame());
    if (!scale.hasTimesOf(former))
        repaint();
}

void VxKeyGraphView::Private::fitTimes()
{
    if (keysLeft)
        return;
    fitTimesBetween(leftBackgroundWidth, rightBackgroundWidth);
}

// Ignores the areas at the sides if they leave hardly any space.
void VxKeyGraphView::Private::fitTimesBetween(int leftWidth, int rightWidth)
{
    timesFitted = width > 0.0;
    if (!timesFitted)
        return;
    double left = leftWidth + TimeMargin;
    double right = width - rightWidth - TimeMargin;
    if (right - left < MinTimeWidth) {
        left = TimeMargin;
        right = qMax(left + 1.0, width - TimeMargin);
    }
    scale.fitTimes(vxScene->getAnimRange(), left, right);
    repaint();
}

void VxKeyGraphView::Private::resize(const QSize &size)
{
    width = size.width();
    height = size.height();
    scale.originX = 0.0;
    scale.originY = height * 0.5;
    const bool centres = centeringResizes > 0 && size.width() > 0;
    if (centres)
        --centeringResizes;
    if (centres && !keysLeft) {
        // In the middle of the widget the range avoids the wider area on both sides.
        const int sides = qMax(leftBackgroundWidth, rightBackgroundWidth);
        if (!timesSetByUser)
            fitTimesBetween(sides, sides);
        const VxTimeRange range = vxScene->getAnimRange();
        scale.centerTimes(range.getDuration(), width);
    }
    // The first paint fits to the size that the widget has then. A range centred after that, by a
    // window that opens in steps, is fitted again where it would jump.
    if (!wasPainted || centres)
        timesFitted = false;
    placeButtons();
    repaint();
}

void VxKeyGraphView::Private::wheelValues(int delta, bool pan, bool fine)
{
    if (pan) {
        q->panStart();
        q->panAdjust(QPoint(0, TimelineSnap::saturatedInt(delta * (fine ? 0.1 : 0.5))));
        return;
    }
    q->zoomStart();
    q->zoomAdjust(QPoint(0, fine ? TimelineSnap::saturatedInt(delta * 0.05) : delta));
}

void VxKeyGraphView::Private::wheelTimes(int delta, bool pan, bool fine, int x)
{
    if (keysLeft)
        return;
    timesSetByUser = true;
    if (pan)
        scale.offsetX += TimelineSnap::saturatedInt(delta * (fine ? 0.1 : 0.5));
    else
        scale.zoomTimes(fine ? delta * 0.05 : delta, x);
    repaint();
}

void VxKeyGraphView::Private::buildButtons()
{
    const auto makeButton = [this](const char *name, const QString &toolTip) {
        auto *button = new VxMouseButton(q);
        button->setObjectName(QLatin1String(name));
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
        button->setCursor(Qt::ArrowCursor);
        return button;
    };
    panButton = makeButton("KeyGraphPanBtn", VxKeyGraphView::tr("Drag to Pan the Values"));
    zoomButton = makeButton("KeyGraphZoomBtn", VxKeyGraphView::tr("Drag to Zoom the Values"));
    frameButton = makeButton("KeyGraphFrameBtn", VxKeyGraphView::tr("Frame the Keys"));
    QObject::connect(panButton, &VxMouseButton::pressed, q, &VxKeyGraphView::panStart);
    QObject::connect(panButton, &VxMouseButton::dragged, q, &VxKeyGraphView::panAdjust);
    QObject::connect(zoomButton, &VxMouseButton::pressed, q, &VxKeyGraphView::zoomStart);
    QObject::connect(zoomButton, &VxMouseButton::dragged, q, &VxKeyGraphView::zoomAdjust);
    QObject::connect(frameButton, &VxMouseButton::clicked, q, [this] { q->frameKeys(); });
}

void VxKeyGraphView::Private::styleButtons()
{
    const VxStyle *style = vxApp->getStyle();
    const int side = style->metric(VxStyle::PM_VxBarIconSize);
    const qreal ratio = buttonRatio = q->devicePixelRatioF();
    const auto setPixmaps = [&](VxMouseButton *button, VxStyle::StandardIconId id) {
        const auto picture = [&](QStyle::State state) {
            return style->findStandardPixmapForState(id, state, QSize(side, side), ratio);
        };
        button->setPixmaps(picture(QStyle::State_Enabled),
                           picture(QStyle::State_Enabled | QStyle::State_MouseOver),
                           picture(QStyle::State_Enabled | QStyle::State_On));
    };
    setPixmaps(panButton, VxStyle::SP_VxGraphPan);
    setPixmaps(zoomButton, VxStyle::SP_VxGraphZoom);
    setPixmaps(frameButton, VxStyle::SP_VxGraphFrame);
    placeButtons();
}

// In the upper right corner, side by side.
void VxKeyGraphView::Private::placeButtons()
{
    const int gap = qMax(1, look.margin);
    int right = q->width() - rightBackgroundWidth - gap;
    for (VxMouseButton *button : {frameButton, zoomButton, panButton}) {
        button->resize(button->sizeHint());
        right -= button->width();
        button->move(right, gap);
        right -= gap;
    }
}

VxKeyGraphView::VxKeyGraphView(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setMouseTracking(true);
    // The menu opens at the release, not at the platform's time.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setFocusPolicy(Qt::ClickFocus);
    // Left, Right, Home and End step through time here, too.
    setProperty("vxTimeAxis", true);
    d->guard = new VxGestureGuard(this);
    connect(d->guard, &VxGestureGuard::cancelled, this, [this] { d->dropGesture(); });
    d->buildButtons();
    d->followScene();
    doStyling();
}

// Drops a drag in progress; no slot may use the destroyed record.
VxKeyGraphView::~VxKeyGraphView()
{
    d->guard->end();
    d->putKeysBack();
}

void VxKeyGraphView::setKeyGraph(VxKeyGraph *keyGraph)
{
    if (d->keyGraph)
        d->keyGraph->disconnect(this);
    d->keyGraph = keyGraph;
    if (keyGraph)
        d->followGraph();
    d->updateChannels();
    d->channelsChanged();
}

VxKeyGraph *VxKeyGraphView::getKeyGraph() const
{
    return d->keyGraph;
}

const KeyGraphScale &VxKeyGraphView::getScale() const
{
    return d->scale;
}

void VxKeyGraphView::frameKeys(bool onlySelected)
{
    KeyGraphSpan span;
    for (const VxKeyGraphChannel *channel : d->channels())
        span.add(channel->getKeys(), channel->getKeyCache().constData(), onlySelected);
    if (!span.found)
        return;
    d->scale.frameValues(span.low, span.high, d->height);
    d->repaint();
}

void VxKeyGraphView::setLeftBackgroundWidth(int width)
{
    d->leftBackgroundWidth = width;
    d->repaint();
}

void VxKeyGraphView::setRightBackgroundWidth(int width)
{
    d->rightBackgroundWidth = width;
    d->placeButtons();
    d->repaint();
}

void VxKeyGraphView::followTimeline(int keysLeft)
{
    d->keysLeft = keysLeft;
    d->timesSetByUser = true;
    d->updateTimes();
}

void VxKeyGraphView::doUpdate()
{
    d->updateTimes();
    update();
}

void VxKeyGraphView::doStyling()
{
    d->look = KeyGraphLook::of(this);
    d->styleButtons();
    d->repaint();
}

void VxKeyGraphView::panStart()
{
    d->savedValue = d->scale.offsetY;
}

void VxKeyGraphView::panAdjust(QPoint delta)
{
    d->scale.offsetY = d->savedValue + delta.y();
    d->repaint();
}

void VxKeyGraphView::zoomStart()
{
    d->savedValue = d->scale.valuePerPixel;
    d->zoomStartTransform = d->scale;
}

void VxKeyGraphView::zoomAdjust(QPoint delta)
{
    d->scale.zoomValues(d->zoomStartTransform, delta.y());
    d->repaint();
}

void VxKeyGraphView::changeEvent(QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::StyleChange)
        doStyling();
    QWidget::changeEvent(event);
}

void VxKeyGraphView::resizeEvent(QResizeEvent *event)
{
    d->resize(event->size());
}

// Together with Alt some platforms swap the wheel's axes; either one then counts.
void VxKeyGraphView::wheelEvent(QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    const bool alt = event->modifiers() & Qt::AltModifier;
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool fine = event->modifiers() & Qt::ControlModifier;
    const bool sideways = delta.y() == 0 && delta.x() != 0;
    const int amount = sideways ? delta.x() : delta.y();
    if (shift)
        d->wheelTimes(amount, alt, fine, event->position().toPoint().x());
    else if (sideways && !alt)
        d->wheelTimes(amount, true, fine, 0);
    else
        d->wheelValues(amount, alt, fine);
    event->accept();
}
