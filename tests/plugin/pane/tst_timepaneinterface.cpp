#include "testing/vxtestmain.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtCore/QMetaEnum>
#include <QtTest/QtTest>

// What scripts and connections by name use: enumerations, signals and slots with their order.
class TestTimePaneInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enumerations();
    void signalsAndSlotsInOrder();
    void privateSlotsAreCallable();
};

void TestTimePaneInterface::enumerations()
{
    const auto keys = [](const char *name) {
        const QMetaObject &meta = VxTimePane::staticMetaObject;
        const QMetaEnum metaEnum = meta.enumerator(meta.indexOfEnumerator(name));
        QStringList list;
        for (int i = 0; i < metaEnum.keyCount(); ++i)
            list +=
                QStringLiteral("%1=%2").arg(QLatin1String(metaEnum.key(i))).arg(metaEnum.value(i));
        return list.join(QLatin1Char(' '));
    };
    const QString types = QStringLiteral(
        "PropNone=0 PropTranslate=1 PropRotate=2 PropScale=4 PropOther=8 PropAlias=16 "
        "PropHidden=32");
    QCOMPARE(keys("ControlsPosition"), QStringLiteral("ControlsBottom=0 ControlsTop=1"));
    QCOMPARE(keys("ViewMode"), QStringLiteral("BasicView=0 IntermediateView=1 AdvancedView=2"));
    QCOMPARE(keys("PropertyType"), types);
    QCOMPARE(keys("PropertyTypes"), types);
    QCOMPARE(keys("KeyScope"),
             QStringLiteral("ScopeObject=0 ScopeNodeRecurse=1 ScopeNode=2 ScopeProperties=3"));
}

void TestTimePaneInterface::signalsAndSlotsInOrder()
{
    const QStringList expected = {
        "controlsPositionChanged(ControlsPosition) position",
        "viewModeChanged(ViewMode) mode",
        "monitorParametersPaneChanged(bool) onOff",
        "playAllFramesChanged(bool) onOff",
        "keyGraphOpenChanged(bool) onOff",
        "dopesheetPropertyListChanged(QVector<VxProperty*>,bool) propList,add",
        "graphChannelListChanged(QVector<VxProperty*>) propList",
        "expandAll() ",
        "collapseAll() ",
        "buildOptionsMenu(VxActionMenu*) menu",
        "getOptionsMenuVersion() ",
        "setControlsPosition(ControlsPosition) position",
        "getControlsPosition() ",
        "setViewMode(ViewMode) viewMode",
        "getViewMode() ",
        "setMonitorParametersPane(bool) yesNo",
        "getMonitorParametersPane() ",
        "setPlayAllFrames(bool) onOff",
        "getPlayAllFrames() ",
        "setTotalFrames(int) frames",
        "getTotalFrames() ",
        "toggleKeyGraph() ",
        "setKeyGraphOpen(bool) onOff",
        "getKeyGraphOpen() ",
        "setPlayRangeStart(int) frame",
        "getPlayRangeStart() ",
        "setPlayRangeEnd(int) frame",
        "getPlayRangeEnd() ",
        "setCurrentFrame(int) frame",
        "getCurrentFrame() ",
        "setFramesPerSecond(int) fps",
        "getFramesPerSecond() ",
        "setFilteredPropertyTypes(PropertyTypes) propTypes",
        "getFilteredPropertyTypes() ",
        "toggleLoop() ",
        "skipToPlayRangeStart() ",
        "skipToPreviousKey() ",
        "skipToPreviousFilteredKey() ",
        "skipToPreviousFrame() ",
        "togglePlayback() ",
        "skipToNextFrame() ",
        "skipToNextKey() ",
        "skipToNextFilteredKey() ",
        "skipToPlayRangeEnd() ",
        "deleteKeys() ",
        "deleteSelectedKeys() ",
        "createKeys() ",
        "createFilteredKeys(int) numKeys",
        "createFilteredKeys() ",
        "setFilteredKeyCreationScope(KeyScope) keyScope",
        "getFilteredKeyCreationScope() ",
        "copySelectedKeys() ",
        "pasteKeys() ",
        "setInterpType(int) interpType",
        "setFilterText(QString) text",
        "getFilterText() ",
        "getNumFilteredMatches() ",
        "searchDopesheetNext() ",
        "searchDopesheetPrevious() ",
        "hasDopeSheetItemContext() ",
        "hasDopeSheetItemSelection() ",
        "hasSelectedKeys() ",
        "hasCopiedKeys() ",
        "moveRootNodeToTop() ",
        "moveRootNodeUp() ",
        "moveRootNodeDown() ",
        "moveRootNodeToBottom() ",
        "refreshDopesheet() ",
        "frameKeyGraph(bool) onlySelected",
        "frameKeyGraph() ",
    };
    const QMetaObject &meta = VxTimePane::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.access() == QMetaMethod::Private)
            continue;
        found += QLatin1String(method.methodSignature()) + QLatin1Char(' ') +
                 QLatin1String(method.parameterNames().join(','));
    }
    QCOMPARE(found, expected);
}

void TestTimePaneInterface::privateSlotsAreCallable()
{
    for (const char *slot : {"unregisterAction(QObject*)",
                             "initModel()",
                             "uninitModel()",
                             "handleSceneLoadStarting()",
                             "handleSceneLoaded()",
                             "handleSceneClearStarting()",
                             "addDopesheetNode(VxNode*,bool)",
                             "addDopesheetNode(VxNode*)",
                             "removeDopesheetNode(VxNode*)",
                             "updateTimeStep(VxTime)",
                             "handlePropertyTypesEdited()",
                             "updateKeyInterpType()",
                             "updateTCB()",
                             "updateControls()",
                             "updateSliders()",
                             "updateKeyGraph()",
                             "updateActionStates()",
                             "handleDopesheetFilterChanged(QString)",
                             "handleDopesheetFilterCleared()",
                             "handleDopesheetHeaderSectionResized()",
                             "handleDopesheetItemSelectionChanged()",
                             "handleDopesheetKeySelectionChanged()",
                             "handlePrimarySelectionChanged()",
                             "ensurePrimarySceneNodeVisible()",
                             "blockRefresh()",
                             "unblockRefresh()",
                             "changeTime()",
                             "changeTimeStep()",
                             "updatePlayRange()",
                             "updateAnimationRange()",
                             "updateScenePlayRange()",
                             "updatePlayButton()",
                             "updateLoopButton(bool)",
                             "handleKeyGraphOpenChanged()",
                             "doStyling()",
                             "handleCreateKeysClicked()",
                             "handleDeleteKeysClicked()"}) {
        const int index = VxTimePane::staticMetaObject.indexOfSlot(slot);
        QVERIFY2(index >= 0, slot);
        QCOMPARE(VxTimePane::staticMetaObject.method(index).access(), QMetaMethod::Private);
    }
}

VX_TEST_GUILESS_MAIN(TestTimePaneInterface)
#include "tst_timepaneinterface.moc"
