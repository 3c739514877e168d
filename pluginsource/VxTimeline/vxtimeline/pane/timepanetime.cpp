// The time fields and the transport buttons.

#include <QtWidgets/QScrollBar>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keyskip.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

using TimelineSnap::frameOf;
using TimelineSnap::timeOf;

namespace {

constexpr int MostFramesPerSecond = 1200;

} // namespace

void VxTimePane::updateTimeFields()
{
    const VxTime step = vxScene->getTimeStep();
    if (d->framesPerSecondDirty) {
        d->framesPerSecond->showNumber(VxTicksPerSecond / step);
        d->currentFrameDirty = d->playRangeDirty = d->totalFramesDirty = true;
    }
    if (d->currentFrameDirty)
        d->currentFrame->showNumber(frameOf(vxScene->getTime(), step));
    if (d->playRangeDirty) {
        d->playStart->showNumber(frameOf(vxScene->getPlayRange().getStart(), step));
        d->playEnd->showNumber(frameOf(vxScene->getPlayRange().getEnd(), step));
    }
    if (d->totalFramesDirty)
        d->totalFrames->showNumber(frameOf(vxScene->getAnimRange().getDuration(), step) + 1);
    d->framesPerSecondDirty = d->currentFrameDirty = false;
    d->playRangeDirty = d->totalFramesDirty = false;
    d->header->updateViewport();
}

void VxTimePane::setTotalFrames(int frames)
{
    if (frames < 1) {
        updateAnimationRange();
        return;
    }
    VxUndoStackHold hold;
    VxTimeRange range = vxScene->getAnimRange();
    range.setEnd(TimelineSnap::limited(range.getStart() +
                                       qint64(vxScene->getTimeStep()) * (qint64(frames) - 1)));
    vxScene->setAnimRange(range);
    hold.accept(tr("Set Total Frames"));
}

int VxTimePane::getTotalFrames() const
{
    return qMax(0, d->totalFrames->number(0));
}

void VxTimePane::setPlayRangeStart(int frame)
{
    if (frame < 0) {
        resetPlayRangeStart();
        return;
    }
    VxUndoStackHold hold;
    const VxTime step = vxScene->getTimeStep();
    VxTimeRange range = vxScene->getPlayRange();
    const int last = frameOf(range.getEnd(), step);
    if (frame > last) {
        frame = last;
        d->playStart->showNumber(frame);
    }
    range.setStart(timeOf(frame, step));
    vxScene->setPlayRange(range);
    hold.accept(tr("Set Play Range Start"));
}

int VxTimePane::getPlayRangeStart() const
{
    return d->playStart->number(0);
}

void VxTimePane::resetPlayRangeStart()
{
    d->playStart->showNumber(0);
    updateControls();
    d->playRangeDirty = true;
    updateTimeFields();
}

void VxTimePane::setPlayRangeEnd(int frame)
{
    const VxTime step = vxScene->getTimeStep();
    VxTimeRange range = vxScene->getPlayRange();
    VxUndoStackHold hold;
    range.setEnd(timeOf(qMax(frame, frameOf(range.getStart(), step)), step));
    vxScene->setPlayRange(range);
    hold.accept(tr("Set Play Range End"));
}

int VxTimePane::getPlayRangeEnd() const
{
    return d->playEnd->number(0);
}

void VxTimePane::setCurrentFrame(int frame)
{
    if (frame < 0) {
        changeTime();
        return;
    }
    const VxTime step = vxScene->getTimeStep();
    const VxTimeRange range = vxScene->getPlayRange();
    const int first = frameOf(range.getStart(), step);
    const int last = frameOf(range.getEnd(), step);
    if (frame < first || frame > last) {
        frame = frame > last ? last : first;
        d->currentFrame->showNumber(frame);
    }
    vxScene->setTime(timeOf(frame, step));
}

int VxTimePane::getCurrentFrame() const
{
    return d->currentFrame->number(0);
}

