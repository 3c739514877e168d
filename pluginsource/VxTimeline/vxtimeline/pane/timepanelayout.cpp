// View modes, the position of the controls, and opening and closing the key graph.

#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>
#include <vxcore/vxstyledwidget.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepaneaxis.h"
#include "vxtimeline/pane/transportcontrols.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

namespace {

constexpr int MostViewportHeight = 10000; // pixels
// Extra width beyond the minimum that is required to keep the extras; pixels.
constexpr int ExtrasReserve = 5;

// The last measured width of a pane with all extras. One per process, because a pane with hidden
// extras cannot measure it.
int &widthWithExtras()
{
    static int width = 0;
    return width;
}

int leastWidth(const QWidget *widget)
{
    return qMax(widget->minimumWidth(), widget->minimumSizeHint().width());
}

} // namespace

VxTimePane::ViewMode VxTimePane::getViewMode() const
{
    return d->viewMode;
}

void VxTimePane::setViewMode(ViewMode viewMode)
{
    if (viewMode == d->viewMode)
        return;
    if (viewMode < BasicView || viewMode > AdvancedView) {
        vxWarning(VX_HERE, QStringLiteral("Invalid value passed to VxTimePane::setViewMode()"));
        return;
    }
    d->choices.checkOnly(TimePaneChoice::ViewModeFamily, viewMode);
    if (d->isAdvanced() && d->nameColumnWidth() > 0)
        d->savedNameColumnWidth = d->nameColumnWidth();
    d->viewMode = viewMode;
    d->layoutDopeSheet();
    d->layoutKeyGraph();
    d->layoutControls();
    d->dopeSheetView->doItemsLayout();
    // A visible pane must not force its window wider before the width check. One that was never
    // shown has no width yet.
    if (testAttribute(Qt::WA_WState_Created))
        d->checkWidth(this, width());
    if (d->isAdvanced())
        updateKeyGraph();
    else if (getFilteredKeyCreationScope() == ScopeProperties)
        setFilteredKeyCreationScope(ScopeNode);
    Q_EMIT viewModeChanged(viewMode);
}

int VxTimePane::Private::nameColumnWidth() const
{
    return dopeSheetView->columnWidth(VxDopeSheetView::NameColumn);
}

// Without rows the pane only needs the height of its ruler and strips of controls.
void VxTimePane::Private::limitHeight() const
{
    const int ruler = header->height() + 2 * dopeSheetView->frameWidth();
    dopeSheetView->setMaximumHeight(isAdvanced() ? QWIDGETSIZE_MAX : ruler);
    divider->parentWidget()->setSizePolicy(
        QSizePolicy::Preferred, isAdvanced() ? QSizePolicy::Preferred : QSizePolicy::Maximum);
}

// Only the advanced view shows names and rows; the others show just the ruler.
void VxTimePane::Private::layoutDopeSheet()
{
    limitHeight();
    search->setAvailable(isAdvanced());
    dopeSheetView->setColumnWidth(VxDopeSheetView::NameColumn,
                                  isAdvanced() ? savedNameColumnWidth : 0);
    dopeSheetView->viewport()->setMaximumHeight(isAdvanced() ? MostViewportHeight : 0);
    dopeSheetView->setVerticalScrollBarPolicy(isAdvanced() ? Qt::ScrollBarAsNeeded
                                                           : Qt::ScrollBarAlwaysOff);
}

void VxTimePane::Private::layoutKeyGraph()
{
    const bool open = isAdvanced() && keyGraphOpen;
    if (open)
        keyGraphView->doUpdate();
    divider->setSecondWidgetHidden(!open);
    divider->setBarHidden(!open);
    keyControls->graphButton()->setChecked(open);
}

void VxTimePane::Private::layoutControls()
{
    const bool basic = viewMode == BasicView;
    timeRangeSlider->setVisible(!basic);
    fields->group()->setVisible(!basic);
    keyControls->group()->setVisible(!basic);
    transport->setStepsVisible(!basic);
    if (!basic)
        keyControls->setAdvancedBarsVisible(isAdvanced());
    // The extras reappear together; the width check decides whether they stay.
    if (isAdvanced()) {
        setExtrasVisible(true);
        return;
    }
    types->group()->hide();
    interp->group()->hide();
    interp->typeButton()->hide();
}

