#ifndef TIMEPANEBUILDER_H
#define TIMEPANEBUILDER_H

#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane_p.h"

class TimePaneField;

// Builds the pane's widget tree and its connections, once, from the pane's constructor.
//
// Each group of widgets has a function of its own; the groups are built in the order in which
// they stand here, because later ones are put into earlier ones. Object names are what style
// sheets and scripts go by.
class TimePaneBuilder
{
public:
    explicit TimePaneBuilder(VxTimePane *pane);

    void buildTree();
    void buildMenus();
    void makeConnections();

private:
    void buildHeader();
    void buildNavColumn();
    void buildDopeSheet();
    void buildPlayhead();
    void buildKeyGraph();
    void buildDivider();
    void buildTimeRange();

    void buildMainControls();
    void orderTabs() const;

    void connectSceneTime();
    void connectSceneNodes();
    void connectKeysOfGraph();
    void connectDopeSheet();
    void connectSliders();
    void connectFields();
    void connectTransport();
    void connectKeyControls();

    void connectField(TimePaneField *field, void (VxTimePane::*slot)()) const;

    VxTimePane *m_pane;
    VxTimePane::Private *d;
    TimePaneStrip m_strip;
};

#endif
