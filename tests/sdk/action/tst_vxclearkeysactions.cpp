#include "action/vxclearkeystargets.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxclearkeysactions.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

namespace {

using Nodes = VxClearKeysAction::Nodes;
using Properties = VxClearKeysAction::Properties;

enum class Which { Figure, FigurePose, FigureShape, Selected, SelectedPose, SelectedShape };

std::unique_ptr<VxAction> makeAction(Which which)
{
    switch (which) {
    case Which::Figure:
        return std::make_unique<VxClearKeysFigureAction>();
    case Which::FigurePose:
        return std::make_unique<VxClearKeysFigurePoseAction>();
    case Which::FigureShape:
        return std::make_unique<VxClearKeysFigureShapeAction>();
    case Which::Selected:
        return std::make_unique<VxClearKeysSelectedItemsAction>();
    case Which::SelectedPose:
        return std::make_unique<VxClearKeysPoseAction>();
    case Which::SelectedShape:
        return std::make_unique<VxClearKeysShapeAction>();
    }
    return nullptr;
}

/** Two keys, at frames 0 and 10. */
VxFloatProperty *keyed(VxFloatProperty *property)
{
    property->setKey(0, 1.0f, 0);
    property->setKey(1600, 2.0f, 0);
    return property;
}

} // namespace

Q_DECLARE_METATYPE(Which)

/// The scene: a figure "hip" with bones "chest" and "hand", a prop parented to the hand, a second
/// figure "coat" parented to the chest, and a light that belongs to no figure. Each node has keys
/// on X translation and on a property of its own; the hip has a morph with keys besides.
class tst_VxClearKeysActions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void texts_data();
    void texts();
    void clears_data();
    void clears();
    void undoRestoresEverything();
    void withoutKeysThereIsNoEntry();
    void withoutSelectionNothingHappens();
    void lockedPropertiesKeepTheirKeys();
    void keysOfOtherHoldersAreLeftAlone();
    void eachPropertyReportsOnce();
    void figureNodesAreVisitedOnce();

private:
    VxNode *add(VxNode *node, VxNode *parent);
    QString keyedNow() const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    VxNode *m_hip = nullptr;
    VxNode *m_chest = nullptr;
    VxNode *m_hand = nullptr;
    VxNode *m_prop = nullptr;
    VxNode *m_coat = nullptr;
    VxNode *m_light = nullptr;
    VxFloatProperty *m_morph = nullptr;
};

VxNode *tst_VxClearKeysActions::add(VxNode *node, VxNode *parent)
{
    auto *own = new VxFloatProperty(QStringLiteral("own"));
    node->addProperty(own, QStringLiteral("/General"));
    m_app->getScene()->addNode(node, parent);
    keyed(own);
    keyed(node->getXPosControl());
    return node;
}

void tst_VxClearKeysActions::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_hip = add(new VxSkeleton(QStringLiteral("hip")), nullptr);
    m_chest = add(new VxBone(QStringLiteral("chest")), m_hip);
    m_hand = add(new VxBone(QStringLiteral("hand")), m_chest);
    m_prop = add(new VxNode(QStringLiteral("prop")), m_hand);
    m_coat = add(new VxSkeleton(QStringLiteral("coat")), m_chest);
    m_light = add(new VxNode(QStringLiteral("light")), nullptr);
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    m_hip->setObject(object);
    m_morph = keyed(morph->getValueControl());
}

void tst_VxClearKeysActions::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

/** The properties that have keys: nodes in capitals with their pose, in small letters with their
 *  own property. */
QString tst_VxClearKeysActions::keyedNow() const
{
    QStringList names;
    for (const VxNode *node : m_app->getScene()->getNodes()) {
        if (node->getXPosControl()->getNumKeys() > 0)
            names.append(node->getName().toUpper());
        if (node->findProperty(QStringLiteral("own"))->getNumKeys() > 0)
            names.append(node->getName());
    }
    if (m_morph->getNumKeys() > 0)
        names.append(QStringLiteral("smile"));
    return names.join(QLatin1Char(' '));
}

void tst_VxClearKeysActions::texts_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("text");
    QTest::newRow("figure") << Which::Figure << "Clear Figure";
    QTest::newRow("figure pose") << Which::FigurePose << "Clear Figure Pose";
    QTest::newRow("figure shape") << Which::FigureShape << "Clear Figure Shape";
    QTest::newRow("selected") << Which::Selected << "Clear Selected Item(s)";
    QTest::newRow("selected pose") << Which::SelectedPose << "Clear Selected Item(s) Pose";
    QTest::newRow("selected shape") << Which::SelectedShape << "Clear Selected Item(s) Shape";
}

void tst_VxClearKeysActions::texts()
{
    QFETCH(Which, which);
    const std::unique_ptr<VxAction> action = makeAction(which);
    QTEST(action->text(), "text");
    QVERIFY(action->getDescription().endsWith(QLatin1Char('.')));
    QCOMPARE(action->getDefaultMenuPath(), QStringLiteral("Animation"));
    QCOMPARE(action->getActionGroup(), QStringLiteral("/Clear Animation"));
    QVERIFY(!action->isCheckable());
    m_hand->select();
    m_hip->select();
    action->trigger();
    QTEST(m_app->getUndoStack()->undoText(), "text");
}

