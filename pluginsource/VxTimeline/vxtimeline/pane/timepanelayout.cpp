#include "vxtimeline/pane/timepanelayout.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timepanechoices.h"
#include "vxtimeline/pane/timepanecontrols.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxstyle.h>

namespace {

// Extra width beyond the minimum that is required to keep the extras; pixels.
constexpr int ExtrasReserve = 5;

// The last measured width of a pane with all extras. One per process, because a pane with hidden
// extras cannot measure it.
int widthWithExtras = 0;

int leastWidth(const QWidget *widget)
{
    return qMax(widget->minimumWidth(), widget->minimumSizeHint().width());
}

} // namespace

TimePaneLayout::TimePaneLayout(VxTimePane *pane, TimePaneViews &views, TimePaneControls &controls,
                               TimePaneChoices &choices)
    : m_pane(pane)
    , m_views(views)
    , m_controls(controls)
    , m_choices(choices)
{
    const int margin = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    auto *box = new QVBoxLayout(pane);
    box->setContentsMargins(margin, margin, margin, margin);
    box->setSpacing(0);
    box->addWidget(views.divider(), 1);
    placeControls();
    controls.setExtrasVisible(false);
}

void TimePaneLayout::setViewMode(VxTimePane::ViewMode mode)
{
    if (mode == m_viewMode)
        return;
    if (mode < VxTimePane::BasicView || mode > VxTimePane::AdvancedView) {
        vxWarning(VX_HERE, QStringLiteral("Invalid value passed to VxTimePane::setViewMode()"));
        return;
    }
    m_choices.checkOnly(TimePaneChoice::ViewModeFamily, mode);
    m_viewMode = mode;
    m_views.setRowsVisible(isAdvanced());
    showGraph();
    m_views.slider()->setVisible(mode != VxTimePane::BasicView);
    m_controls.showMode(mode);
    if (isAdvanced())
        m_extrasShown = true;
    m_views.sheet()->doItemsLayout();
    // A visible pane must not force its window wider before the width check. One that was never
    // shown has no width yet.
    if (m_pane->testAttribute(Qt::WA_WState_Created))
        checkWidth(m_pane->width());
    if (isAdvanced())
        m_views.graphView()->doUpdate();
    else if (m_pane->getFilteredKeyCreationScope() == VxTimePane::ScopeProperties)
        m_pane->setFilteredKeyCreationScope(VxTimePane::ScopeNode);
    Q_EMIT m_pane->viewModeChanged(mode);
}

void TimePaneLayout::setGraphOpen(bool open)
{
    if (!isAdvanced() || open == m_isGraphOpen)
        return;
    m_isGraphOpen = open;
    Q_EMIT m_pane->keyGraphOpenChanged(open);
}

void TimePaneLayout::showGraph()
{
    const bool open = isAdvanced() && m_isGraphOpen;
    m_views.setGraphVisible(open);
    m_controls.keys().graphButton()->setChecked(open);
}

// A hysteresis of one pixel on either side avoids toggling at the threshold.
void TimePaneLayout::checkWidth(int width)
{
    if (!isAdvanced())
        return;
    if (m_extrasShown)
        widthWithExtras = leastWidth(m_pane) + ExtrasReserve;
    const int bound = m_extrasShown ? widthWithExtras - 1 : widthWithExtras + 1;
    const bool fits = width > bound;
    if (fits == m_extrasShown)
        return;
    m_extrasShown = fits;
    m_controls.setExtrasVisible(fits);
}

void TimePaneLayout::setControlsPosition(VxTimePane::ControlsPosition position)
{
    if (position == m_position)
        return;
    if (position != VxTimePane::ControlsBottom && position != VxTimePane::ControlsTop) {
        vxWarning(VX_HERE,
                  QStringLiteral("Invalid value passed to VxTimePane::setControlsPosition()"));
        return;
    }
    m_choices.checkOnly(TimePaneChoice::ControlsPositionFamily, position);
    m_position = position;
    placeControls();
    Q_EMIT m_pane->controlsPositionChanged(position);
}

void TimePaneLayout::restoreMark(QAction *action) const
{
    if (const auto *mode = TimePaneChoices::choiceOf(action, TimePaneChoice::ViewModeFamily))
        TimePaneChoices::setChecked(action, mode->value() == m_viewMode);
    if (const auto *place =
            TimePaneChoices::choiceOf(action, TimePaneChoice::ControlsPositionFamily))
        TimePaneChoices::setChecked(action, place->value() == m_position);
}

void TimePaneLayout::placeControls()
{
    const int margin = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    auto *box = qobject_cast<QBoxLayout *>(m_pane->layout());
    QWidget *range = m_views.timeRange();
    QWidget *controls = m_controls.widget();
    m_pane->setBackgroundHeaderGuide(nullptr);
    m_pane->setBackgroundFooterGuide(nullptr);
    box->removeWidget(range);
    box->removeWidget(controls);
    if (m_position == VxTimePane::ControlsBottom) {
        controls->layout()->setContentsMargins(margin, margin, margin, 0);
        box->addWidget(range);
        box->addWidget(controls);
        m_pane->setBackgroundFooterGuide(range);
    } else {
        // No left margin on top: the strip begins flush with the ruler below it.
        controls->layout()->setContentsMargins(0, margin, margin, margin);
        box->insertWidget(0, range);
        box->insertWidget(0, controls);
        m_pane->setBackgroundHeaderGuide(range);
    }
}
