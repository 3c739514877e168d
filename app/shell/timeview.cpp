#include "shell/timeview.h"

#include "widgets/studiotext.h"

#include <algorithm>
#include <limits>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr double ViewMargin = 0.05; // of the keys' span, on each side
constexpr qint64 LeastFrames = 2;   // on each side

VxTime limited(qint64 time)
{
    return VxTime(std::clamp<qint64>(time, VxTimeMin, VxTimeMax));
}

} // namespace

void TimeView::showAll(VxScene *scene)
{
    scene->setPlayRange(scene->getAnimRange());
}

QString TimeView::zoomToKeys(VxScene *scene, const VxKeySelection &selection)
{
    qint64 first = std::numeric_limits<qint64>::max();
    qint64 last = std::numeric_limits<qint64>::min();
    for (const VxKeySelectionEntry &entry : selection.entries()) {
        if (entry.spans.empty())
            continue;
        first = std::min<qint64>(first, entry.holder->getKeyTime(entry.spans.front().first));
        last = std::max<qint64>(last, entry.holder->getKeyTime(entry.spans.back().last - 1));
    }
    if (first > last)
        return StudioText::tr("No keys are selected.");
    const qint64 step = std::max(scene->getTimeStep(), 1);
    const qint64 room = std::max(LeastFrames * step, qint64(double(last - first) * ViewMargin));
    const auto frame = [step](qint64 time) { return limited((time + step / 2) / step * step); };
    scene->setPlayRange(VxTimeRange(frame(first - room), frame(last + room)));
    return QString();
}

void TimeView::storeView(VxScene *scene, int number)
{
    VxUndoStackHold hold;
    VxSceneViews::of(scene)->setView(number - 1, scene->getPlayRange());
    hold.accept(StudioText::tr("Store View %1").arg(number));
}

QString TimeView::showView(VxScene *scene, int number)
{
    const auto view = VxSceneViews::of(scene)->view(number - 1);
    if (!view)
        return StudioText::tr("View %1 is empty. Store it first.").arg(number);
    scene->setPlayRange(*view);
    return QString();
}

void TimeView::setDisplay(VxScene *scene, const VxTimeDisplay &display)
{
    VxUndoStackHold hold;
    VxSceneTimeDisplay::of(scene)->setDisplay(display);
    hold.accept(StudioText::tr("Set Time Display"));
}
