// The pane's slots for time: fields, transport buttons and what the scene reports.

#include <QtWidgets/QScrollBar>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keyskip.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepaneaxis.h"
#include "vxtimeline/pane/transportcontrols.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

void VxTimePane::updateTimeFields()
{
    d->fields->refresh();
}

void VxTimePane::setTotalFrames(int frames)
{
    d->fields->setTotalFrames(frames);
}

int VxTimePane::getTotalFrames() const
{
    return d->fields->totalFrames();
}

void VxTimePane::setPlayRangeStart(int frame)
{
    d->fields->setPlayRangeStart(frame);
}

int VxTimePane::getPlayRangeStart() const
{
    return d->fields->playRangeStart();
}

void VxTimePane::setPlayRangeEnd(int frame)
{
    d->fields->setPlayRangeEnd(frame);
}

int VxTimePane::getPlayRangeEnd() const
{
    return d->fields->playRangeEnd();
}

void VxTimePane::setCurrentFrame(int frame)
{
    d->fields->setCurrentFrame(frame);
}

int VxTimePane::getCurrentFrame() const
{
    return d->fields->currentFrame();
}

void VxTimePane::setFramesPerSecond(int fps)
{
    d->fields->setFramesPerSecond(fps);
}

int VxTimePane::getFramesPerSecond() const
{
    return d->fields->framesPerSecond();
}

void VxTimePane::setPlayAllFrames(bool onOff)
{
    if (TimelinePlayback::setPlaysAllFrames(onOff))
        Q_EMIT playAllFramesChanged(onOff);
}

bool VxTimePane::getPlayAllFrames() const
{
    return TimelinePlayback::playsAllFrames();
}

void VxTimePane::handleTotalFramesChanged()
{
    d->fields->applyTotalFrames();
}

void VxTimePane::handlePlayRangeStartChanged()
{
    d->fields->applyPlayRangeStart();
}

void VxTimePane::handlePlayRangeEndChanged()
{
    d->fields->applyPlayRangeEnd();
}

void VxTimePane::handleCurrentFrameChanged()
{
    d->fields->applyCurrentFrame();
}

void VxTimePane::handleFramesPerSecondChanged()
{
    d->fields->applyFramesPerSecond();
}

void VxTimePane::Private::refreshFields(int parts) const
{
    fields->setOutdated(TimeFields::Parts(parts));
    fields->refresh();
}

void VxTimePane::changeTime()
{
    d->refreshFields(TimeFields::CurrentFrame);
}

void VxTimePane::changeTimeStep()
{
    d->refreshFields(TimeFields::FramesPerSecond);
}

void VxTimePane::updateTimeStep(VxTime step)
{
    TimelineMetrics::shared().fps = VxTicksPerSecond / qMax(step, 1);
    updateSliders();
    updateKeyGraph();
    d->dopeSheetView->doUpdate();
    update();
}

void VxTimePane::updatePlayRange()
{
    updateControls();
    d->refreshFields(TimeFields::PlayRange);
}

void VxTimePane::updateAnimationRange()
{
    updateControls();
    d->refreshFields(TimeFields::TotalFrames);
}

void VxTimePane::updatePlayButton()
{
    d->transport->updatePlayIcon();
}

void VxTimePane::updateLoopButton(bool onOff)
{
    d->transport->updateLoopIcon(onOff);
}

void VxTimePane::updateControls()
{
    updateSliders();
    updateKeyGraph();
    d->dopeSheetView->doUpdate();
}

void VxTimePane::updateSliders()
{
    const int keysWidth = d->dopeSheetView->getKeysWidth();
    const bool fits =
        TimelineMetrics::shared().fit(keysWidth, vxScene->getPlayRange().getDuration());
    d->axis->update();
    if (!fits)
        return;
    d->playhead->setHorizontalOffset(d->nameColumnWidth());
    d->timeRangeSlider->update();
}

void VxTimePane::updateScenePlayRange()
{
    const QAbstractSlider *control = d->timeRangeSlider->getScrollBar();
    const VxTime step = vxScene->getTimeStep();
    const VxTime start = TimelineSnap::timeOf(control->value(), step);
    const qint64 length = TimelineSnap::timeOf(control->maximum(), step);
    vxScene->setPlayRange(VxTimeRange(start, TimelineSnap::limited(start + length)));
}

void VxTimePane::toggleLoop()
{
    vxScene->loopPlayback(!vxScene->isLoopingEnabled());
}

void VxTimePane::togglePlayback()
{
    TimelinePlayback::toggle();
}

void VxTimePane::skipToPlayRangeStart()
{
    VxUndoStackHold hold;
    vxScene->setTime(vxScene->getPlayRange().getStart());
    hold.accept(tr("Skip to Play Range Start"));
}

void VxTimePane::skipToPlayRangeEnd()
{
    VxUndoStackHold hold;
    vxScene->setTime(vxScene->getPlayRange().getEnd());
    hold.accept(tr("Skip to Play Range End"));
}

void VxTimePane::skipToPreviousFrame()
{
    vxScene->stepTime(1, false);
}

void VxTimePane::skipToNextFrame()
{
    vxScene->stepTime(1, true);
}

// Without a key on that side the time becomes that end of the play range; from outside of the range
// that may be a step in the other direction.
void VxTimePane::skipToKey(VxTime found, const QString &undoText)
{
    VxUndoStackHold hold;
    if (found == vxScene->getTime()) {
        hold.cancel();
        return;
    }
    vxScene->setTime(found);
    hold.accept(undoText);
}

void VxTimePane::skipToPreviousKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    if (!nodes.isEmpty())
        skipToKey(
            KeySkip::previousKeyTime(nodes, vxScene->getTime(), vxScene->getPlayRange().getStart()),
            tr("Skip to Previous Key"));
}

void VxTimePane::skipToNextKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    if (!nodes.isEmpty())
        skipToKey(KeySkip::nextKeyTime(nodes, vxScene->getTime(), vxScene->getPlayRange().getEnd()),
                  tr("Skip to Next Key"));
}

void VxTimePane::skipToFilteredKey(void (VxDopeSheetView::*skip)(), const QString &undoText)
{
    VxUndoStackHold hold;
    const VxTime before = vxScene->getTime();
    (d->dopeSheetView->*skip)();
    if (vxScene->getTime() != before)
        hold.accept(undoText);
    else
        hold.cancel();
}

void VxTimePane::skipToPreviousFilteredKey()
{
    skipToFilteredKey(&VxDopeSheetView::skipToPreviousKey, tr("Skip to Previous Filtered Key"));
}

void VxTimePane::skipToNextFilteredKey()
{
    skipToFilteredKey(&VxDopeSheetView::skipToNextKey, tr("Skip to Next Filtered Key"));
}

void VxTimePane::handleLoopClicked()
{
    toggleLoop();
}

void VxTimePane::handleSkipToPlayRangeStartClicked()
{
    skipToPlayRangeStart();
}

void VxTimePane::handleSkipToPreviousKeyClicked()
{
    skipToPreviousFilteredKey();
}

void VxTimePane::handleSkipToPreviousFrameClicked()
{
    skipToPreviousFrame();
}

void VxTimePane::handlePlayPauseClicked()
{
    togglePlayback();
}

void VxTimePane::handleSkipToNextFrameClicked()
{
    skipToNextFrame();
}

void VxTimePane::handleSkipToNextKeyClicked()
{
    skipToNextFilteredKey();
}

void VxTimePane::handleSkipToPlayRangeEndClicked()
{
    skipToPlayRangeEnd();
}
