#ifndef VXTIMEPANE_P_H
#define VXTIMEPANE_P_H

#include <QtCore/QAtomicInt>
#include <QtCore/QVector>
#include <QtGui/QIcon>
#include <functional>
#include <optional>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"

class QAbstractItemModel;
class QDoubleSpinBox;
class QFrame;
class TimePaneField;
class VxActionMenu;
class VxBarButton;
class VxButtonBar;
class VxDopeSheetFilterModel;
class VxDopeSheetHeaderView;
class VxDopeSheetModel;
class VxDynamicDividerWgt;
class VxFilterMenu;
class VxKeyCommunication;
class TimePaneKeySelection;
class VxKeyGraph;
class VxPaneSearch;
class VxPlayheadWgt;
class VxStyledButton;
class VxStyledWidget;
class VxTimeRangeSlider;

// All state of the pane. Widgets belong to the widget tree; the pointers are set once, by the
// builder, and are never null afterwards.
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
    QWidget *timeControls = nullptr;
    TimePaneField *totalFrames = nullptr;
    QWidget *rangeControls = nullptr;
    TimePaneField *playStart = nullptr;
    TimePaneField *playEnd = nullptr;
    TimePaneField *currentFrame = nullptr;
    TimePaneField *framesPerSecond = nullptr;
    QWidget *propertyTypes = nullptr;
    VxStyledButton *propertyTypesButton = nullptr;
    VxButtonBar *transportBar = nullptr;
    VxBarButton *loopButton = nullptr;
    VxBarButton *skipToStartButton = nullptr;
    VxBarButton *previousKeyButton = nullptr;
    VxBarButton *previousFrameButton = nullptr;
    VxBarButton *playPauseButton = nullptr;
    VxBarButton *nextFrameButton = nullptr;
    VxBarButton *nextKeyButton = nullptr;
    VxBarButton *skipToEndButton = nullptr;
    QWidget *keyControls = nullptr;
    VxButtonBar *addDeleteBar = nullptr;
    VxBarButton *deleteKeysButton = nullptr;
    VxBarButton *createKeysButton = nullptr;
    VxStyledButton *keyScopeButton = nullptr;
    VxButtonBar *copyPasteBar = nullptr;
    VxBarButton *copyButton = nullptr;
    VxBarButton *pasteButton = nullptr;
    QWidget *interpControls = nullptr;
    VxButtonBar *keyGraphBar = nullptr;
    VxBarButton *keyGraphButton = nullptr;
    VxStyledButton *interpTypeButton = nullptr;
    QDoubleSpinBox *tension = nullptr;
    QDoubleSpinBox *continuity = nullptr;
    QDoubleSpinBox *bias = nullptr;

    // What a field for one of these was last given, and the number that stands for.
    struct TcbField
    {
        QDoubleSpinBox *const &box;
        double shown = 0;
        float exact = 0;

        void show(std::optional<float> value);
        bool isEdited() const;
        // The number that the field stands for now.
        float entered();
    };
    TcbField tensionField = {tension};
    TcbField continuityField = {continuity};
    TcbField biasField = {bias};

    QIcon loopOnIcon;
    QIcon loopOffIcon;
    QIcon playIcon;
    QIcon pauseIcon;

    bool currentFrameDirty = true;
    bool framesPerSecondDirty = true;
    bool playRangeDirty = true;
    bool totalFramesDirty = true;

    ControlsPosition controlsPosition = ControlsBottom;
    ViewMode viewMode = AdvancedView;
    bool tcbFieldsUpdating = false;
    int savedNameColumnWidth = 250; // pixels
    bool keyGraphOpen = false;
    bool advancedExtrasShown = false;
    QVector<QAction *> actions;
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
    VxFilterMenu *filterMenu = nullptr;
    QVector<VxNode *> queuedNodes; // that came while a scene is being loaded

    // What the enabled states of the actions were last made for; not valid after one has come.
    bool actionStatesValid = false;
    bool actionsSawSelectedKeys = false;
    bool actionsSawCopiedKeys = false;

    // What was asked for last, for actions that come to be registered only afterwards.
    std::optional<PropertyTypes> wantedPropertyTypes;
    std::optional<KeyScope> wantedKeyScope;

    // The choice an action stands for when it is of that family and can carry a check mark.
    static const TimePaneChoice *choiceOf(const QAction *action, TimePaneChoice::Family family);
    // Gives an action its check mark without its telling anyone.
    static void setChecked(QAction *action, bool checked);
    // Checks those of a family whose value is the given one, and no other.
    void checkOnly(TimePaneChoice::Family family, int value) const;
    // The first action of a family that is checked; null when none is.
    QAction *checkedAction(TimePaneChoice::Family family) const;

    // Says in the window's status line why a command did nothing.
    void tell(const QString &text) const;
    void editSelectedKeys(const QString &text, const std::function<void()> &edit) const;
    void tellWhyNoKeys(VxDopeSheetView::EditableKeys keys) const;

    int nameColumnWidth() const;
    bool isAdvanced() const { return viewMode == AdvancedView; }
    // True when an event may be posted to the pane: somebody will see what it leads to.
    bool canPostEvents(const VxTimePane *pane) const;

    // The parts of showing a view mode.
    void limitHeight() const;
    void layoutDopeSheet();
    void layoutKeyGraph();
    void layoutControls();
    void setExtrasVisible(bool visible);
    // Shows or hides what needs room, by the pane's width.
    void checkWidth(const VxTimePane *pane, int width);
    // Puts range and controls into the pane's layout, above or below.
    void placeControls(VxTimePane *pane) const;
    // Gives view and header a model; null for none.
    void showModel(QAbstractItemModel *model) const;
    // Adds a node's rows; those above that are missing go where the scene has them.
    void addRows(VxNode *node, bool addChildren) const;
    // Puts the rows of a node and those above it that are there for the sake of others only to
    // their places.
    void placeRowsAbove(VxNode *node) const;
    // Lets an active text filter take up rows that came.
    void filterAnew() const;
    // Lets the header mark the keys of the primary selection's row, or of all rows.
    void followKeySource() const;
    // Lets what depends on the name column's width follow it.
    void followNameColumn() const;

    // The parts of styling.
    void styleDopeSheet() const;
    void styleIcons();
    void styleSizes() const;
    void styleInterpolation(const QPalette &palette) const;
};

#endif
