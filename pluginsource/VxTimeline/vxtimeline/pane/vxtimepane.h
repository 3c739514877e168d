#ifndef VXTIMEPANE_H
#define VXTIMEPANE_H

#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxpane.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxtime.h>

class QAction;
class QResizeEvent;
class QShowEvent;
class VxDopeSheetItem;
class VxDopeSheetView;
class VxNode;

/// The pane "Timeline": dope sheet, key graph, time range slider and a strip of controls.
///
/// The pane assembles collaborators (vxtimepane_p.h), each with its widgets and state, and is their
/// interface: its slots forward to them, and all signals are connected to its slots.
///
/// The order and argument names of signals and slots are seen by scripts: keep them.
class VxTimePane : public VxPane
{
    Q_OBJECT
public:
    /// With a fixed underlying type, so that an invalid number can be passed and refused.
    enum ControlsPosition : int { ControlsBottom = 0, ControlsTop = 1 };
    Q_ENUM(ControlsPosition)

    enum ViewMode : int { BasicView = 0, IntermediateView = 1, AdvancedView = 2 };
    Q_ENUM(ViewMode)

    enum PropertyType : int {
        PropNone = 0,
        PropTranslate = 0x1,
        PropRotate = 0x2,
        PropScale = 0x4,
        PropOther = 0x8,
        PropAlias = 0x10,
        PropHidden = 0x20
    };
    Q_ENUM(PropertyType)
    Q_DECLARE_FLAGS(PropertyTypes, PropertyType)
    Q_FLAG(PropertyTypes)

    enum KeyScope : int {
        ScopeObject = 0,
        ScopeNodeRecurse = 1,
        ScopeNode = 2,
        ScopeProperties = 3
    };
    Q_ENUM(KeyScope)

    VxTimePane();
    ~VxTimePane() override;

    /// Never null; owned by the pane.
    VxDopeSheetView *getDopeSheetView() const;

