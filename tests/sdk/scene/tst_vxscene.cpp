#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QtTest>
#include <functional>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

class TestScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theGlobalIsTheFirstScene();
    void beginsWithDefaults();
    void settersReportChangesOnly();
    void invalidValuesAreCorrected();
    void stepping_data();
    void stepping();
    void timeAndRangesAreUndone();
    void timeSetBackMakesNoEntry();
    void selectionLoopingAndAnimatingAreNotRecorded();
    void loadsAreNested();
    void endOfALoadThatWasNotBegun();
    void clearResetsEverything();
    void clearWhileAHoldIsOpen();
    void viewChangesAreGathered();
    void everyVisibleChangeIsAViewChange_data();
    void everyVisibleChangeIsAViewChange();
    void changesOutOfSightAreNotReported();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
};

void TestScene::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
}

void TestScene::cleanup()
{
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

void TestScene::theGlobalIsTheFirstScene()
{
    QCOMPARE(vxScene, m_scene.get());
    {
        const VxScene second;
        QCOMPARE(vxScene, m_scene.get());
    }
    QCOMPARE(vxScene, m_scene.get());
    m_scene.reset();
    QCOMPARE(vxScene, nullptr);
    const VxScene next;
    QCOMPARE(vxScene, &next);
}

void TestScene::beginsWithDefaults()
{
    QCOMPARE(m_scene->getTime(), 0);
    QCOMPARE(m_scene->getTimeStep(), 160);
    QCOMPARE(m_scene->getPlayRange(), VxTimeRange(0, 4800));
    QCOMPARE(m_scene->getAnimRange(), VxTimeRange(0, 4800));
    QVERIFY(m_scene->isAnimating());
    QVERIFY(!m_scene->isPlaying());
    QVERIFY(!m_scene->isLoopingEnabled());
    QVERIFY(!m_scene->isLoading());
    QCOMPARE(m_scene->getNumNodes(), 0);
    QVERIFY(!m_scene->getPrimarySelection());
    QVERIFY(!m_scene->nodeListIterator().hasNext());
}

void TestScene::settersReportChangesOnly()
{
    QSignalSpy time(m_scene.get(), &VxScene::timeChanged);
    QSignalSpy step(m_scene.get(), &VxScene::timeStepChanged);
    QSignalSpy play(m_scene.get(), &VxScene::playRangeChanged);
    QSignalSpy anim(m_scene.get(), &VxScene::animRangeChanged);
    QSignalSpy loop(m_scene.get(), &VxScene::loopPlaybackChanged);
    for (int twice = 0; twice < 2; ++twice) {
        m_scene->setTime(-320);
        m_scene->setTimeStep(200);
        m_scene->setPlayRange({100, 700});
        m_scene->setAnimRange({-100, 9600});
        m_scene->loopPlayback(true);
    }
    for (const QSignalSpy *spy : {&time, &step, &play, &anim, &loop})
        QCOMPARE(spy->count(), 1);
    QCOMPARE(time.first().first().toInt(), -320);
    QCOMPARE(step.first().first().toInt(), 200);
    QCOMPARE(play.first().first().value<VxTimeRange>(), VxTimeRange(100, 700));
    QCOMPARE(anim.first().first().value<VxTimeRange>(), VxTimeRange(-100, 9600));
    QCOMPARE(m_scene->getTime(), -320);
}

void TestScene::invalidValuesAreCorrected()
{
    m_scene->setTimeStep(0);
    QCOMPARE(m_scene->getTimeStep(), 1);
    m_scene->setTimeStep(-5);
    QCOMPARE(m_scene->getTimeStep(), 1);
    m_scene->setPlayRange({500, 100});
    QCOMPARE(m_scene->getPlayRange(), VxTimeRange(500, 500));
    m_scene->setAnimRange({500, 100});
    QCOMPARE(m_scene->getAnimRange(), VxTimeRange(500, 500));
}

void TestScene::stepping_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("frames");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<int>("to");

    QTest::newRow("a frame on") << 480 << 1 << true << 640;
    QTest::newRow("a frame back") << 480 << 1 << false << 320;
    QTest::newRow("several frames") << 480 << 5 << true << 1280;
    QTest::newRow("no frame") << 480 << 0 << true << 480;
    QTest::newRow("from between frames") << 500 << 1 << true << 660;
    QTest::newRow("up to the end") << 1500 << 3 << true << 1600;
    QTest::newRow("at the end") << 1600 << 1 << true << 1600;
    QTest::newRow("back to the start") << 400 << 3 << false << 320;
    QTest::newRow("from before the start") << 0 << 1 << false << 320;
    QTest::newRow("from after the end, forward") << 9600 << 1 << true << 1600;
    QTest::newRow("from after the end, back") << 9600 << 1 << false << 1600;
    QTest::newRow("from just before the start, on") << 310 << 1 << true << 320;
    QTest::newRow("from just after the end, back") << 1610 << 1 << false << 1600;
    QTest::newRow("very far") << 480 << 2147483647 << true << 1600;
    QTest::newRow("very far back") << 480 << 2147483647 << false << 320;
}

