#include "create/boneedits.h"
#include "pose/inbetween.h"
#include "posetestbase.h"
#include "scenetree/sceneedits.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"

#include <random>

namespace {

constexpr int Steps = 400;

} // namespace

/// Hundreds of create, pose and in-between commands on figures with aliases, links, overriding
/// controls, locks and odd scales, mixed with removals, re-parenting and steps through the history.
class tst_PosesRandom : public QObject, private PoseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }

    void historyHolds_data();
    void historyHolds();

private:
    int below(int limit) { return int(m_random() % quint32(limit)); }
    VxNode *anyNode() { return vxScene->getNodes().at(below(vxScene->getNumNodes())); }
    VxFloatProperty *anyChannel();
    void step();
    void runCommand();
    void editChannel();
    void editBone();
    void refer();
    void selectSome();

    std::mt19937 m_random;
};

VxFloatProperty *tst_PosesRandom::anyChannel()
{
    return qobject_cast<VxFloatProperty *>(anyNode()->getProperty(below(10)));
}

void tst_PosesRandom::selectSome()
{
    vxScene->selectNodes(vxScene->getSelectedNodes(), false);
    for (int i = below(4); i > 0; --i)
        anyNode()->select();
}

void tst_PosesRandom::editChannel()
{
    VxFloatProperty *channel = anyChannel();
    VxUndoStackHold hold;
    const float value = float(below(7200) - 3600) / (below(3) ? 100 : 10);
    if (below(3) == 0)
        channel->setStoredValue(below(4) ? value : 0);
    else
        channel->setKey(below(40) * 160, below(12) ? value : 0, below(3));
    hold.accept("Edit");
}

void tst_PosesRandom::editBone()
{
    VxNode *bone = anyNode();
    BoneValues values = BoneEdits::valuesOf(bone);
    values.origin[below(3)] = float(below(200) - 100) / 10;
    values.end[below(3)] = float(below(200) - 100) / 10;
    values.rest[std::size_t(below(6))] = float(below(3600) - 1800) / 10;
    VxUndoStackHold hold;
    BoneEdits::setValues(bone, values, below(2));
    hold.accept("Edit Bone");
}

/** Traits and references are not recorded: they are part of the scene from then on. */
void tst_PosesRandom::refer()
{
    VxFloatProperty *channel = anyChannel();
    switch (below(4)) {
    case 0:
        channel->setAliasedProperty(below(3) ? anyChannel() : nullptr);
        break;
    case 1:
        channel->setLink(below(3) ? anyChannel() : nullptr, below(2), 0.5, 1);
        break;
    case 2:
        channel->setOverridingControl(below(3) ? anyChannel() : nullptr);
        break;
    default:
        channel->setLocked(below(3) == 0);
    }
}

void tst_PosesRandom::runCommand()
{
    static const char *const names[] = {"VxCreateNodeAction",        "VxCreateBoneAction",
                                        "VxDuplicateNodesAction",    "VxGroupNodesAction",
                                        "VxCopyPoseAction",          "VxPastePoseAction",
                                        "VxPastePoseMirroredAction", "VxMirrorPoseAction",
                                        "VxResetPoseAction",         "VxSelectMirrorAction",
                                        "VxSelectChildrenAction",    "VxSelectParentsAction",
                                        "VxHoldPoseAction",          "VxMatchEndsAction",
                                        "VxSetRestPoseAction",       "VxPinInIkAction"};
    const int count = int(sizeof names / sizeof *names);
    const int which = below(count + 6);
    if (which < count) {
        const bool grows = which == 2 && vxScene->getNumNodes() > 60;
        if (!grows)
            action(names[which])->trigger();
    } else if (which == count) {
        const VxTime start = below(10) * 160;
        vxScene->setPlayRange({start, start + (1 + below(20)) * 160});
        InBetween::cycle(vxScene, 2 + below(3), below(2));
    } else if (which == count + 1) {
        bool done = false;
        BoneEdits::setLength(vxScene, below(5) ? below(500) / 10.0 : 0, &done);
    } else if (which == count + 2) {
        editBone();
    } else {
        InBetween::breakdown(vxScene, (below(201) - 50) / 100.0, Breakdown::Toward(below(3)));
    }
}

void tst_PosesRandom::step()
{
    const int kind = below(20);
    vxScene->setTime(below(40) * 160);
    vxScene->setAnimating(below(6) > 0);
    if (kind < 5)
        editChannel();
    else if (kind == 5 && vxScene->getNumNodes() > 30)
        SceneEdits::remove(vxScene, {anyNode()});
    else if (kind == 6)
        SceneEdits::move(vxScene, {anyNode()}, below(4) ? anyNode() : nullptr, -1,
                         below(2) ? SceneEdits::Kept::WorldPlace : SceneEdits::Kept::Values);
    else
        runCommand();
    if (vxScene->getNumNodes() == 0 || below(40) == 0)
        action("VxCreateFigureAction")->trigger();
    if (below(2))
        selectSome();
}

void tst_PosesRandom::historyHolds_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 4; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

// Times and ranges that are set outside of a hold are the same for all states that are compared.
void tst_PosesRandom::historyHolds()
{
    QFETCH(uint, seed);
    m_random.seed(seed);
    newScene();
    for (int i = 0; i < 25; ++i) {
        editChannel();
        refer();
    }
    history()->clear();
    const auto state = [] {
        makeAllControls();
        vxScene->setTime(0);
        vxScene->setAnimating(true);
        return sceneBytes();
    };
    for (int round = 0; round < vxSessionLength(Steps / 20); ++round) {
        vxScene->setPlayRange({0, 1600});
        vxScene->setAnimRange({0, 9600});
        history()->clear();
        const QByteArray start = state();
        for (int i = 0; i < 20; ++i) {
            step();
            const QString fault = keyFault();
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
        }
        QCoreApplication::processEvents();
        const VxTimeRange play = vxScene->getPlayRange();
        const VxTimeRange animation = vxScene->getAnimRange();
        const QByteArray end = state();
        for (int again = 0; again < 2; ++again) {
            while (history()->canUndo())
                history()->undo();
            vxScene->setPlayRange({0, 1600});
            vxScene->setAnimRange({0, 9600});
            QVERIFY2(state() == start, qPrintable(QString::number(round)));
            while (history()->canRedo())
                history()->redo();
            vxScene->setPlayRange(play);
            vxScene->setAnimRange(animation);
            QVERIFY2(state() == end, qPrintable(QString::number(round)));
        }
        refer();
    }
}

VX_TEST_MAIN(tst_PosesRandom)
#include "tst_posesrandom.moc"
