#include "testing/vxtestmain.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QMetaEnum>
#include <QMetaMethod>
#include <QtTest>

namespace {

// What scripts and script tooling see of the pane, and what is reached by name: written down apart
// from the class, so that a renamed argument or a slot that changed its place shows.
const QStringList signalsOfThePane = {
    "void controlsPositionChanged(ControlsPosition position)",
    "void viewModeChanged(ViewMode mode)",
    "void monitorParametersPaneChanged(bool onOff)",
    "void playAllFramesChanged(bool onOff)",
    "void keyGraphOpenChanged(bool onOff)",
    "void dopesheetPropertyListChanged(QVector<VxProperty*> propList, bool add)",
    "void graphChannelListChanged(QVector<VxProperty*> propList)",
};

const QStringList publicSlots = {
    "void expandAll()",
    "void collapseAll()",
    "void buildOptionsMenu(VxActionMenu* menu)",
    "int getOptionsMenuVersion()",
    "void setControlsPosition(ControlsPosition position)",
    "ControlsPosition getControlsPosition()",
    "void setViewMode(ViewMode viewMode)",
    "ViewMode getViewMode()",
    "void setMonitorParametersPane(bool yesNo)",
    "bool getMonitorParametersPane()",
    "void setPlayAllFrames(bool onOff)",
    "bool getPlayAllFrames()",
    "void setTotalFrames(int frames)",
    "int getTotalFrames()",
    "void toggleKeyGraph()",
    "void setKeyGraphOpen(bool onOff)",
    "bool getKeyGraphOpen()",
    "void setPlayRangeStart(int frame)",
    "int getPlayRangeStart()",
    "void setPlayRangeEnd(int frame)",
    "int getPlayRangeEnd()",
    "void setCurrentFrame(int frame)",
    "int getCurrentFrame()",
    "void setFramesPerSecond(int fps)",
    "int getFramesPerSecond()",
    "void setFilteredPropertyTypes(PropertyTypes propTypes)",
    "PropertyTypes getFilteredPropertyTypes()",
    "void toggleLoop()",
    "void skipToPlayRangeStart()",
    "void skipToPreviousKey()",
    "void skipToPreviousFilteredKey()",
    "void skipToPreviousFrame()",
    "void togglePlayback()",
    "void skipToNextFrame()",
    "void skipToNextKey()",
    "void skipToNextFilteredKey()",
    "void skipToPlayRangeEnd()",
    "void deleteKeys()",
    "void deleteSelectedKeys()",
    "void createKeys()",
    "void createFilteredKeys(int numKeys)",
    "void createFilteredKeys()",
    "void setFilteredKeyCreationScope(KeyScope keyScope)",
    "KeyScope getFilteredKeyCreationScope()",
    "void copySelectedKeys()",
    "void pasteKeys()",
    "void setInterpType(int interpType)",
    "void setFilterText(QString text)",
    "QString getFilterText()",
    "int getNumFilteredMatches()",
    "VxDopeSheetItem* searchDopesheetNext()",
    "VxDopeSheetItem* searchDopesheetPrevious()",
    "bool hasDopeSheetItemContext()",
    "bool hasDopeSheetItemSelection()",
    "bool hasSelectedKeys()",
    "bool hasCopiedKeys()",
    "void moveRootNodeToTop()",
    "void moveRootNodeUp()",
    "void moveRootNodeDown()",
    "void moveRootNodeToBottom()",
    "void refreshDopesheet()",
    "void frameKeyGraph(bool onlySelected)",
    "void frameKeyGraph()",
};

const QStringList privateSlots = {
    "void unregisterAction(QObject* action)",
    "void initModel()",
    "void uninitModel()",
    "void handleSceneLoadStarting()",
    "void handleSceneLoaded()",
    "void handleSceneClearStarting()",
    "void addDopesheetNode(VxNode* node, bool addChildren)",
    "void addDopesheetNode(VxNode* node)",
    "void removeDopesheetNode(VxNode* node)",
    "void updateTimeStep(VxTime step)",
    "void handlePropertyTypesEdited()",
    "void updateKeyInterpType()",
    "void updateTCB()",
    "void updateControls()",
    "void updateSliders()",
    "void updateKeyGraph()",
    "void updateActionStates()",
    "void handleDopesheetFilterChanged(QString filter)",
    "void handleDopesheetFilterCleared()",
    "void handleDopesheetHeaderSectionResized()",
    "void handleDopesheetItemSelectionChanged()",
    "void handleDopesheetKeySelectionChanged()",
    "void handlePrimarySelectionChanged()",
    "void ensurePrimarySceneNodeVisible()",
    "void blockRefresh()",
    "void unblockRefresh()",
    "void handleTotalFramesChanged()",
    "void handlePlayRangeStartChanged()",
    "void handlePlayRangeEndChanged()",
    "void handleCurrentFrameChanged()",
    "void handleFramesPerSecondChanged()",
    "void handleLoopClicked()",
    "void handleSkipToPlayRangeStartClicked()",
    "void handleSkipToPreviousKeyClicked()",
    "void handleSkipToPreviousFrameClicked()",
    "void handlePlayPauseClicked()",
    "void handleSkipToNextFrameClicked()",
    "void handleSkipToNextKeyClicked()",
    "void handleSkipToPlayRangeEndClicked()",
    "void handleDeleteKeysClicked()",
    "void handleCreateKeysClicked()",
    "void changeTime()",
    "void changeTimeStep()",
    "void updatePlayRange()",
    "void updateAnimationRange()",
    "void updateScenePlayRange()",
    "void updatePlayButton()",
    "void updateLoopButton(bool onOff)",
    "void handleKeyGraphOpenChanged()",
    "void doStyling()",
};

QString describe(const QMetaMethod &method)
{
    QStringList arguments;
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    for (int i = 0; i < types.size(); ++i)
        arguments += QString::fromLatin1(types.at(i) + ' ' + names.at(i));
    return QStringLiteral("%1 %2(%3)")
        .arg(QString::fromLatin1(method.typeName()), QString::fromLatin1(method.name()),
             arguments.join(QStringLiteral(", ")));
}

// The class's own methods of a kind, in order.
QStringList methods(QMetaMethod::MethodType type, QMetaMethod::Access access)
{
    QStringList found;
    const QMetaObject &meta = VxTimePane::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == type && method.access() == access)
            found += describe(method);
    }
    return found;
}

} // namespace

