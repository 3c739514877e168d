#include "vxtimeline/widgets/vxplayheadwgt.h"

#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

class VxPlayheadWgt::Private
{
public:
    int verticalOffset = 0;
    int horizontalOffset = 0;
};

VxPlayheadWgt::VxPlayheadWgt(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const int side = 2 * vxApp->getStyle()->metric(VxStyle::PM_VxTimelineKeyMargin);
    setFixedSize(side, side);
    connect(vxScene, &VxScene::timeChanged, this, &VxPlayheadWgt::handleTimeChanged);
}

VxPlayheadWgt::~VxPlayheadWgt() = default;

void VxPlayheadWgt::slider(int value)
{
    Q_UNUSED(value)
    updatePosition();
}

void VxPlayheadWgt::setHorizontalOffset(int offset)
{
    d->horizontalOffset = offset;
    updatePosition();
}

void VxPlayheadWgt::setVerticalOffset(int offset)
{
    d->verticalOffset = offset;
    updatePosition();
}

void VxPlayheadWgt::updatePosition()
{
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const int left = metrics.keyLeft(d->horizontalOffset, vxScene->getTime(),
                                     vxScene->getPlayRange().getStart());
    const float half = static_cast<float>(metrics.frameWidth) * 0.5f;
    move(TimelineSnap::saturatedInt(static_cast<float>(left) - half), d->verticalOffset);
}

void VxPlayheadWgt::handleTimeChanged(VxTime time)
{
    Q_UNUSED(time)
    updatePosition();
}

void VxPlayheadWgt::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    option.rect = rect();
    style()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxPlayhead), &option,
                           &painter, this);
}
