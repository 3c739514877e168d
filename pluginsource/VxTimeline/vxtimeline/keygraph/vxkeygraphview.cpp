#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtWidgets/QWidget>

#include "vxtimeline/keygraph/vxkeygraph.h"

class VxKeyGraphView::Private
{
public:
    VxKeyGraph *keyGraph = nullptr;
    int leftBackgroundWidth = 0;
    int rightBackgroundWidth = 0;
};

VxKeyGraphView::VxKeyGraphView(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
}

VxKeyGraphView::~VxKeyGraphView() = default;

void VxKeyGraphView::setKeyGraph(VxKeyGraph *keyGraph)
{
    if (d->keyGraph)
        d->keyGraph->disconnect(this);
    d->keyGraph = keyGraph;
    if (!d->keyGraph)
        return;
    connect(d->keyGraph, &VxKeyGraph::channelsChanged, this, &VxKeyGraphView::doUpdate);
    connect(d->keyGraph, &VxKeyGraph::channelListChanged, this,
            &VxKeyGraphView::channelListChanged);
    connect(d->keyGraph, &VxKeyGraph::receivedKeyMessage, this, &VxKeyGraphView::doUpdate);
}

VxKeyGraph *VxKeyGraphView::getKeyGraph() const
{
    return d->keyGraph;
}

void VxKeyGraphView::frameKeys(bool onlySelected)
{
    Q_UNUSED(onlySelected)
}

void VxKeyGraphView::setLeftBackgroundWidth(int width)
{
    d->leftBackgroundWidth = width;
    update();
}

void VxKeyGraphView::setRightBackgroundWidth(int width)
{
    d->rightBackgroundWidth = width;
    update();
}

void VxKeyGraphView::doUpdate()
{
    update();
}

void VxKeyGraphView::doStyling()
{
    update();
}

void VxKeyGraphView::panStart() {}

void VxKeyGraphView::panAdjust(QPoint delta)
{
    Q_UNUSED(delta)
}

void VxKeyGraphView::zoomStart() {}

void VxKeyGraphView::zoomAdjust(QPoint delta)
{
    Q_UNUSED(delta)
}