void VxTimePane::Private::setExtrasVisible(bool visible)
{
    advancedExtrasShown = visible;
    for (QWidget *extra : std::initializer_list<QWidget *>{fields->rangeGroup(), types->group(),
                                                           keyControls->scopeButton(),
                                                           interp->group(), interp->typeButton()})
        extra->setVisible(visible);
    // Immediately, because the pane's minimum width may be needed before the next event.
    for (QWidget *group : {fields->group(), keyControls->group(), mainControls})
        group->updateGeometry();
}

// A hysteresis of one pixel on either side avoids toggling at the threshold.
void VxTimePane::Private::checkWidth(const VxTimePane *pane, int width)
{
    if (!isAdvanced())
        return;
    if (advancedExtrasShown)
        widthWithExtras() = leastWidth(pane) + ExtrasReserve;
    const int bound = advancedExtrasShown ? widthWithExtras() - 1 : widthWithExtras() + 1;
    const bool fits = width > bound;
    if (fits != advancedExtrasShown)
        setExtrasVisible(fits);
}

VxTimePane::ControlsPosition VxTimePane::getControlsPosition() const
{
    return d->controlsPosition;
}

void VxTimePane::setControlsPosition(ControlsPosition position)
{
    if (position == d->controlsPosition)
        return;
    if (position != ControlsBottom && position != ControlsTop) {
        vxWarning(VX_HERE,
                  QStringLiteral("Invalid value passed to VxTimePane::setControlsPosition()"));
        return;
    }
    d->choices.checkOnly(TimePaneChoice::ControlsPositionFamily, position);
    d->controlsPosition = position;
    d->placeControls(this);
    Q_EMIT controlsPositionChanged(position);
}

void VxTimePane::Private::placeControls(VxTimePane *pane) const
{
    const int margin = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    auto *box = qobject_cast<QBoxLayout *>(pane->layout());
    pane->setBackgroundHeaderGuide(nullptr);
    pane->setBackgroundFooterGuide(nullptr);
    box->removeWidget(timeRange);
    box->removeWidget(mainControls);
    if (controlsPosition == ControlsBottom) {
        mainControls->layout()->setContentsMargins(margin, margin, margin, 0);
        box->addWidget(timeRange);
        box->addWidget(mainControls);
        pane->setBackgroundFooterGuide(timeRange);
    } else {
        // No left margin on top: the strip begins flush with the ruler below it.
        mainControls->layout()->setContentsMargins(0, margin, margin, margin);
        box->insertWidget(0, timeRange);
        box->insertWidget(0, mainControls);
        pane->setBackgroundHeaderGuide(timeRange);
    }
}

bool VxTimePane::getKeyGraphOpen() const
{
    return d->keyGraphOpen;
}

void VxTimePane::setKeyGraphOpen(bool onOff)
{
    if (!d->isAdvanced() || onOff == d->keyGraphOpen)
        return;
    d->keyGraphOpen = onOff;
    Q_EMIT keyGraphOpenChanged(onOff);
}

void VxTimePane::toggleKeyGraph()
{
    setKeyGraphOpen(!d->keyGraphOpen);
}

void VxTimePane::handleKeyGraphOpenChanged()
{
    if (d->isAdvanced())
        d->layoutKeyGraph();
}

void VxTimePane::updateKeyGraph()
{
    d->keyGraphView->doUpdate();
}

void VxTimePane::frameKeyGraph(bool onlySelected)
{
    d->keyGraphView->frameKeys(onlySelected);
}

void VxTimePane::Private::followNameColumn() const
{
    const int width = nameColumnWidth();
    navColumn->setGeometry(0, 0, width, header->height());
    navColumn->setVisible(width > 0);
    keyGraphView->setLeftBackgroundWidth(width);
    axis->update();
}

void VxTimePane::handleDopesheetHeaderSectionResized()
{
    d->followNameColumn();
    updateControls();
}
