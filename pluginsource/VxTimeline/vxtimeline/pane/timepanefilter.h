#ifndef TIMEPANEFILTER_H
#define TIMEPANEFILTER_H

#include "vxtimeline/pane/vxtimepane.h"

class TimePaneChoices;
class TimePaneControls;
class TimePaneNodeSelection;
class TimePaneRows;

/// The property types with rows, and the scope of key creation. The check marks of the registered
/// actions are their state.
class TimePaneFilter
{
public:
    /// All borrowed.
    TimePaneFilter(TimePaneChoices &choices, TimePaneControls &controls, VxDopeSheetView *sheet,
                   TimePaneRows &rows, TimePaneNodeSelection &nodes);

    void setTypes(VxTimePane::PropertyTypes types);
    VxTimePane::PropertyTypes types() const;
    /// Makes the rows anew after the check marks of types have changed.
    void applyTypes();
    /// Outside the advanced view the node is the scope instead of its properties.
    void setScope(VxTimePane::KeyScope scope, bool isAdvanced);
    VxTimePane::KeyScope scope() const;
    /// Sets the check mark of a newly registered action of a type or scope.
    void restoreMark(QAction *action);

private:
    TimePaneChoices &m_choices;
    TimePaneControls &m_controls;
    VxDopeSheetView *m_sheet;
    TimePaneRows &m_rows;
    TimePaneNodeSelection &m_nodes;
};

#endif
