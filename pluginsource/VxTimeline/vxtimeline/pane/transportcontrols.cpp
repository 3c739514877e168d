#include "vxtimeline/pane/transportcontrols.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keyskip.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostackhold.h>

namespace {

// In the order of TransportControls::Button.
const struct
{
    int index; // in the bar
    const char *name;
    const char *toolTip;
} buttonKinds[] = {
    {0, "TimelineLoopBtn", QT_TRANSLATE_NOOP("VxTimePane", "Loop")},
    {2, "TimelineSkipToStartBtn", QT_TRANSLATE_NOOP("VxTimePane", "Skip to Play Range Start")},
    {4, "TimelinePrevKeyBtn", QT_TRANSLATE_NOOP("VxTimePane", "Skip to Previous Key")},
    {5, "TimelinePrevFrameBtn", QT_TRANSLATE_NOOP("VxTimePane", "Step to Previous Frame")},
    {7, "TimelinePlayPauseBtn", QT_TRANSLATE_NOOP("VxTimePane", "Play / Pause")},
    {9, "TimelineNextFrameBtn", QT_TRANSLATE_NOOP("VxTimePane", "Step to Next Frame")},
    {10, "TimelineNextKeyBtn", QT_TRANSLATE_NOOP("VxTimePane", "Skip to Next Key")},
    {12, "TimelineSkipToEndBtn", QT_TRANSLATE_NOOP("VxTimePane", "Skip to Play Range End")},
};
static_assert(std::size(buttonKinds) == TransportControls::ButtonCount);

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

const int separators[] = {1, 3, 6, 8, 11};
// Keys and frames, and the separators around them.
const int steps[] = {4, 5, 6, 8, 9, 10};

} // namespace

TransportControls::TransportControls(QWidget *parent, const TimePaneStrip &strip)
    : m_bar(strip.makeBar(QStringLiteral("TimelineButtonBar"), parent))
{
    for (const int index : separators)
        m_bar->addSeparator(VxButtonBar::SmallSeparator, index);
    for (const auto &kind : buttonKinds)
        m_buttons.append(strip.addBarButton(m_bar, kind.index, QLatin1String(kind.name),
                                            VxTimePane::tr(kind.toolTip)));
}

void TransportControls::setStepsVisible(bool visible)
{
    for (const int item : steps) {
        if (visible)
            m_bar->showItem(item);
        else
            m_bar->hideItem(item);
    }
}

void TransportControls::updateIcons()
{
    const VxStyle *style = vxApp->getStyle();
    m_loopOnIcon = style->icon(VxStyle::SP_VxLoopOn);
    m_loopOffIcon = style->icon(VxStyle::SP_VxLoopOff);
    m_playIcon = style->icon(VxStyle::SP_VxPlay);
    m_pauseIcon = style->icon(VxStyle::SP_VxPause);
    m_buttons.at(SkipToStart)->setIcon(style->icon(VxStyle::SP_VxSkipToStart));
    m_buttons.at(PreviousKey)->setIcon(style->icon(VxStyle::SP_VxPreviousKey));
    m_buttons.at(PreviousFrame)->setIcon(style->icon(VxStyle::SP_VxPreviousFrame));
    m_buttons.at(NextFrame)->setIcon(style->icon(VxStyle::SP_VxNextFrame));
    m_buttons.at(NextKey)->setIcon(style->icon(VxStyle::SP_VxNextKey));
    m_buttons.at(SkipToEnd)->setIcon(style->icon(VxStyle::SP_VxSkipToEnd));
    updatePlayIcon();
    updateLoopIcon(vxScene->isLoopingEnabled());
}

void TransportControls::updatePlayIcon()
{
    m_buttons.at(PlayPause)->setIcon(vxScene->isPlaying() ? m_pauseIcon : m_playIcon);
}

void TransportControls::updateLoopIcon(bool loops)
{
    m_buttons.at(Loop)->setIcon(loops ? m_loopOnIcon : m_loopOffIcon);
}

void TransportControls::skipToStart()
{
    skip([] { vxScene->setTime(vxScene->getPlayRange().getStart()); },
         VxTimePane::tr("Skip to Play Range Start"));
}

void TransportControls::skipToEnd()
{
    skip([] { vxScene->setTime(vxScene->getPlayRange().getEnd()); },
         VxTimePane::tr("Skip to Play Range End"));
}

// From outside of the play range a skip without a key may be a step in the other direction.
void TransportControls::skipToPreviousKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    const VxTime start = vxScene->getPlayRange().getStart();
    if (!nodes.isEmpty())
        skip([&] { vxScene->setTime(KeySkip::previousKeyTime(nodes, vxScene->getTime(), start)); },
             VxTimePane::tr("Skip to Previous Key"));
}

void TransportControls::skipToNextKey()
{
    const QVector<VxNode *> nodes = vxScene->getSelectedNodes();
    const VxTime end = vxScene->getPlayRange().getEnd();
    if (!nodes.isEmpty())
        skip([&] { vxScene->setTime(KeySkip::nextKeyTime(nodes, vxScene->getTime(), end)); },
             VxTimePane::tr("Skip to Next Key"));
}

void TransportControls::skipToPreviousFilteredKey(VxDopeSheetView *sheet)
{
    skip([sheet] { sheet->skipToPreviousKey(); }, VxTimePane::tr("Skip to Previous Filtered Key"));
}

void TransportControls::skipToNextFilteredKey(VxDopeSheetView *sheet)
{
    skip([sheet] { sheet->skipToNextKey(); }, VxTimePane::tr("Skip to Next Filtered Key"));
}
