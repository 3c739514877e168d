#ifndef TIMEPANECONTROLS_H
#define TIMEPANECONTROLS_H

#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/transportcontrols.h"

class QPalette;
class TimeFields;

/// The strip of controls: its groups, the order of their focus, and their sizes and visibility.
class TimePaneControls
{
public:
    /// The widgets belong to the pane. sheet: holds the selected keys; borrowed.
    TimePaneControls(QWidget *pane, const TimePaneStrip &strip, VxDopeSheetView *sheet);

    QWidget *widget() const { return m_widget; }
    TimeFields &fields() const { return *m_fields; }
    PropertyTypesControl &types() { return m_types; }
    TransportControls &transport() { return m_transport; }
    KeyControls &keys() { return m_keys; }
    InterpControls &interp() { return m_interp; }

    /// Shows the groups of a view mode, a number of VxTimePane::ViewMode.
    void showMode(int mode);
    /// Shows or hides what only a wide pane in the advanced view has space for.
    void setExtrasVisible(bool visible);
    /// Enables the controls by the selected and the copied keys.
    void setUsable(bool hasSelectedKeys, bool hasCopiedKeys);
    /// Reads icons and sizes from the style, and colours from a palette.
    void style(const QPalette &palette);

private:
    void orderTabs() const;

    QWidget *m_widget;
    TimeFields *m_fields;
    PropertyTypesControl m_types;
    TransportControls m_transport;
    KeyControls m_keys;
    InterpControls m_interp;
};

#endif
