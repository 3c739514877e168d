#include "testing/keytimes.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/keys/keycreation.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxskeleton.h>

class TestTimePaneKeys : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void createKeysOnEverything();
    void deleteKeysAtTheTime();
    void filteredProperties_data();
    void filteredProperties();
    void aliasesNeedTheirBits();
    void lockedAndStillPropertiesAreLeftOut();
    void controlsOfOthersNeedNoBit();
    void newKeysTakeInterpolationFromTheTime();
    void intKeys();
    void threeKeysOnThreeFrames();
    void moreKeysThanThereIsTime();
    void scopeNodeRecurse();
    void scopeObjectIncludesTheFigure();
    void scopeObjectOfABoneWithoutAFigure();
    void controlsWithoutAnAxisNeedNoType();
    void scopePropertiesWithoutRows();
    void noSelectionIsAnError();
    void ctrlClickAsksForTheNumber();
    void cancelledQuestionMakesNothing();
    void plainClickMakesOneKeySet();
    void invalidInterpolationIsRefused();
    void commandsWithoutKeysLeaveNoEntry();
    void tcbFieldsNeedSelectedKeys();

private:
    VxNode *addNode(const char *name, VxNode *parent = nullptr);
    void setTypes(int types) { pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(types)); }
};

void TestTimePaneKeys::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    vxScene->setTime(1600);
}

VxNode *TestTimePaneKeys::addNode(const char *name, VxNode *parent)
{
    auto *node = new VxNode(QString::fromLatin1(name));
    vxScene->addNode(node, parent);
    return node;
}