void tst_VxClearKeysActions::clears_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("left");
    // The hand is selected.
    QTest::newRow("the hand's figure, without prop and coat")
        << Which::Figure << "PROP prop COAT coat LIGHT light";
    QTest::newRow("the pose of the hand's figure")
        << Which::FigurePose << "hip chest hand PROP prop COAT coat LIGHT light smile";
    QTest::newRow("the shape of the hand's figure")
        << Which::FigureShape << "HIP CHEST HAND PROP prop COAT coat LIGHT light";
    QTest::newRow("the hand alone")
        << Which::Selected << "HIP hip CHEST chest PROP prop COAT coat LIGHT light smile";
    QTest::newRow("the hand's pose")
        << Which::SelectedPose << "HIP hip CHEST chest hand PROP prop COAT coat LIGHT light smile";
    QTest::newRow("the hand's shape")
        << Which::SelectedShape << "HIP hip CHEST chest HAND PROP prop COAT coat LIGHT light smile";
}

void tst_VxClearKeysActions::clears()
{
    QFETCH(Which, which);
    m_hand->select();
    makeAction(which)->trigger();
    QTEST(keyedNow(), "left");
    QCOMPARE(m_app->getUndoStack()->count(), 1);
}

void tst_VxClearKeysActions::undoRestoresEverything()
{
    const QString before = keyedNow();
    m_hand->select();
    makeAction(Which::Figure)->trigger();
    const QString after = keyedNow();
    QVERIFY(after != before);
    m_app->getUndoStack()->undo();
    QCOMPARE(keyedNow(), before);
    QCOMPARE(m_hand->getXPosControl()->getNumKeys(), 2);
    QCOMPARE(m_hand->getXPosControl()->getKeyValue(1), 2.0f);
    m_app->getUndoStack()->redo();
    QCOMPARE(keyedNow(), after);
}

void tst_VxClearKeysActions::withoutKeysThereIsNoEntry()
{
    // A node that is no figure's has no figure to clear.
    m_light->select();
    makeAction(Which::Figure)->trigger();
    QCOMPARE(m_app->getUndoStack()->count(), 0);
    makeAction(Which::Selected)->trigger();
    QCOMPARE(m_app->getUndoStack()->count(), 1);
    makeAction(Which::Selected)->trigger();
    QCOMPARE(m_app->getUndoStack()->count(), 1);
}

void tst_VxClearKeysActions::withoutSelectionNothingHappens()
{
    const QString before = keyedNow();
    for (const Which which : {Which::Figure, Which::Selected})
        makeAction(which)->trigger();
    QCOMPARE(keyedNow(), before);
    QCOMPARE(m_app->getUndoStack()->count(), 0);
    const std::unique_ptr<VxAction> action = makeAction(Which::Figure);
    m_app.reset();
    action->trigger();
    m_app.reset(new VxApp);
}

void tst_VxClearKeysActions::lockedPropertiesKeepTheirKeys()
{
    m_hand->select();
    m_hand->getXPosControl()->setLocked(true);
    makeAction(Which::Selected)->trigger();
    QCOMPARE(m_hand->getXPosControl()->getNumKeys(), 2);
    QCOMPARE(m_hand->findProperty(QStringLiteral("own"))->getNumKeys(), 0);
}

void tst_VxClearKeysActions::keysOfOtherHoldersAreLeftAlone()
{
    auto *alias = new VxFloatProperty(QStringLiteral("alias"));
    m_light->addProperty(alias, QStringLiteral("/General"));
    QVERIFY(alias->setAliasedProperty(m_hand->getXPosControl()));
    m_light->select();
    makeAction(Which::Selected)->trigger();
    QCOMPARE(m_hand->getXPosControl()->getNumKeys(), 2);
    QCOMPARE(m_light->getXPosControl()->getNumKeys(), 0);
}

void tst_VxClearKeysActions::eachPropertyReportsOnce()
{
    QSignalSpy changed(m_hand->getXPosControl(), &VxProperty::valueChanged);
    m_hand->select();
    makeAction(Which::Figure)->trigger();
    QCOMPARE(changed.size(), 1);
}

void tst_VxClearKeysActions::figureNodesAreVisitedOnce()
{
    const QVector<VxNode *> figure{m_hip, m_chest, m_hand};
    QCOMPARE(VxClearKeysTargets::nodes({m_hand, m_light, m_chest}, Nodes::Figures), figure);
    QCOMPARE(VxClearKeysTargets::nodes({m_coat, m_hip}, Nodes::Figures),
             QVector<VxNode *>{m_coat} + figure);
    QVERIFY(VxClearKeysTargets::nodes({}, Nodes::Figures).isEmpty());
    QCOMPARE(VxClearKeysTargets::nodes({m_hand, m_light}, Nodes::Selected),
             (QVector<VxNode *>{m_hand, m_light}));
}

VX_TEST_MAIN(tst_VxClearKeysActions)
#include "tst_vxclearkeysactions.moc"
