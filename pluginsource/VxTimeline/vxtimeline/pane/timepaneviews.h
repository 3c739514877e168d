#ifndef TIMEPANEVIEWS_H
#define TIMEPANEVIEWS_H

class QAbstractItemModel;
class QWidget;
class TimePaneAxis;
class TimePaneKeyCursor;
class TimePaneStrip;
class VxDopeSheetFilterModel;
class VxDopeSheetHeaderView;
class VxDopeSheetView;
class VxDynamicDividerWgt;
class VxKeyCommunication;
class VxKeyGraph;
class VxKeyGraphView;
class VxPane;
class VxPaneSearch;
class VxPlayheadWgt;
class VxStyledWidget;
class VxTimeRangeSlider;

/// The upper part of the pane: dope sheet with ruler and playhead, key graph behind a divider, and
/// the time range slider, all on one time axis. Style sheets and scripts refer to object names.
class TimePaneViews
{
public:
    /// The widgets belong to the pane; dope sheet and key graph are deleted with this object, as
    /// they use models and message bus to the end.
    TimePaneViews(VxPane *pane, const TimePaneStrip &strip);
    ~TimePaneViews();
    TimePaneViews(const TimePaneViews &) = delete;
    TimePaneViews &operator=(const TimePaneViews &) = delete;

    /// None of these is ever null.
    VxKeyCommunication *bus() const { return m_bus; }
    VxDopeSheetHeaderView *header() const { return m_header; }
    VxDopeSheetView *sheet() const { return m_sheet; }
    VxDopeSheetFilterModel *filterModel() const { return m_filterModel; }
    VxPaneSearch *search() const { return m_search; }
    VxPlayheadWgt *playhead() const { return m_playhead; }
    VxKeyGraph *graph() const { return m_graph; }
    VxKeyGraphView *graphView() const { return m_graphView; }
    VxDynamicDividerWgt *divider() const { return m_divider; }
    QWidget *timeRange() const { return m_timeRange; }
    VxTimeRangeSlider *slider() const { return m_slider; }

    /// Repaints everything after a change of the time axis.
    void update();
    void updateSliders();
    /// Takes over the scene's time step, in ticks.
    void setTimeStep(int step);
    /// Sets the scene's play range from the slider.
    void applySlider() const;
    /// Sets the model of view and header; null for none: then the name column's width is saved.
    void setModel(QAbstractItemModel *model);

    /// Shows names and rows, or the ruler alone; the name column's width is saved in between.
    void setRowsVisible(bool visible);
    /// Applies the visibility of rows and the saved width of the name column.
    void layoutRows() const;
    /// Restores a missing name column.
    void widenNameColumn() const;
    /// Updates everything that depends on the name column's width.
    void followNameColumn() const;
    void setGraphVisible(bool visible) const;
    /// Of dope sheet and key graph. False when nothing changed.
    bool setMonitorsParametersPane(bool monitors);
    /// Reads sizes and colours from the style.
    void style();

private:
    void buildHeader(const TimePaneStrip &strip);
    void buildDopeSheet();
    void buildKeyGraph();
    void buildTimeRange(const TimePaneStrip &strip);
    int nameColumnWidth() const;
    void limitHeight() const;

    VxPane *m_pane;
    VxKeyCommunication *m_bus;
    VxDopeSheetHeaderView *m_header = nullptr;
    VxStyledWidget *m_navColumn = nullptr;
    VxDopeSheetView *m_sheet = nullptr;
    VxDopeSheetFilterModel *m_filterModel = nullptr;
    VxPaneSearch *m_search = nullptr;
    VxPlayheadWgt *m_playhead = nullptr;
    VxKeyGraph *m_graph = nullptr;
    VxKeyGraphView *m_graphView = nullptr;
    VxDynamicDividerWgt *m_divider = nullptr;
    QWidget *m_timeRange = nullptr;
    VxTimeRangeSlider *m_slider = nullptr;
    TimePaneAxis *m_axis = nullptr;
    TimePaneKeyCursor *m_keyCursor = nullptr;
    int m_savedNameColumnWidth = 250; // pixels
    bool m_rowsVisible = true;
};

#endif
