#include "vxtimeline/pane/timepaneviews.h"

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepaneaccessible.h"
#include "vxtimeline/pane/timepaneaxis.h"
#include "vxtimeline/pane/timepanegraphhint.h"
#include "vxtimeline/pane/timepanekeycursor.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtCore/QItemSelectionModel>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxkeycursor.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledwidget.h>

namespace {

// The dope sheet is used more than the curves: it starts with the larger share.
constexpr double FirstDopeSheetShare = 0.69;
// A name column narrower than this counts as missing; pixels.
constexpr int MinNameColumnWidth = 25;
constexpr int MaxViewportHeight = 10000; // pixels

} // namespace

TimePaneViews::TimePaneViews(VxPane *pane, const TimePaneStrip &strip)
    : m_pane(pane)
    , m_bus(new VxKeyCommunication(pane))
{
    TimePaneAccessible::install();
    buildHeader(strip);
    buildDopeSheet();
    m_playhead = new VxPlayheadWgt(m_sheet);
    m_playhead->setObjectName(QStringLiteral("TimelinePlayheadWgt"));
    m_playhead->setHorizontalOffset(m_savedNameColumnWidth);
    buildKeyGraph();
    buildTimeRange(strip);
    m_axis = new TimePaneAxis(pane, m_divider, m_sheet, m_graphView, m_slider);
    m_keyCursor = new TimePaneKeyCursor(*this);
    QObject::connect(new VxKeyCursor(pane), &VxKeyCursor::beginRequested, m_keyCursor,
                     &TimePaneKeyCursor::begin);
}

TimePaneViews::~TimePaneViews()
{
    delete m_keyCursor;
    delete m_axis;
    delete m_divider;
}

// The name column covers a header section that can be resized with the mouse at its edge: mouse
// events pass through it.
void TimePaneViews::buildHeader(const TimePaneStrip &strip)
{
    m_header = new VxDopeSheetHeaderView(m_pane);
    m_header->setObjectName(QStringLiteral("TimelineDopeSheetHeaderWgt"));
    m_header->setFixedHeight(vxApp->getStyle()->metric(VxStyle::PM_VxDopeSheetHeaderHeight));
    m_navColumn = new VxStyledWidget(m_header);
    m_navColumn->setObjectName(QStringLiteral("TimelineDopeSheetHeaderNavColumnWgt"));
    m_navColumn->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *layout = new QHBoxLayout(m_navColumn);
    const int margin = strip.margin();
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(strip.makeLabel(QStringLiteral("TimelineDopeSheetHeaderNavColumnTitleLbl"),
                                      VxTimePane::tr("Name"), m_navColumn),
                      1);
}

void TimePaneViews::buildDopeSheet()
{
    m_sheet = new VxDopeSheetView(m_pane);
    m_sheet->setObjectName(QStringLiteral("TimelineDopeSheetTView"));
    m_sheet->setAccessibleName(VxTimePane::tr("Dope Sheet"));
    // Without a frame the playhead has the coordinates of the rows and the ruler.
    m_sheet->setFrameShape(QFrame::NoFrame);
    m_sheet->setHeader(m_header);
    m_sheet->setKeyCommunication(m_bus);
    // Left, Right, Home and End step through time here, too; + and - open and close rows.
    m_sheet->setProperty("vxTimeAxis", true);

    // Rows report changes in the thousands; filtering them again each time would dominate the cost.
    // The pane filters again when the text or the rows change.
    m_filterModel = new VxDopeSheetFilterModel(m_pane);
    m_filterModel->setRecursiveFilteringEnabled(true);
    m_filterModel->setDynamicSortFilter(false);
    m_filterModel->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_sheet->setFilterModel(m_filterModel);
    m_search = new VxPaneSearch(m_pane);
}

void TimePaneViews::buildKeyGraph()
{
    auto *frame = new QFrame(m_pane);
    frame->setObjectName(QStringLiteral("TimelineGraphFrm"));
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_graph = new VxKeyGraph(m_pane);
    m_graph->setKeyCommunication(m_bus);
    m_graphView = new VxKeyGraphView(frame);
    m_graphView->setObjectName(QStringLiteral("TimelineKeyGraphView"));
    m_graphView->setAccessibleName(VxTimePane::tr("Key Graph"));
    m_graphView->setKeyGraph(m_graph);
    layout->addWidget(m_graphView);
    new TimePaneGraphHint(m_graphView);

    m_divider = new VxDynamicDividerWgt(m_sheet, frame, m_pane, Qt::Vertical,
                                        QStringLiteral("TimelineDopeSheetGraphDvdr"));
    m_divider->setRatio(FirstDopeSheetShare);
    m_divider->setMargin(0);
    m_divider->setSpacing(0);
}

void TimePaneViews::buildTimeRange(const TimePaneStrip &strip)
{
    m_timeRange = strip.makeGroup(QStringLiteral("TimelineTimeRangeWgt"), m_pane);
    TimePaneStrip::layoutOf(m_timeRange)->setSpacing(0);
    m_slider = new VxTimeRangeSlider(m_timeRange);
    m_slider->setObjectName(QStringLiteral("TimelineTimeRangeSldr"));
    m_slider->setFixedHeight(strip.controlHeight());
    TimePaneStrip::layoutOf(m_timeRange)->addWidget(m_slider, 1);
}

