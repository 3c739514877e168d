#ifndef TIMEPANELAYOUT_H
#define TIMEPANELAYOUT_H

#include "vxtimeline/pane/vxtimepane.h"

class TimePaneChoices;
class TimePaneControls;
class TimePaneViews;

/// What the pane shows and where: its view mode, the position of the controls, the open key graph,
/// and the extras of a wide pane.
class TimePaneLayout
{
public:
    /// All borrowed. Inserts the parts into the pane.
    TimePaneLayout(VxTimePane *pane, TimePaneViews &views, TimePaneControls &controls,
                   TimePaneChoices &choices);

    VxTimePane::ViewMode viewMode() const { return m_viewMode; }
    bool isAdvanced() const { return m_viewMode == VxTimePane::AdvancedView; }
    VxTimePane::ControlsPosition controlsPosition() const { return m_position; }
    bool isGraphOpen() const { return m_isGraphOpen; }
    /// These have the effects of the pane's slots, its signals included.
    void setViewMode(VxTimePane::ViewMode mode);
    void setControlsPosition(VxTimePane::ControlsPosition position);
    void setGraphOpen(bool open);
    /// Sets the check mark of a newly registered action of a position or mode.
    void restoreMark(QAction *action) const;
    /// Shows or hides the key graph.
    void showGraph();
    /// Shows or hides the extras by the pane's width, in pixels.
    void checkWidth(int width);

private:
    void placeControls();

    VxTimePane *m_pane;
    TimePaneViews &m_views;
    TimePaneControls &m_controls;
    TimePaneChoices &m_choices;
    VxTimePane::ControlsPosition m_position = VxTimePane::ControlsBottom;
    VxTimePane::ViewMode m_viewMode = VxTimePane::AdvancedView;
    bool m_isGraphOpen = true;
    bool m_extrasShown = false;
};

#endif
