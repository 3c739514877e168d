// The upper part of the pane: dope sheet, key graph and time range.

#include "vxtimeline/pane/timepanebuilder.h"

#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledwidget.h>

#include "vxtimeline/dopesheet/vxdopesheetfiltermodel.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepaneaxis.h"
#include "vxtimeline/pane/timepanegraphhint.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

namespace {

// The dope sheet is used more than the curves: it starts with the larger share.
constexpr double FirstDopeSheetShare = 0.69;

} // namespace

TimePaneBuilder::TimePaneBuilder(VxTimePane *pane)
    : m_pane(pane)
    , d(pane->d.get())
{
}

void TimePaneBuilder::buildTree()
{
    auto *layout = new QVBoxLayout(m_pane);
    const int margin = m_strip.margin();
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(0);
    buildHeader();
    buildNavColumn();
    buildDopeSheet();
    buildPlayhead();
    buildKeyGraph();
    buildDivider();
    buildTimeRange();
    buildMainControls();
    d->axis =
        new TimePaneAxis(m_pane, d->divider, d->dopeSheetView, d->keyGraphView, d->timeRangeSlider);
    layout->addWidget(d->divider, 1);
    layout->addWidget(d->timeRange);
    layout->addWidget(d->mainControls);
    m_pane->setBackgroundFooterGuide(d->timeRange);
}

void TimePaneBuilder::buildHeader()
{
    d->header = new VxDopeSheetHeaderView(m_pane);
    d->header->setObjectName(QStringLiteral("TimelineDopeSheetHeaderWgt"));
    d->header->setFixedHeight(vxApp->getStyle()->metric(VxStyle::PM_VxDopeSheetHeaderHeight));
}

// The column covers a header section that can be resized with the mouse at its edge: mouse events
// pass through it.
void TimePaneBuilder::buildNavColumn()
{
    d->navColumn = new VxStyledWidget(d->header);
    d->navColumn->setObjectName(QStringLiteral("TimelineDopeSheetHeaderNavColumnWgt"));
    d->navColumn->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *layout = new QHBoxLayout(d->navColumn);
    const int margin = m_strip.margin();
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(m_strip.makeLabel(QStringLiteral("TimelineDopeSheetHeaderNavColumnTitleLbl"),
                                        VxTimePane::tr("Name"), d->navColumn),
                      1);
}

void TimePaneBuilder::buildDopeSheet()
{
    d->dopeSheetView = new VxDopeSheetView(m_pane);
    d->dopeSheetView->setObjectName(QStringLiteral("TimelineDopeSheetTView"));
    // Without a frame the playhead has the coordinates of the rows and the ruler.
    d->dopeSheetView->setFrameShape(QFrame::NoFrame);
    d->dopeSheetView->setHeader(d->header);
    d->dopeSheetView->setKeyCommunication(d->keyCommunication);
    // Left, Right, Home and End step through time here, too; + and - open and close rows.
    d->dopeSheetView->setProperty("vxTimeAxis", true);

    // Rows report changes in the thousands; filtering them again each time would dominate the cost.
    // The pane filters again when the text or the rows change.
    d->filterModel = new VxDopeSheetFilterModel(m_pane);
    d->filterModel->setRecursiveFilteringEnabled(true);
    d->filterModel->setDynamicSortFilter(false);
    d->filterModel->setFilterCaseSensitivity(Qt::CaseInsensitive);
    d->dopeSheetView->setFilterModel(d->filterModel);
    d->search = new VxPaneSearch(m_pane);
}

void TimePaneBuilder::buildPlayhead()
{
    d->playhead = new VxPlayheadWgt(d->dopeSheetView);
    d->playhead->setObjectName(QStringLiteral("TimelinePlayheadWgt"));
    d->playhead->setHorizontalOffset(d->savedNameColumnWidth);
}

void TimePaneBuilder::buildKeyGraph()
{
    d->graphFrame = new QFrame(m_pane);
    d->graphFrame->setObjectName(QStringLiteral("TimelineGraphFrm"));
    d->graphFrame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto *layout = new QVBoxLayout(d->graphFrame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    d->keyGraph = new VxKeyGraph(m_pane);
    d->keyGraph->setKeyCommunication(d->keyCommunication);
    d->keyGraphView = new VxKeyGraphView(d->graphFrame);
    d->keyGraphView->setObjectName(QStringLiteral("TimelineKeyGraphView"));
    d->keyGraphView->setKeyGraph(d->keyGraph);
    layout->addWidget(d->keyGraphView);
    new TimePaneGraphHint(d->keyGraphView);
}

void TimePaneBuilder::buildDivider()
{
    d->divider = new VxDynamicDividerWgt(d->dopeSheetView, d->graphFrame, m_pane, Qt::Vertical,
                                         QStringLiteral("TimelineDopeSheetGraphDvdr"));
    d->divider->setRatio(FirstDopeSheetShare);
    d->divider->setMargin(0);
    d->divider->setSpacing(0);
}

void TimePaneBuilder::buildTimeRange()
{
    d->timeRange = m_strip.makeGroup(QStringLiteral("TimelineTimeRangeWgt"), m_pane);
    TimePaneStrip::layoutOf(d->timeRange)->setSpacing(0);
    d->timeRangeSlider = new VxTimeRangeSlider(d->timeRange);
    d->timeRangeSlider->setObjectName(QStringLiteral("TimelineTimeRangeSldr"));
    d->timeRangeSlider->setFixedHeight(m_strip.controlHeight());
    TimePaneStrip::layoutOf(d->timeRange)->addWidget(d->timeRangeSlider, 1);
}