void TimePaneViews::update()
{
    updateSliders();
    m_graphView->doUpdate();
    m_sheet->doUpdate();
}

void TimePaneViews::updateSliders()
{
    const bool fits = TimelineMetrics::shared().fit(m_sheet->getKeysWidth(),
                                                    vxScene->getPlayRange().getDuration());
    m_axis->update();
    if (!fits)
        return;
    m_playhead->setHorizontalOffset(nameColumnWidth());
    m_slider->update();
}

void TimePaneViews::setTimeStep(int step)
{
    TimelineMetrics::shared().fps = VxTicksPerSecond / qMax(step, 1);
    update();
    m_pane->update();
}

void TimePaneViews::applySlider() const
{
    const QAbstractSlider *control = m_slider->getScrollBar();
    const VxTime step = vxScene->getTimeStep();
    const VxTime start = TimelineSnap::timeOf(control->value(), step);
    const qint64 length = TimelineSnap::timeOf(control->maximum(), step);
    vxScene->setPlayRange(VxTimeRange(start, TimelineSnap::limited(start + length)));
}

// Views do not delete their former selection models, nor does a header delete its own when it is
// given the view's.
void TimePaneViews::setModel(QAbstractItemModel *model)
{
    if (!model && nameColumnWidth() > MinNameColumnWidth)
        m_savedNameColumnWidth = nameColumnWidth();
    m_sheet->setModel(model);
    m_header->setModel(model);
    for (const QItemSelectionModel *selection : m_sheet->findChildren<QItemSelectionModel *>()) {
        if (selection != m_sheet->selectionModel() && selection != m_header->selectionModel())
            delete selection;
    }
}

int TimePaneViews::nameColumnWidth() const
{
    return m_sheet->columnWidth(VxDopeSheetView::NameColumn);
}

void TimePaneViews::widenNameColumn() const
{
    if (m_rowsVisible && nameColumnWidth() < MinNameColumnWidth)
        m_sheet->setColumnWidth(VxDopeSheetView::NameColumn, m_savedNameColumnWidth);
}

void TimePaneViews::setRowsVisible(bool visible)
{
    if (m_rowsVisible && nameColumnWidth() > 0)
        m_savedNameColumnWidth = nameColumnWidth();
    m_rowsVisible = visible;
    layoutRows();
}

// Without rows the pane only needs the height of its ruler and strips of controls.
void TimePaneViews::limitHeight() const
{
    const int ruler = m_header->height() + 2 * m_sheet->frameWidth();
    m_sheet->setMaximumHeight(m_rowsVisible ? QWIDGETSIZE_MAX : ruler);
    m_pane->setSizePolicy(QSizePolicy::Preferred,
                          m_rowsVisible ? QSizePolicy::Preferred : QSizePolicy::Maximum);
}

void TimePaneViews::layoutRows() const
{
    limitHeight();
    m_search->setAvailable(m_rowsVisible);
    m_sheet->setColumnWidth(VxDopeSheetView::NameColumn,
                            m_rowsVisible ? m_savedNameColumnWidth : 0);
    m_sheet->viewport()->setMaximumHeight(m_rowsVisible ? MaxViewportHeight : 0);
    m_sheet->setVerticalScrollBarPolicy(m_rowsVisible ? Qt::ScrollBarAsNeeded
                                                      : Qt::ScrollBarAlwaysOff);
}

void TimePaneViews::followNameColumn() const
{
    const int width = nameColumnWidth();
    m_navColumn->setGeometry(0, 0, width, m_header->height());
    m_navColumn->setVisible(width > 0);
    m_graphView->setLeftBackgroundWidth(width);
    m_axis->update();
}

bool TimePaneViews::setMonitorsParametersPane(bool monitors)
{
    if (monitors == m_sheet->getMonitorParametersPane())
        return false;
    m_sheet->setMonitorParametersPane(monitors);
    m_graph->setMonitorParametersPane(monitors);
    return true;
}

void TimePaneViews::setGraphVisible(bool visible) const
{
    if (visible)
        m_graphView->doUpdate();
    m_divider->setSecondWidgetHidden(!visible);
    m_divider->setBarHidden(!visible);
}

// The playhead's lower edge is at the end of the ruler, plus the style's inset.
void TimePaneViews::style()
{
    const VxStyle *style = vxApp->getStyle();
    TimelineMetrics &metrics = TimelineMetrics::shared();
    metrics.frameWidth = style->metric(VxStyle::PM_VxTimelineFrameWidth);
    metrics.keyMargin = style->metric(VxStyle::PM_VxTimelineKeyMargin);

    const int rulerHeight = style->metric(VxStyle::PM_VxDopeSheetHeaderHeight);
    m_header->setFixedHeight(rulerHeight);
    limitHeight();
    const int bottom = rulerHeight - 1 + style->metric(VxStyle::PM_VxPlayheadInset);
    m_playhead->setVerticalOffset(bottom - m_playhead->height());
    followNameColumn();
    m_slider->setFixedHeight(style->metric(VxStyle::PM_VxControlHeight));
    update();
    m_graphView->doStyling();
}
