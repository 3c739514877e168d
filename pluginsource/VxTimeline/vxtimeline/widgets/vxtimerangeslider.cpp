#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxscene.h>

#include "vxtimeline/time/timelinesnap.h"

class VxTimeRangeSlider::Private
{
public:
    QScrollBar *scrollBar = nullptr;
};

VxTimeRangeSlider::VxTimeRangeSlider(QWidget *parent)
    : QAbstractSlider(parent)
    , d(std::make_unique<Private>())
{
    setMouseTracking(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    d->scrollBar = new QScrollBar(Qt::Horizontal, this);
    d->scrollBar->hide();
    layout->addWidget(d->scrollBar);
}

VxTimeRangeSlider::~VxTimeRangeSlider() = default;

QScrollBar *VxTimeRangeSlider::getScrollBar() const
{
    return d->scrollBar;
}

QRect VxTimeRangeSlider::playRangeRect() const
{
    const VxTimeRange range = vxScene->getPlayRange();
    const VxTime duration = vxScene->getAnimRange().getDuration();
    if (duration == 0)
        return QRect();
    const double scale = double(width()) / duration;
    const int x1 = TimelineSnap::truncated(range.getStart() * scale);
    const int x2 = x1 + TimelineSnap::truncated(range.getDuration() * scale) - 1;
    return QRect(QPoint(x1, 0), QPoint(x2, height() - 1));
}

void VxTimeRangeSlider::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), palette().dark());
    const QRect range = playRangeRect();
    if (range.isEmpty())
        return;
    painter.fillRect(range, palette().button());
    painter.setPen(palette().dark().color());
    painter.drawRect(range.adjusted(0, 0, -1, -1));
}
