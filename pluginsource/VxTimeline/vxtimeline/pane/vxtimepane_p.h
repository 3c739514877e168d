#ifndef VXTIMEPANE_P_H
#define VXTIMEPANE_P_H

#include <QtCore/QAtomicInt>
#include <QtCore/QVector>
#include <functional>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepanechoices.h"
#include "vxtimeline/pane/vxtimepane.h"

class QAbstractItemModel;
class InterpControls;
class KeyControls;
class PropertyTypesControl;
class QFrame;
class TimeFields;
class TimePaneAxis;
class TransportControls;
class VxActionMenu;
class VxDopeSheetFilterModel;
class VxDopeSheetHeaderView;
class VxDopeSheetModel;
class VxDynamicDividerWgt;
class VxKeyCommunication;
class TimePaneKeySelection;
class VxKeyGraph;
class VxPaneSearch;
class VxPlayheadWgt;
class VxStyledWidget;
class VxTimeRangeSlider;

// The private record of the pane. Widgets belong to the widget tree; the pointers are set once, by
// the builder, and are never null afterwards.
class VxTimePane::Private
{
public:
    VxDopeSheetModel *dopeSheetModel = nullptr; // null before the first show; owned by the pane
    int sceneLoadDepth = 0;
    VxKeyCommunication *keyCommunication = nullptr;

    QWidget *mainControls = nullptr;
    VxDopeSheetView *dopeSheetView = nullptr;
    VxPlayheadWgt *playhead = nullptr;
    VxDynamicDividerWgt *divider = nullptr;
    VxKeyGraphView *keyGraphView = nullptr;
    VxTimeRangeSlider *timeRangeSlider = nullptr;
    TimePaneAxis *axis = nullptr;

    // The groups of the strip of controls, each with its widgets and state.
    TimeFields *fields = nullptr;
    std::unique_ptr<PropertyTypesControl> types;
    std::unique_ptr<TransportControls> transport;
    std::unique_ptr<KeyControls> keyControls;
    std::unique_ptr<InterpControls> interp;
    TimePaneChoices choices;

    ControlsPosition controlsPosition = ControlsBottom;
    ViewMode viewMode = AdvancedView;
    int savedNameColumnWidth = 250; // pixels
    bool keyGraphOpen = false;
    bool advancedExtrasShown = false;
    QAtomicInt refreshBlockCount = 0;
    bool selectionRefreshPending = true;
    bool selectionEventPosted = false;
    bool ensureVisiblePending = true;
    bool ensureVisiblePosted = false;

    VxDopeSheetHeaderView *header = nullptr;
    VxStyledWidget *navColumn = nullptr;
    VxDopeSheetFilterModel *filterModel = nullptr;
    VxPaneSearch *search = nullptr;
    VxKeyGraph *keyGraph = nullptr;
    TimePaneKeySelection *keySelection = nullptr;
    QFrame *graphFrame = nullptr;
    QWidget *timeRange = nullptr;
    QVector<VxNode *> queuedNodes; // added while a scene is being loaded

    // Marks fields as outdated and reloads them.
    void refreshFields(int parts) const;

    // Shows in the window's status line why a command did nothing.
    void tell(const QString &text) const;
    void editSelectedKeys(const QString &text, const std::function<void()> &edit) const;
    void tellWhyNoKeys(VxDopeSheetView::EditableKeys keys) const;

    int nameColumnWidth() const;
    bool isAdvanced() const { return viewMode == AdvancedView; }
    // False while the pane is hidden, refreshes are blocked or the application is closing.
    bool canPostEvents(const VxTimePane *pane) const;

    // The parts of showing a view mode.
    void limitHeight() const;
    void layoutDopeSheet();
    void layoutKeyGraph();
    void layoutControls();
    void setExtrasVisible(bool visible);
    // Shows or hides the extras by the pane's width.
    void checkWidth(const VxTimePane *pane, int width);
    // Inserts range and controls into the pane's layout, above or below.
    void placeControls(VxTimePane *pane) const;
    // Sets the model of view and header; null for none.
    void showModel(QAbstractItemModel *model) const;
    // Adds a node's rows, and missing ancestor rows at their places in the scene.
    void addRows(VxNode *node, bool addChildren) const;
    // Moves the rows of a node and of ancestors that are listed only for their descendants to their
    // places.
    void placeRowsAbove(VxNode *node) const;
    // Applies an active text filter to added rows.
    void filterAnew() const;
    // Makes the header mark the keys of the primary selection's row, or of all rows.
    void followKeySource() const;
    // Updates everything that depends on the name column's width.
    void followNameColumn() const;

    // The parts of styling.
    void styleDopeSheet() const;
    void styleSizes() const;
};

#endif
