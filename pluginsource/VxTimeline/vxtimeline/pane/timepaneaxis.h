#ifndef TIMEPANEAXIS_H
#define TIMEPANEAXIS_H

#include "vxtimeline/time/playrangeview.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <vxcore/vxtimeaxis.h>

class QWheelEvent;
class VxDopeSheetView;
class VxKeyGraphView;
class VxTimeRangeSlider;

/// The time axis of the pane: that of the dope sheet, which the key graph follows pixel by pixel.
///
/// It also handles navigation along the axis, alike in dope sheet, ruler, key graph and time range
/// slider: Shift with the wheel zooms about the mouse, a horizontal wheel, or the wheel with Shift
/// and Alt, shifts; with Ctrl both are fine. They change the play range without undo. Any other use
/// of the wheel is left to the widgets.
class TimePaneAxis : public VxTimeAxis
{
    Q_OBJECT
public:
    /// All borrowed; views: the widget that contains dope sheet and key graph.
    TimePaneAxis(QObject *pane, QWidget *views, VxDopeSheetView *sheet, VxKeyGraphView *graph,
                 VxTimeRangeSlider *slider);

    int xOf(VxTime time) const override;
    VxTime timeAt(int x) const override;
    VxTimeRange visible() const override;
    QWidget *overlayParent() const override;
    double valuePerPixel() const override;
    bool panValues(int steps) override;
    bool zoomValues(int steps) override;

    /// Aligns the key graph with the dope sheet and reports a change of the axis. Call it after a
    /// change of anything in State.
    void update();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// All inputs of the axis.
    struct State
    {
        TimelineMetrics metrics;
        int left = 0; // of the keys column, pixels
        int width = 0;
        VxTime playStart = 0;

        bool operator==(const State &other) const;
    };
    State currentState() const;
    int keysLeftIn(const QWidget *widget) const;
    bool handleWheel(const QWidget *widget, const QWheelEvent *event);
    double timeUnder(const QWidget *widget, double x) const;

    QWidget *m_views;
    VxDopeSheetView *m_sheet;
    VxKeyGraphView *m_graph;
    VxTimeRangeSlider *m_slider;
    State m_reported;
    PlayRangeView m_view;
};

#endif
