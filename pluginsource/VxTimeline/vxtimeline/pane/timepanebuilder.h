#ifndef TIMEPANEBUILDER_H
#define TIMEPANEBUILDER_H

#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane_p.h"

class TimePaneField;

// Builds the pane's widget tree and its connections, once, from the pane's constructor.
//
// Each group of widgets has its own function; the groups are built in the order of declaration,
// because later ones are inserted into earlier ones. Style sheets and scripts refer to object
// names.
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