void TestScene::stepping()
{
    QFETCH(int, from);
    QFETCH(int, frames);
    QFETCH(bool, forward);
    QFETCH(int, to);

    m_scene->setPlayRange({320, 1600});
    m_scene->setTime(from);
    m_scene->stepTime(frames, forward);
    QCOMPARE(m_scene->getTime(), to);
}

void TestScene::timeAndRangesAreUndone()
{
    m_scene->setTime(160);
    QCOMPARE(m_stack->count(), 0);
    VxUndoStackHold hold;
    m_scene->setTime(320);
    m_scene->setTime(480);
    m_scene->setTimeStep(200);
    m_scene->setPlayRange({0, 1600});
    m_scene->setAnimRange({0, 9600});
    hold.accept(QStringLiteral("Everything"));

    const auto isBefore = [this] {
        return m_scene->getTime() == 160 && m_scene->getTimeStep() == 160 &&
               m_scene->getPlayRange() == VxTimeRange(0, 4800) &&
               m_scene->getAnimRange() == VxTimeRange(0, 4800);
    };
    const auto isAfter = [this] {
        return m_scene->getTime() == 480 && m_scene->getTimeStep() == 200 &&
               m_scene->getPlayRange() == VxTimeRange(0, 1600) &&
               m_scene->getAnimRange() == VxTimeRange(0, 9600);
    };
    QVERIFY(isAfter());
    QCOMPARE(m_stack->count(), 1);
    QSignalSpy time(m_scene.get(), &VxScene::timeChanged);
    m_stack->undo();
    QVERIFY(isBefore());
    QCOMPARE(time.count(), 1);
    m_stack->redo();
    QVERIFY(isAfter());
    m_stack->undo();
    QVERIFY(isBefore());
}

void TestScene::timeSetBackMakesNoEntry()
{
    VxUndoStackHold hold;
    m_scene->setTime(320);
    m_scene->setTime(0);
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
}

void TestScene::selectionLoopingAndAnimatingAreNotRecorded()
{
    m_scene->addNode(new VxNode(QStringLiteral("n")));
    VxUndoStackHold hold;
    m_scene->selectAllNodes(true);
    m_scene->loopPlayback(true);
    m_scene->setAnimating(false);
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
}

void TestScene::loadsAreNested()
{
    QSignalSpy starting(m_scene.get(), &VxScene::sceneLoadStarting);
    QSignalSpy loaded(m_scene.get(), &VxScene::sceneLoaded);
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    m_scene->play();
    m_scene->beginLoad();
    QVERIFY(!m_scene->isPlaying());
    QCOMPARE(finished.count(), 1);
    m_scene->beginLoad();
    QVERIFY(m_scene->isLoading());
    m_scene->endLoad();
    QVERIFY(m_scene->isLoading());
    QCOMPARE(loaded.count(), 0);
    m_scene->endLoad();
    QVERIFY(!m_scene->isLoading());
    QCOMPARE(starting.count(), 1);
    QCOMPARE(loaded.count(), 1);
}

void TestScene::endOfALoadThatWasNotBegun()
{
    QSignalSpy loaded(m_scene.get(), &VxScene::sceneLoaded);
    m_guard->expect("VxScene::endLoad(): no load is open");
    m_scene->endLoad();
    QCOMPARE(loaded.count(), 0);
    m_scene->beginLoad();
    QVERIFY(m_scene->isLoading());
    m_scene->endLoad();
    QCOMPARE(loaded.count(), 1);
}