    /// Adds an action to the list whose check marks the pane maintains. Not owned; an action is
    /// removed when it is destroyed. Null and an action already in the list are ignored.
    void registerAction(QAction *action);
    QVector<QAction *> getRegisteredActions() const;

    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;
    /// Reloads the outdated time fields from the scene.
    void updateTimeFields() override;

Q_SIGNALS:
    void controlsPositionChanged(ControlsPosition position);
    void viewModeChanged(ViewMode mode);
    void monitorParametersPaneChanged(bool onOff);
    void playAllFramesChanged(bool onOff);
    void keyGraphOpenChanged(bool onOff);
    void dopesheetPropertyListChanged(QVector<VxProperty *> propList, bool add);
    void graphChannelListChanged(QVector<VxProperty *> propList);

public Q_SLOTS:
    void expandAll();
    void collapseAll();
    void buildOptionsMenu(VxActionMenu *menu) override;
    int getOptionsMenuVersion() const override;
    void setControlsPosition(ControlsPosition position);
    ControlsPosition getControlsPosition() const;
    void setViewMode(ViewMode viewMode);
    ViewMode getViewMode() const;
    void setMonitorParametersPane(bool yesNo);
    bool getMonitorParametersPane() const;
    void setPlayAllFrames(bool onOff);
    bool getPlayAllFrames() const;
    void setTotalFrames(int frames);
    int getTotalFrames() const;
    /// The key graph opens and closes in the advanced view only.
    void toggleKeyGraph() { setKeyGraphOpen(!getKeyGraphOpen()); }
    void setKeyGraphOpen(bool onOff);
    bool getKeyGraphOpen() const;
    void setPlayRangeStart(int frame);
    int getPlayRangeStart() const;
    void setPlayRangeEnd(int frame);
    int getPlayRangeEnd() const;
    void setCurrentFrame(int frame);
    int getCurrentFrame() const;
    void setFramesPerSecond(int fps);
    int getFramesPerSecond() const;
    void setFilteredPropertyTypes(PropertyTypes propTypes);
    PropertyTypes getFilteredPropertyTypes() const;
    void toggleLoop();
    void skipToPlayRangeStart();
    void skipToPreviousKey();
    void skipToPreviousFilteredKey();
    void skipToPreviousFrame();
    void togglePlayback();
    void skipToNextFrame();
    void skipToNextKey();
    void skipToNextFilteredKey();
    void skipToPlayRangeEnd();
    void deleteKeys();
    void deleteSelectedKeys();
    void createKeys();
    /// Below 1 asks the user for the number.
    void createFilteredKeys(int numKeys = 1);
    void setFilteredKeyCreationScope(KeyScope keyScope);
    KeyScope getFilteredKeyCreationScope() const;
    void copySelectedKeys();
    void pasteKeys();
    /// 0 Linear, 1 Constant, 2 TCB; anything else is refused with a warning.
    void setInterpType(int interpType);
    /// The five functions of the text filter have no effect: they are kept for existing scripts.
    void setFilterText(QString text) { Q_UNUSED(text) }
    QString getFilterText() const { return QString(); }
    int getNumFilteredMatches() const { return -1; }
    VxDopeSheetItem *searchDopesheetNext() { return nullptr; }
    VxDopeSheetItem *searchDopesheetPrevious() { return nullptr; }
    bool hasDopeSheetItemContext() const;
    bool hasDopeSheetItemSelection() const;
    bool hasSelectedKeys() const;
    bool hasCopiedKeys() const;
    void moveRootNodeToTop();
    void moveRootNodeUp();
    void moveRootNodeDown();
    void moveRootNodeToBottom();
    void refreshDopesheet();
    void frameKeyGraph(bool onlySelected = false);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void unregisterAction(QObject *action);
    void initModel();
    void uninitModel();
    void handleSceneLoadStarting();
    void handleSceneLoaded();
    void handleSceneClearStarting();
    void addDopesheetNode(VxNode *node, bool addChildren);
    void addDopesheetNode(VxNode *node) { addDopesheetNode(node, false); }
    void removeDopesheetNode(VxNode *node);
    void updateTimeStep(VxTime step);
    void handlePropertyTypesEdited();
    void updateKeyInterpType();
    void updateTCB();
    void updateControls();
    void updateSliders();
    void updateKeyGraph();
    void updateActionStates();
    void handleDopesheetFilterChanged(QString filter);
    void handleDopesheetFilterCleared() { handleDopesheetFilterChanged(QString()); }
    void handleDopesheetHeaderSectionResized();
    void handleDopesheetItemSelectionChanged() { updateActionStates(); }
    void handleDopesheetKeySelectionChanged();
    void handlePrimarySelectionChanged();
    void ensurePrimarySceneNodeVisible();
    void blockRefresh();
    void unblockRefresh();
    void handleTotalFramesChanged();
    void handlePlayRangeStartChanged();
    void handlePlayRangeEndChanged();
    void handleCurrentFrameChanged();
    void handleFramesPerSecondChanged();
    void handleLoopClicked() { toggleLoop(); }
    void handleSkipToPlayRangeStartClicked() { skipToPlayRangeStart(); }
    void handleSkipToPreviousKeyClicked() { skipToPreviousFilteredKey(); }
    void handleSkipToPreviousFrameClicked() { skipToPreviousFrame(); }
    void handlePlayPauseClicked() { togglePlayback(); }
    void handleSkipToNextFrameClicked() { skipToNextFrame(); }
    void handleSkipToNextKeyClicked() { skipToNextFilteredKey(); }
    void handleSkipToPlayRangeEndClicked() { skipToPlayRangeEnd(); }
    void handleDeleteKeysClicked() { deleteSelectedKeys(); }
    void handleCreateKeysClicked();
    void changeTime();
    void changeTimeStep();
    void updatePlayRange();
    void updateAnimationRange();
    void updateScenePlayRange();
    void updatePlayButton();
    void updateLoopButton(bool onOff);
    void handleKeyGraphOpenChanged();
    void doStyling();

private:
    /// Order matters for signals with several receivers.
    void connectScene();
    void connectViews();
    void connectControls();
    void registerChoices();
    void handleUndoIndexChanged();

    class Private;
    std::unique_ptr<Private> d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(VxTimePane::PropertyTypes)

#endif