void TestTimePaneKeys::createKeysOnEverything()
{
    VxNode *node = addNode("a");
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *count = new VxIntProperty(QStringLiteral("count"), 3);
    object->addProperty(count, QStringLiteral("/General"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    node->setObject(object);
    VxNode *other = addNode("b");
    node->select(true);
    node->getXPosControl()->setStoredValue(7.0f);

    pane->createKeys();
    QCOMPARE(keyTimes(node->getXPosControl()), QVector<VxTime>({1600}));
    QCOMPARE(node->getXPosControl()->getKeyValue(0), 7.0f);
    QCOMPARE(keyTimes(node->getZScaleControl()), QVector<VxTime>({1600}));
    QCOMPARE(keyTimes(count), QVector<VxTime>({1600}));
    QCOMPARE(count->getKeyValue(0), 3);
    QCOMPARE(keyTimes(morph->getValueControl()), QVector<VxTime>({1600}));
    QCOMPARE(other->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(undoTexts(), QStringList("Create Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(morph->getValueControl()->getNumKeys(), 0);
}

void TestTimePaneKeys::deleteKeysAtTheTime()
{
    VxNode *node = addNode("a");
    node->select(true);
    for (const VxTime time : {1440, 1600, 1601})
        node->getXPosControl()->setKey(time, 1.0f, 0);
    pane->deleteKeys();
    QCOMPARE(keyTimes(node->getXPosControl()), QVector<VxTime>({1440, 1601}));
    QCOMPARE(undoTexts(), QStringList("Delete Keys"));
    pane->deleteKeys();
    QCOMPARE(undoTexts(), QStringList("Delete Keys"));
}

void TestTimePaneKeys::filteredProperties_data()
{
    QTest::addColumn<int>("types");
    QTest::addColumn<QString>("keyed");

    QTest::newRow("none: what is no control") << 0 << "own";
    QTest::newRow("other makes no difference") << 8 << "own";
    QTest::newRow("translation") << 1 << "position own";
    QTest::newRow("rotation") << 2 << "rotation own";
    QTest::newRow("scale") << 4 << "scale uniform own";
    QTest::newRow("hidden") << 32 << "own hidden shy";
    QTest::newRow("all") << 63 << "position rotation scale uniform own hidden shy";
}

void TestTimePaneKeys::filteredProperties()
{
    QFETCH(int, types);
    VxNode *node = addNode("a");
    auto *own = new VxFloatProperty(QStringLiteral("own"));
    auto *hidden = new VxFloatProperty(QStringLiteral("hidden"));
    auto *shy = new VxFloatProperty(QStringLiteral("shy"));
    for (VxFloatProperty *property : {own, hidden, shy})
        node->addProperty(property, QStringLiteral("/General"));
    hidden->setHidden(true);
    shy->setDynamicallyHidden(true);
    node->select(true);
    setTypes(types);
    pane->createFilteredKeys();

    const QVector<QPair<QString, const VxProperty *>> properties = {
        {"position", node->getYPosControl()},
        {"rotation", node->getZRotControl()},
        {"scale", node->getXScaleControl()},
        {"uniform", node->getScaleControl()},
        {"own", own},
        {"hidden", hidden},
        {"shy", shy}};
    QStringList keyed;
    for (const auto &entry : properties) {
        if (keyTimes(entry.second) == QVector<VxTime>({1600}))
            keyed += entry.first;
    }
    QTEST(keyed.join(QLatin1Char(' ')), "keyed");
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
}

void TestTimePaneKeys::aliasesNeedTheirBits()
{
    VxNode *node = addNode("a");
    auto *target = new VxFloatProperty(QStringLiteral("target"));
    auto *alias = new VxFloatProperty(QStringLiteral("alias"));
    node->addProperty(target, QStringLiteral("/General"));
    node->addProperty(alias, QStringLiteral("/General"));
    QVERIFY(alias->setAliasedProperty(target));
    QVERIFY(!KeyCreation::isKeyable(alias, node, VxTimePane::PropNone));
    QVERIFY(KeyCreation::isKeyable(alias, node, VxTimePane::PropAlias));
    target->setHidden(true);
    QVERIFY(!KeyCreation::isKeyable(alias, node, VxTimePane::PropAlias));
    QVERIFY(!KeyCreation::isKeyable(alias, node, VxTimePane::PropHidden));
    QVERIFY(KeyCreation::isKeyable(alias, node, VxTimePane::PropAlias | VxTimePane::PropHidden));
}

void TestTimePaneKeys::lockedAndStillPropertiesAreLeftOut()
{
    VxNode *node = addNode("a");
    VxFloatProperty *property = node->getXPosControl();
    QVERIFY(KeyCreation::isKeyable(property, node, 63));
    property->setLocked(true);
    QVERIFY(!KeyCreation::isKeyable(property, node, 63));
    property->setLocked(false);
    property->setAnimatable(false);
    QVERIFY(!KeyCreation::isKeyable(property, node, 63));
}

// A control that acts on no axis is no part of a transform, and a control only of its own node.
void TestTimePaneKeys::controlsOfOthersNeedNoBit()
{
    VxNode *node = addNode("a");
    const VxNode *other = addNode("b");
    VxFloatProperty *property = node->getXPosControl();
    QVERIFY(!KeyCreation::isKeyable(property, node, VxTimePane::PropNone));
    QVERIFY(KeyCreation::isKeyable(property, other, VxTimePane::PropNone));
    property->setAxis(VxFloatProperty::NoAxis);
    QVERIFY(KeyCreation::isKeyable(property, node, VxTimePane::PropNone));
}

void TestTimePaneKeys::newKeysTakeInterpolationFromTheTime()
{
    VxNode *node = addNode("a");
    VxFloatProperty *property = node->getXPosControl();
    property->setKey(0, 5.0f, 1);
    property->setKey(1600, 2.0f, 2, 0.5f, -0.25f, 1.0f);
    KeyCreation::setKeysFrom(property, 1600, {1760});
    float tension = 0.0f;
    float continuity = 0.0f;
    float bias = 0.0f;
    QCOMPARE(property->getKeyInterpolationType(2, &tension, &continuity, &bias), 2);
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, -0.25f, 1.0f}));
    QCOMPARE(property->getKeyValue(2), 2.0f);
    // No key at the source: as the one before the target.
    KeyCreation::setKeysFrom(property, 800, {800});
    QCOMPARE(property->getKeyInterpolationType(1), 1);
    QCOMPARE(property->getKeyValue(1), 5.0f);
}

void TestTimePaneKeys::intKeys()
{
    VxNode *node = addNode("a");
    auto *count = new VxIntProperty(QStringLiteral("count"), 4);
    node->addProperty(count, QStringLiteral("/General"));
    node->select(true);
    pane->createFilteredKeys(2);
    QCOMPARE(keyTimes(count), QVector<VxTime>({1600, 1760}));
    QCOMPARE(count->getKeyValue(1), 4);
}

void TestTimePaneKeys::threeKeysOnThreeFrames()
{
    VxNode *node = addNode("a");
    VxNode *child = addNode("child", node);
    node->select(true);
    setTypes(VxTimePane::PropTranslate);
    VxFloatProperty *property = node->getXPosControl();
    property->setKey(0, 0.0f, 0);
    property->setKey(3200, 10.0f, 0);
    pane->createFilteredKeys(3);
    QCOMPARE(keyTimes(property), QVector<VxTime>({0, 1600, 1760, 1920, 3200}));
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(property->getKeyValue(i), 5.0f);
    QCOMPARE(child->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(property), QVector<VxTime>({0, 3200}));
}

void TestTimePaneKeys::moreKeysThanThereIsTime()
{
    VxNode *node = addNode("a");
    node->select(true);
    setTypes(VxTimePane::PropTranslate);
    vxScene->setTime(VxTimeMax - 400);
    pane->createFilteredKeys(2000000000);
    QCOMPARE(keyTimes(node->getXPosControl()),
             QVector<VxTime>({VxTimeMax - 400, VxTimeMax - 240, VxTimeMax - 80}));
}

void TestTimePaneKeys::scopeNodeRecurse()
{
    VxNode *node = addNode("a");
    VxNode *child = addNode("child", node);
    VxNode *grandChild = addNode("grand child", child);
    child->select(true);
    setTypes(VxTimePane::PropTranslate);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    pane->createFilteredKeys();
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(child->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(grandChild->getXPosControl()->getNumKeys(), 1);
}

void TestTimePaneKeys::scopeObjectIncludesTheFigure()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *thigh = new VxBone(QStringLiteral("thigh"));
    figure->addNodeChild(hip);
    hip->addNodeChild(thigh);
    vxScene->addNode(figure);
    VxNode *camera = addNode("camera");
    VxNode *lens = addNode("lens", camera);
    setTypes(VxTimePane::PropTranslate);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    hip->select(true);
    pane->createFilteredKeys();
    for (const VxNode *node :
         {static_cast<VxNode *>(figure), static_cast<VxNode *>(hip), static_cast<VxNode *>(thigh)})
        QCOMPARE(node->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(camera->getXPosControl()->getNumKeys(), 0);

    camera->select(true);
    pane->createFilteredKeys();
    QCOMPARE(camera->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(lens->getXPosControl()->getNumKeys(), 0);
}

void TestTimePaneKeys::scopeObjectOfABoneWithoutAFigure()
{
    auto *bone = new VxBone(QStringLiteral("stick"));
    auto *below = new VxBone(QStringLiteral("twig"));
    bone->addNodeChild(below);
    vxScene->addNode(bone);
    setTypes(VxTimePane::PropTranslate);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    bone->select(true);
    pane->createFilteredKeys();
    QCOMPARE(bone->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(below->getXPosControl()->getNumKeys(), 0);
}

void TestTimePaneKeys::controlsWithoutAnAxisNeedNoType()
{
    VxNode *node = addNode("a");
    node->getXPosControl()->setAxis(VxFloatProperty::NoAxis);
    node->select(true);
    setTypes(VxTimePane::PropRotate);
    pane->createFilteredKeys();
    QCOMPARE(node->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(node->getYPosControl()->getNumKeys(), 0);
}

void TestTimePaneKeys::scopePropertiesWithoutRows()
{
    VxNode *node = addNode("a");
    node->select(true);
    setTypes(63);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    pane->createFilteredKeys(3);
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeys::noSelectionIsAnError()
{
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QTimer::singleShot(0, this, [&title, &text, &buttons] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        title = box->windowTitle();
        text = box->text();
        buttons = box->standardButtons();
        box->accept();
    });
    pane->createFilteredKeys();
    QCOMPARE(title, QStringLiteral("Selection Error"));
    QCOMPARE(text, QStringLiteral("A node in the scene must be selected to continue."));
    QCOMPARE(buttons, QMessageBox::Ok);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeys::ctrlClickAsksForTheNumber()
{
    VxNode *node = addNode("a");
    node->select(true);
    setTypes(VxTimePane::PropTranslate);
    showPane();
    QString shown;
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&shown, &answer] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        answer.stop();
        shown = QStringLiteral("%1|%2|%3|%4|%5|%6")
                    .arg(dialog->windowTitle(), dialog->labelText())
                    .arg(dialog->intValue())
                    .arg(dialog->intMinimum())
                    .arg(dialog->intMaximum())
                    .arg(dialog->intStep());
        dialog->setIntValue(4);
        dialog->accept();
    });
    answer.start(10);
    auto *button = find<QWidget>("TimelineCreateKeysBtn");
    VxMouseDriver(button).click(button->rect().center(), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(shown, QStringLiteral("Create # Keys|Number of keys:|1|1|100000|1"));
    QCOMPARE(keyTimes(node->getXPosControl()), QVector<VxTime>({1600, 1760, 1920, 2080}));
}

void TestTimePaneKeys::cancelledQuestionMakesNothing()
{
    VxNode *node = addNode("a");
    node->select(true);
    setTypes(VxTimePane::PropTranslate);
    QTimer::singleShot(0, this, [] {
        if (auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    pane->createFilteredKeys(0);
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeys::plainClickMakesOneKeySet()
{
    VxNode *node = addNode("a");
    node->select(true);
    setTypes(VxTimePane::PropTranslate);
    showPane();
    auto *button = find<QWidget>("TimelineCreateKeysBtn");
    VxMouseDriver(button).click(button->rect().center());
    QCOMPARE(keyTimes(node->getXPosControl()), QVector<VxTime>({1600}));
    QCOMPARE(node->getXRotControl()->getNumKeys(), 0);
}

void TestTimePaneKeys::invalidInterpolationIsRefused()
{
    for (const int type : {3, -1}) {
        guard->expect(QRegularExpression(
            QStringLiteral("timepanekeys\\.cpp\\(\\d+\\): Invalid value passed to "
                           "VxTimePane::setInterpType\\(\\)$")));
        pane->setInterpType(type);
    }
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeys::commandsWithoutKeysLeaveNoEntry()
{
    showPane();
    addNode("a")->select(true);
    pane->deleteSelectedKeys();
    pane->copySelectedKeys();
    pane->pasteKeys();
    for (const int type : {0, 1, 2})
        pane->setInterpType(type);
    QCOMPARE(undoTexts(), QStringList());
    QVERIFY(!pane->hasSelectedKeys());
    QVERIFY(!pane->hasCopiedKeys());
}

void TestTimePaneKeys::tcbFieldsNeedSelectedKeys()
{
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "updateKeyInterpType"));
    for (const char *name :
         {"TimelineInterpTensionSBox", "TimelineInterpContinuitySBox", "TimelineInterpBiasSBox"})
        QVERIFY(!find<QDoubleSpinBox>(name)->isEnabled());
}

VX_TEST_MAIN(TestTimePaneKeys)
#include "tst_vxtimepanekeys.moc"
