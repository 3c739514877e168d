// Sizes and icons from the style.

#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/transportcontrols.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

namespace {

constexpr int BarButtonWidth = 32; // pixels
constexpr int FieldWidth = 40;     // pixels

// The width of a menu button that shows the given text whole.
int menuButtonWidth(const VxStyledButton *button, const QString &text)
{
    const VxStyle *style = vxApp->getStyle();
    return button->fontMetrics().horizontalAdvance(text) +
           style->metric(VxStyle::PM_VxButtonInset) + 3 * style->metric(VxStyle::PM_VxButtonMargin);
}

} // namespace

void VxTimePane::doStyling()
{
    d->styleDopeSheet();
    d->transport->updateIcons();
    d->keyControls->updateIcons();
    d->styleSizes();
    d->interp->updateIcon(palette());
    updateControls();
    d->keyGraphView->doStyling();
}

// The playhead's lower edge is at the end of the ruler, plus the style's inset.
void VxTimePane::Private::styleDopeSheet() const
{
    const VxStyle *style = vxApp->getStyle();
    TimelineMetrics &metrics = TimelineMetrics::shared();
    metrics.frameWidth = style->metric(VxStyle::PM_VxTimelineFrameWidth);
    metrics.keyMargin = style->metric(VxStyle::PM_VxTimelineKeyMargin);

    const int rulerHeight = style->metric(VxStyle::PM_VxDopeSheetHeaderHeight);
    header->setFixedHeight(rulerHeight);
    limitHeight();
    const int bottom = rulerHeight - 1 + style->metric(VxStyle::PM_VxPlayheadInset);
    playhead->setVerticalOffset(bottom - playhead->height());
    followNameColumn();
}

void VxTimePane::Private::styleSizes() const
{
    const VxStyle *style = vxApp->getStyle();
    const int height = style->metric(VxStyle::PM_VxControlHeight);
    const int iconSize = style->metric(VxStyle::PM_VxBarIconSize);
    timeRangeSlider->setFixedHeight(height);
    types->button()->setFixedSize(menuButtonWidth(types->button(), QStringLiteral("TRSOAH")),
                                  height);
    VxStyledButton *scope = keyControls->scopeButton();
    scope->setFixedSize(menuButtonWidth(scope, VxTimePane::tr("Node Recursive")), height);
    for (VxBarButton *button : transport->buttons() + keyControls->barButtons()) {
        button->setMaximumSize(BarButtonWidth, height);
        button->setIconSize(QSize(iconSize, iconSize));
    }
    interp->tcb().setSizes(FieldWidth, height);
    fields->setLimits(FieldWidth, height);
}