void VxTimePane::setFramesPerSecond(int fps)
{
    if (fps < 1) {
        resetFramesPerSecond();
        return;
    }
    if (fps > MostFramesPerSecond) {
        fps = MostFramesPerSecond;
        d->framesPerSecond->showNumber(fps);
    }
    VxUndoStackHold hold;
    vxScene->setTimeStep(VxTicksPerSecond / fps);
    hold.accept(tr("Set FPS"));
}

int VxTimePane::getFramesPerSecond() const
{
    return d->framesPerSecond->number(1);
}

// The field goes to its lowest number; the scene keeps its rate, and the next refresh shows it
// again.
void VxTimePane::resetFramesPerSecond()
{
    d->framesPerSecondDirty = true;
    updateTimeFields();
    d->framesPerSecond->showStandIn(1);
    d->framesPerSecondDirty = true;
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
    if (d->totalFrames->isUntouched())
        return;
    const int frames = d->totalFrames->number(0);
    if (frames >= 1)
        setTotalFrames(frames);
    else
        updateAnimationRange();
}

void VxTimePane::handlePlayRangeStartChanged()
{
    if (d->playStart->isUntouched())
        return;
    const int frame = d->playStart->number(-1);
    if (frame >= 0)
        setPlayRangeStart(frame);
    else
        resetPlayRangeStart();
}

void VxTimePane::handlePlayRangeEndChanged()
{
    bool isNumber = false;
    const int frame = d->playEnd->number(0, &isNumber);
    if (!isNumber || d->playEnd->isUntouched())
        return;
    setPlayRangeEnd(frame);
    // An end that was held where it stands already is no change that the scene would tell of.
    d->playRangeDirty = true;
    updateTimeFields();
}

void VxTimePane::handleCurrentFrameChanged()
{
    if (!d->currentFrame->isUntouched())
        setCurrentFrame(d->currentFrame->number(-1));
}

void VxTimePane::handleFramesPerSecondChanged()
{
    if (!d->framesPerSecond->isUntouched())
        setFramesPerSecond(d->framesPerSecond->number(0));
}

void VxTimePane::changeTime()
{
    d->currentFrameDirty = true;
    updateTimeFields();
}

void VxTimePane::changeTimeStep()
{
    d->framesPerSecondDirty = true;
    updateTimeFields();
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
    d->playRangeDirty = true;
    updateTimeFields();
}

void VxTimePane::updateAnimationRange()
{
    updateControls();
    d->totalFramesDirty = true;
    updateTimeFields();
}

void VxTimePane::updatePlayButton()
{
    d->playPauseButton->setIcon(vxScene->isPlaying() ? d->pauseIcon : d->playIcon);
}

void VxTimePane::updateLoopButton(bool onOff)
{
    d->loopButton->setIcon(onOff ? d->loopOnIcon : d->loopOffIcon);
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
    if (!TimelineMetrics::shared().fit(keysWidth, vxScene->getPlayRange().getDuration()))
        return;
    d->playhead->setHorizontalOffset(d->nameColumnWidth());
    d->timeRangeSlider->update();
}

void VxTimePane::updateScenePlayRange()
{
    const QAbstractSlider *control = d->timeRangeSlider->getScrollBar();
    const VxTime step = vxScene->getTimeStep();
    const VxTime start = timeOf(control->value(), step);
    const qint64 length = timeOf(control->maximum(), step);
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

// Without a key on that side the time goes to the play range's end of that side; from outside of
// the range that may be a step the other way.
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

void VxTimePane::skipToPreviousFilteredKey()
{
    VxUndoStackHold hold;
    const VxTime before = vxScene->getTime();
    d->dopeSheetView->skipToPreviousKey();
    if (vxScene->getTime() != before)
        hold.accept(tr("Skip to Previous Filtered Key"));
    else
        hold.cancel();
}

void VxTimePane::skipToNextFilteredKey()
{
    VxUndoStackHold hold;
    const VxTime before = vxScene->getTime();
    d->dopeSheetView->skipToNextKey();
    if (vxScene->getTime() != before)
        hold.accept(tr("Skip to Next Filtered Key"));
    else
        hold.cancel();
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
