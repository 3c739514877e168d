#ifndef VXTIMEPANE_P_H
#define VXTIMEPANE_P_H

#include "vxtimeline/pane/timepaneaccessible.h"
#include "vxtimeline/pane/timepanechoices.h"
#include "vxtimeline/pane/timepanecontrols.h"
#include "vxtimeline/pane/timepanefilter.h"
#include "vxtimeline/pane/timepaneisolation.h"
#include "vxtimeline/pane/timepanekeys.h"
#include "vxtimeline/pane/timepanekeyselection.h"
#include "vxtimeline/pane/timepanelayout.h"
#include "vxtimeline/pane/timepanenodeselection.h"
#include "vxtimeline/pane/timepanerows.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/pane/vxtimepane.h"

/// The collaborators of the pane, each with its widgets and state. Those below use those above.
class VxTimePane::Private
{
public:
    explicit Private(VxTimePane *pane, const TimePaneStrip &strip = TimePaneStrip())
        : views(pane, strip)
        , controls(pane, strip, views.sheet())
        , layout(pane, views, controls, choices)
        , keys(pane, views.sheet(), controls, choices)
        , keySelection(views)
        , rows(pane, views, keys, keySelection)
        , nodes(pane, views.sheet(), rows)
        , filter(choices, controls, views.sheet(), rows, nodes)
        , isolation(pane, views)
        , accessible(views)
    {
    }

    TimePaneChoices choices;
    TimePaneViews views;
    TimePaneControls controls;
    TimePaneLayout layout;
    TimePaneKeys keys;
    TimePaneKeySelection keySelection;
    TimePaneRows rows;
    TimePaneNodeSelection nodes;
    TimePaneFilter filter;
    TimePaneIsolation isolation;
    TimePaneAccessible accessible;
};

#endif
