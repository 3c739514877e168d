// Playback, and the skips of the current time that make an undo entry.

#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keyskip.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/timelineplayback.h"

namespace {

// Runs a change of the current time as an undo entry; none if the time stays.
template <typename Change> void skip(Change change, const QString &undoText)
{
    VxUndoStackHold hold;
    const VxTime before = vxScene->getTime();
    change();
    if (vxScene->getTime() != before)
        hold.accept(undoText);
    else
        hold.cancel();
}

} // namespace

void VxTimePane::setPlayAllFrames(bool onOff)
{
    if (TimelinePlayback::setPlaysAllFrames(onOff))
        Q_EMIT playAllFramesChanged(onOff);
}

bool VxTimePane::getPlayAllFrames() const
{
    return TimelinePlayback::playsAllFrames();
}

void VxTimePane::updatePlayButton()
{
    d->controls.transport().updatePlayIcon();
}

void VxTimePane::updateLoopButton(bool onOff)
{
    d->controls.transport().updateLoopIcon(onOff);
}

void VxTimePane::toggleLoop()
{
    vxScene->loopPlayback(!vxScene->isLoopingEnabled());
}

void VxTimePane::togglePlayback()
{
    TimelinePlayback::toggle();
}

void VxTimePane::skipToPreviousFrame()
{
    vxScene->stepTime(1, false);
}

void VxTimePane::skipToNextFrame()
{
    vxScene->stepTime(1, true);
}

void VxTimePane::skipToPlayRangeStart()
{
    skip([] { vxScene->setTime(vxScene->getPlayRange().getStart()); },
         tr("Skip to Play Range Start"));
}

void VxTimePane::skipToPlayRangeEnd()
{
    skip([] { vxScene->setTime(vxScene->getPlayRange().getEnd()); }, tr("Skip to Play Range End"));
}

// From outside of the play range a skip without a key may be a step in the other direction.
void VxTimePane::skipToPreviousKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    const VxTime start = vxScene->getPlayRange().getStart();
    if (!nodes.isEmpty())
        skip([&] { vxScene->setTime(KeySkip::previousKeyTime(nodes, vxScene->getTime(), start)); },
             tr("Skip to Previous Key"));
}

void VxTimePane::skipToNextKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    const VxTime end = vxScene->getPlayRange().getEnd();
    if (!nodes.isEmpty())
        skip([&] { vxScene->setTime(KeySkip::nextKeyTime(nodes, vxScene->getTime(), end)); },
             tr("Skip to Next Key"));
}

void VxTimePane::skipToPreviousFilteredKey()
{
    skip([this] { d->views.sheet()->skipToPreviousKey(); }, tr("Skip to Previous Filtered Key"));
}

void VxTimePane::skipToNextFilteredKey()
{
    skip([this] { d->views.sheet()->skipToNextKey(); }, tr("Skip to Next Filtered Key"));
}
