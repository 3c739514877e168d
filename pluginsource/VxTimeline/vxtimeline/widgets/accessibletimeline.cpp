#include "vxtimeline/widgets/accessibletimeline.h"

#include "vxtimeline/widgets/timerangemath.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <cmath>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

double frameOf(VxTime time)
{
    return double(time) / vxScene->getTimeStep();
}

} // namespace

void *AccessibleFrames::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

void AccessibleFrames::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const double frame = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(frame))
        return;
    const double limited = qBound(minimumValue().toDouble(), frame, maximumValue().toDouble());
    setTime(VxTime(std::round(limited) * vxScene->getTimeStep()));
}

AccessiblePlayhead::AccessiblePlayhead(VxPlayheadWgt *playhead)
    : AccessibleFrames(playhead, QAccessible::Indicator)
{
}

QString AccessiblePlayhead::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return tr("Playhead");
    return kind == QAccessible::Value || kind == QAccessible::Description
               ? VxSceneTimeDisplay::labelOf(vxScene, vxScene->getTime())
               : QString();
}

QVariant AccessiblePlayhead::currentValue() const
{
    return frameOf(vxScene->getTime());
}

void AccessiblePlayhead::setTime(VxTime time)
{
    vxScene->setTime(time);
}

QVariant AccessiblePlayhead::maximumValue() const
{
    return std::floor(frameOf(vxScene->getAnimRange().getEnd()));
}

QVariant AccessiblePlayhead::minimumValue() const
{
    return std::ceil(frameOf(vxScene->getAnimRange().getStart()));
}

AccessibleTimeRange::AccessibleTimeRange(VxTimeRangeSlider *slider)
    : AccessibleFrames(slider, QAccessible::Slider)
{
}

QString AccessibleTimeRange::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return tr("Play Range");
    if (kind != QAccessible::Value && kind != QAccessible::Description)
        return QString();
    const VxTimeRange range = vxScene->getPlayRange();
    return tr("%1 to %2")
        .arg(VxSceneTimeDisplay::labelOf(vxScene, range.getStart()),
             VxSceneTimeDisplay::labelOf(vxScene, range.getEnd()));
}

QVariant AccessibleTimeRange::currentValue() const
{
    return frameOf(vxScene->getPlayRange().getStart());
}

// As a drag of the bar does it.
void AccessibleTimeRange::setTime(VxTime start)
{
    const VxTimeRange range = vxScene->getPlayRange();
    vxScene->setPlayRange(
        TimeRangeMath::dragged(TimeRangeMath::Part::Body, range, start - range.getStart(),
                               vxScene->getAnimRange().getDuration(), vxScene->getTimeStep()));
}

QVariant AccessibleTimeRange::maximumValue() const
{
    const VxTime last =
        vxScene->getAnimRange().getDuration() - vxScene->getPlayRange().getDuration();
    return std::floor(frameOf(qMax(0, last)));
}

QVariant AccessibleTimeRange::minimumValue() const
{
    return 0.0;
}
