#ifndef TIMEPANEBUILDER_H
#define TIMEPANEBUILDER_H

#include "vxtimeline/pane/vxtimepane_p.h"

class QHBoxLayout;
class QLabel;

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
    QWidget *buildTimeControls(QWidget *parent);
    QWidget *buildRangeControls(QWidget *parent);
    QWidget *buildPropertyTypes(QWidget *parent);
    QWidget *buildTransport(QWidget *parent);
    QWidget *buildKeyControls(QWidget *parent);
    VxButtonBar *buildKeyGraphBar(QWidget *parent);
    VxButtonBar *buildAddDeleteBar(QWidget *parent);
    VxButtonBar *buildCopyPasteBar(QWidget *parent);
    QWidget *buildInterpControls(QWidget *parent);
    void orderTabs() const;

    void buildPropertyTypesMenu();
    void buildKeyScopeMenu();
    void buildInterpMenu();

    void connectSceneTime();
    void connectSceneNodes();
    void connectKeysOfGraph();
    void connectDopeSheet();
    void connectSliders();
    void connectFields();
    void connectTransport();
    void connectKeyControls();

    // A widget with a horizontal layout without margins, as all groups of the strip are.
    QWidget *makeGroup(const QString &name, QWidget *parent) const;
    QHBoxLayout *groupLayout(const QWidget *group) const;
    QLabel *makeLabel(const QString &name, const QString &text, QWidget *parent) const;
    // A control with its label before it, which gives it its name for screen readers.
    void addLabelled(QHBoxLayout *layout, const QString &name, const QString &text,
                     QWidget *control) const;
    VxBarButton *addBarButton(VxButtonBar *bar, int index, const QString &name,
                              const QString &toolTip) const;
    VxStyledButton *makeMenuButton(const QString &name, QWidget *parent) const;
    QDoubleSpinBox *makeTcbField(const QString &name, QWidget *parent) const;
    void connectField(TimePaneField *field, void (VxTimePane::*slot)()) const;

    VxTimePane *m_pane;
    VxTimePane::Private *d;
    int m_margin;        // pixels, between and around controls
    int m_controlHeight; // pixels
};

#endif