void TestScene::clearResetsEverything()
{
    const QPointer<VxNode> node(new VxNode(QStringLiteral("n")));
    const QPointer<VxNode> kept(new VxNode(QStringLiteral("kept by the history")));
    m_scene->addNode(node);
    m_scene->addNode(kept);
    node->select();
    {
        VxUndoStackHold hold;
        m_scene->setTime(320);
        m_scene->setTimeStep(200);
        m_scene->setPlayRange({0, 1600});
        m_scene->setAnimRange({0, 9600});
        m_scene->removeNode(kept);
        hold.accept(QStringLiteral("Changes"));
    }
    m_scene->loopPlayback(true);
    m_scene->setAnimating(false);
    m_scene->play();

    QStringList story;
    connect(m_scene.get(), &VxScene::sceneClearStarting, this, [&] {
        QCOMPARE(m_scene->getNumNodes(), 1);
        story << QStringLiteral("starting");
    });
    connect(m_scene.get(), &VxScene::playbackFinished, this,
            [&] { story << QStringLiteral("finished"); });
    connect(m_scene.get(), &VxScene::aboutToRemoveNode, this,
            [&](VxNode *removed) { story << QStringLiteral("removing ") + removed->getName(); });
    connect(m_scene.get(), &VxScene::primarySelectionChanged, this,
            [&](VxNode *primary) { story << QLatin1String(primary ? "primary" : "no primary"); });
    connect(node.data(), &VxElement::aboutToBeRemoved, this,
            [&] { story << QStringLiteral("about to be removed"); });
    connect(m_scene.get(), &VxScene::sceneCleared, this, [&] {
        QCOMPARE(m_stack->count(), 0);
        story << QStringLiteral("cleared");
    });
    m_scene->clear();
    QCOMPARE(story, (QStringList{"starting", "finished", "removing n", "no primary",
                                 "about to be removed", "cleared"}));
    QVERIFY(!node);
    QVERIFY(!kept);
    QVERIFY(!m_scene->isPlaying());
    beginsWithDefaults();
}

void TestScene::clearWhileAHoldIsOpen()
{
    const QPointer<VxNode> node(new VxNode(QStringLiteral("n")));
    m_scene->addNode(node);
    VxUndoStackHold hold;
    node->setLabel(QStringLiteral("N"));
    m_scene->setTime(320);
    m_scene->removeNode(node);
    m_scene->addNode(new VxNode(QStringLiteral("next")));
    QVERIFY(node);
    m_scene->clear();
    QVERIFY(!node);
    QCOMPARE(m_scene->getNumNodes(), 0);
    hold.accept(QStringLiteral("Changes"));
    QCOMPARE(m_stack->count(), 0);
}

void TestScene::viewChangesAreGathered()
{
    auto *node = new VxNode(QStringLiteral("n"));
    m_scene->addNode(node);
    QCoreApplication::processEvents();
    QSignalSpy changed(m_scene.get(), &VxScene::viewChanged);
    for (int i = 1; i <= 100; ++i) {
        m_scene->setTime(i);
        node->getXPosControl()->setValue(float(i));
    }
    QCOMPARE(changed.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
}

void TestScene::everyVisibleChangeIsAViewChange_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what :
         {"time", "value", "key", "visible", "origin", "end point", "rotation order", "ik", "added",
          "removed", "moved", "selected", "object"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TestScene::everyVisibleChangeIsAViewChange()
{
    QFETCH(QString, what);
    auto *node = new VxNode(QStringLiteral("n"));
    auto *other = new VxNode(QStringLiteral("other"));
    m_scene->addNode(node);
    m_scene->addNode(other);
    QCoreApplication::processEvents();
    QSignalSpy changed(m_scene.get(), &VxScene::viewChanged);

    const QHash<QString, std::function<void()>> changes = {
        {"time", [&] { m_scene->setTime(7); }},
        {"value", [&] { node->getXPosControl()->setStoredValue(1); }},
        {"key", [&] { node->getXPosControl()->setKey(0, 1, 0); }},
        {"visible", [&] { node->setVisible(false); }},
        {"origin",
         [&] {
             node->setOrigin({1, 0, 0});
         }},
        {"end point",
         [&] {
             node->setEndPoint({1, 0, 0});
         }},
        {"rotation order", [&] { node->setRotationOrder(VxNode::ZYX); }},
        {"ik", [&] { node->setIkNode(true); }},
        {"added", [&] { m_scene->addNode(new VxNode(QStringLiteral("new")), node); }},
        {"removed", [&] { m_scene->removeNode(node); }},
        {"moved", [&] { node->setNodeParent(other); }},
        {"selected", [&] { node->select(); }},
        {"object", [&] { node->setObject(new VxObject(QStringLiteral("shape"))); }},
    };
    changes.value(what)();
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
}

void TestScene::changesOutOfSightAreNotReported()
{
    VxNode outside(QStringLiteral("outside"));
    QCoreApplication::processEvents();
    QSignalSpy changed(m_scene.get(), &VxScene::viewChanged);
    outside.getXPosControl()->setStoredValue(1);
    outside.setOrigin({1, 2, 3});
    m_scene->setPlayRange({0, 160});
    m_scene->setTime(0);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 0);
}

VX_TEST_MAIN(TestScene)
#include "tst_vxscene.moc"