/// The pane's face towards scripts.
class TestVxTimePaneMeta : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void signalsInOrder();
    void publicSlotsInOrder();
    void privateSlotsInOrder();
    void nothingElse();
    void enumerations();
};

void TestVxTimePaneMeta::signalsInOrder()
{
    QCOMPARE(methods(QMetaMethod::Signal, QMetaMethod::Public), signalsOfThePane);
}

void TestVxTimePaneMeta::publicSlotsInOrder()
{
    QCOMPARE(methods(QMetaMethod::Slot, QMetaMethod::Public), publicSlots);
}

void TestVxTimePaneMeta::privateSlotsInOrder()
{
    QCOMPARE(methods(QMetaMethod::Slot, QMetaMethod::Private), privateSlots);
}

void TestVxTimePaneMeta::nothingElse()
{
    const QMetaObject &meta = VxTimePane::staticMetaObject;
    QCOMPARE(QString(meta.className()), QString("VxTimePane"));
    QCOMPARE(QString(meta.superClass()->className()), QString("VxPane"));
    QCOMPARE(meta.methodCount() - meta.methodOffset(),
             signalsOfThePane.size() + publicSlots.size() + privateSlots.size());
    QCOMPARE(meta.propertyCount(), meta.superClass()->propertyCount());
    QCOMPARE(meta.constructorCount(), 0);
}

void TestVxTimePaneMeta::enumerations()
{
    QStringList found;
    const QMetaObject &meta = VxTimePane::staticMetaObject;
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i) {
        const QMetaEnum each = meta.enumerator(i);
        QStringList keys;
        for (int k = 0; k < each.keyCount(); ++k)
            keys += QStringLiteral("%1=%2").arg(QLatin1String(each.key(k))).arg(each.value(k));
        found +=
            QStringLiteral("%1%2: %3")
                .arg(QLatin1String(each.name()), QLatin1String(each.isFlag() ? " (flags)" : ""),
                     keys.join(QLatin1Char(' ')));
    }
    found.sort();
    const QString types = "PropNone=0 PropTranslate=1 PropRotate=2 PropScale=4 PropOther=8 "
                          "PropAlias=16 PropHidden=32";
    QCOMPARE(found, QStringList({"ControlsPosition: ControlsBottom=0 ControlsTop=1",
                                 "KeyScope: ScopeObject=0 ScopeNodeRecurse=1 ScopeNode=2 "
                                 "ScopeProperties=3",
                                 "PropertyType: " + types, "PropertyTypes (flags): " + types,
                                 "ViewMode: BasicView=0 IntermediateView=1 AdvancedView=2"}));
}

VX_TEST_APPLESS_MAIN(TestVxTimePaneMeta)
#include "tst_vxtimepanemeta.moc"
