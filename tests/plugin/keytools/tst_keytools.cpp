#include "keytoolstage.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"

#include <random>
#include <vxcore/vxbone.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>

/// The tools by drawings of the keys before and after, through their script functions.
class tst_KeyTools : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drawings_data();
    void drawings();
    void rowsOfNodes_data();
    void rowsOfNodes();
    void sameFramesOnOtherChannels();
    void messagesNameTheTargets();
    void refusals_data();
    void refusals();

    void typedMarkers_data();
    void typedMarkers();
    void snapping();
    void limitedAndWholeValues();
    void lockedAndLinkedAreLeftOut();

    void randomToolsUndoAndRedo_data();
    void randomToolsUndoAndRedo();
};

void tst_KeyTools::drawings_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const char *before, const char *call, const char *after) {
        QTest::newRow(name) << before << call << after;
    };
    row("move", "A B . . c", "move({by: '2'})", ". . A B c");
    row("move onto another key", "A B . c", "move({by: 2 * 160})", ". . A B");
    row("move back", ". . A b", "move({by: '-1'})", ". A . b");
    row("move by seconds", "A . . . . b", "move({by: '0.1s'})", ". . . A . b");
    row("move with ripple", "A B . c . d", "move({by: '1', ripple: 1})", ". A B . c . d");
    row("move with ripple onto another key", "a B c . d", "move({by: '-1', ripple: 1})",
        "B c . d .");
    row("scale about the start", "A B C . .", "scaleTimes({factor: '200%', pivot: 'Start'})",
        "A . B . C");
    row("scale about the middle", ". A . B . C .", "scaleTimes({factor: '50%', pivot: 'Middle'})",
        ". . A B C . .");
    row("scale to nothing", "A B C", "scaleTimes({factor: 0, pivot: 'Start'})", "C . .");
    row("scale backwards", "A B . C", "scaleTimes({factor: -1, pivot: 'Middle'})", "C . B A");
    row("retime to an end", "A B C . .", "retime({end: 4 * 160})", "A . B . C");
    row("retime by frames", "A B C . .", "retime({end: '+2'})", "A . B . C");
    row("retime by percent", "A B C . .", "retime({end: '200%'})", "A . B . C");
    row("retime to a start", ". . A . B", "retime({start: '=0'})", "A . . . B");
    row("retime with ripple", "A . B c . d", "retime({end: '+2', ripple: 1})", "A . . . B c . d");
    row("snap to every second frame", "A B . C .", "snap({step: '2'})", "A . B . C");
    row("offset with falloff", "A A A A A",
        "offset({amount: 2, start: '1', end: '2', falloff: '2'})", "B C C B A");
    row("remove spikes", "A A Z A A", "removeSpikes({window: '5', threshold: 5})", "A A A A A");
    row("smooth by a Gaussian", "A A A M A A A", "smoothGaussian({width: '1'})", "A A D F D A A");
    row("smooth by a low pass", "A A A A A M A A A A A", "smoothButterworth({cutoff: 5})",
        "A A A B D F D B A A A");
    row("space evenly", "A B . . C", "spaceEvenly()", "A . B . C");
    row("reverse", "A B . C", "reverse()", "C . B A");
    row("reverse some", "A b . C", "reverse()", "C b . A");
    row("duplicate", "A B . .", "duplicate({by: '2'})", "a b A B");
    row("duplicate onto the originals", "A B .", "duplicate({by: '1'})", "a A B");
    row("set values", "A b C", "setValues({value: '+2'})", "C b E");
    row("mirror values", "A b C", "mirrorValues({pivot: 'Mean'})", "C b A");
    row("scale values", "A b C E", "scaleValues({factor: '0%', pivot: 'Mean'})", "C b C C");
    row("remove flat keys", "A A A A B", "removeFlat()", "A . . A B");
    row("bake", "A . C . E", "bake({step: '1'})", "A B C D E");
    row("reduce", "A B C D C B", "reduce({error: 0.1})", "A . . D . B");
    row("reduce what is selected", "a b C D E f", "reduce({error: 0.1})", "a b C . E f");
    row("reduce to a percentage", "A C E G I H G F E D", "reduce({error: '30%'})",
        "A . . . I . . . . D");
    row("select frames", "A b c d", "selectFrames({start: '1', end: '2'})", "a B C d");
    row("select before the playhead", "A b c d e", "selectBefore()", "A B C d e");
    row("select after the playhead", "A b c d e", "selectAfter()", "a b c d E");
    row("select every second", "A B C D e", "selectEvery({n: 2})", "A b C d e");
    row("invert the selection", "A b c D", "selectInverse()", "a B C d");
    row("select by type", "a B c", "selectType({type: 'Linear'})", "A B C");
    row("select by value", "A b c d", "selectValues({min: 98, max: 99})", "a B C d");
}

void tst_KeyTools::drawings()
{
    QFETCH(QString, before);
    QFETCH(QString, call);
    QFETCH(QString, after);
    KeyToolStage stage;
    vxScene->setTime(3 * KeyToolStage::Frame);
    stage.draw(before);
    const QByteArray start = KeyToolStage::snapshot();
    QCOMPARE(stage.run("KeyTools." + call + ".done"), QString("true"));
    const int frames = after.split(' ').size();
    QCOMPARE(stage.drawing(frames), after);
    const bool isEdit = !call.startsWith("select");
    if (!isEdit)
        return;
    const QByteArray end = KeyToolStage::snapshot();
    VxUndoStack::current()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
    VxUndoStack::current()->redo();
    QCOMPARE(KeyToolStage::snapshot(), end);
}

void tst_KeyTools::rowsOfNodes_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("after");
    QTest::newRow("insert frames") << "a b c d"
                                   << "insertFrames({count: '2'})"
                                   << "a b . . c d";
    QTest::newRow("remove frames") << "a b c d e"
                                   << "removeFrames({count: '2'})"
                                   << "a b e . .";
    QTest::newRow("the keys of the node in the play range") << "a b c . . f"
                                                            << "move({by: '1'})"
                                                            << ". a b c . f";
}

/// Without selected keys the tools work on the selected node; the playhead is on frame 2.
void tst_KeyTools::rowsOfNodes()
{
    QFETCH(QString, before);
    QFETCH(QString, call);
    QFETCH(QString, after);
    KeyToolStage stage;
    vxScene->setTime(2 * KeyToolStage::Frame);
    vxScene->setPlayRange({0, 4 * KeyToolStage::Frame});
    stage.draw(before);
    stage.node->select();
    QCOMPARE(stage.run("KeyTools." + call + ".done"), QString("true"));
    QCOMPARE(stage.drawing(after.split(' ').size()), after);
    // Another node is not touched, unless the whole scene is asked for.
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    stage.draw(other->getXPosControl(), before);
    stage.run("KeyTools." + call);
    QCOMPARE(stage.drawing(other->getXPosControl(), before.split(' ').size()), before);
    if (call.startsWith("insert")) {
        stage.run("KeyTools.insertFrames({count: '2', scope: 1})");
        QCOMPARE(stage.drawing(other->getXPosControl(), 6), after);
    }
}

void tst_KeyTools::sameFramesOnOtherChannels()
{
    KeyToolStage stage;
    VxFloatProperty *other = stage.node->getYPosControl();
    stage.draw("A b C . e");
    stage.draw(other, "f g h i j");
    stage.node->select();
    QCOMPARE(stage.run("KeyTools.selectSameFrames().done"), QString("true"));
    QCOMPARE(stage.drawing(5), QString("A b C . e"));
    QCOMPARE(stage.drawing(other, 5), QString("F g H i j"));
}

void tst_KeyTools::messagesNameTheTargets()
{
    KeyToolStage stage;
    stage.draw("A B . c");
    // QtScript keeps a native function's data in this property, which scripts can write.
    QCOMPARE(stage.run("KeyTools.move.__qt_data__ = 500; KeyTools.move({by: '2'}).message"),
             QString("Move Keys: 2 selected keys on 1 channel; 1 overwritten"));
    stage.app.getKeySelection()->clear();
    stage.node->select();
    QCOMPARE(stage.run("KeyTools.move({by: '2'}).message"),
             QString("Move Keys: 2 keys of the selected nodes in the play range, on 1 channel"));
    stage.node->select(false);
    QCOMPARE(stage.run("var r = KeyTools.move({by: '2'}); r.done + ' ' + r.message"),
             QString("false Move Keys: select keys, or nodes with keys in the play range"));
}

void tst_KeyTools::refusals_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("message");
    QTest::newRow("no number") << "move({by: 'ten'})"
                               << "KeyTools.move: Move: \"ten\" cannot be used for By (frames)";
    QTest::newRow("not finite")
        << "setValues({value: NaN})"
        << "KeyTools.setValues: Set Values: \"nan\" cannot be used for Value";
    QTest::newRow("too small") << "reduce({error: -1})"
                               << "KeyTools.reduce: Reduce Keys: \"-1\" cannot be used for Error, "
                                  "or percentage of keys";
    QTest::newRow("not among the choices")
        << "convert({type: 'Bezier'})"
        << "KeyTools.convert: Convert Keys: \"Bezier\" cannot be used for To";
    QTest::newRow("an unknown parameter") << "move({to: 3})"
                                          << "KeyTools.move: Move has no parameter to";
    QTest::newRow("no object")
        << "move(3)"
        << "KeyTools.move: the argument must be an object with the parameters";
    QTest::newRow("an end before the start") << "retime({start: 320, end: 160}).message"
                                             << "Retime: the end is before the start";
    QTest::newRow("an offset for a factor")
        << "scaleTimes({factor: '+2'}).message"
        << "Scale Times: the factor must be a number or a percentage";
    QTest::newRow("no limb") << "pin().message"
                             << "Pin Joint: select a joint with two joints above it";
}

void tst_KeyTools::refusals()
{
    QFETCH(QString, call);
    QFETCH(QString, message);
    KeyToolStage stage;
    stage.draw("A B C");
    const QByteArray start = KeyToolStage::snapshot();
    QVERIFY2(stage.run("KeyTools." + call).contains(message),
             qPrintable(stage.run("KeyTools." + call)));
    QCOMPARE(KeyToolStage::snapshot(), start);
    VxUndoStack::current()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
}

void tst_KeyTools::typedMarkers_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const char *call, const char *after) {
        QTest::newRow(name) << call << after;
    };
    row("start of a span", "move({by: '@Step'})", ". . A B . . . . . .");
    row("its end", "retime({end: '@Step.end'})", "A . . . . B . . . .");
    row("from start to end", "retime({start: '@Step.start', end: '@Step.end'})",
        ". . A . . B . . . .");
    row("in other letters", "retime({end: '@step + 1'})", "A . . B . . . . . .");
    row("the exact letters first", "retime({end: '@STEP'})", "A . . . . . . . B .");
    row("a quoted name", "retime({end: '@\"Right-step 2\" - 1f'})", "A . . . . . B . . .");
    row("the next one", "retime({end: '@>'})", "A . . . . B . . . .");
    row("the previous one", "retime({end: '2 * @<'})", "A . . . B . . . . .");
    row("in another alphabet", "retime({end: '@\u00dcbung1'})", "A . . . . . . . . B");
    row("a distance", "move({by: '@Step.end-@Step'})", ". . . A B . . . . .");
    row("select between markers", "selectFrames({start: '@<', end: '@>'})", "a b . . . . . . . .");
    row("no such marker", "retime({end: '@Stop'})", "error");
    row("no name", "retime({end: '@'})", "error");
    row("an open quotation mark", "retime({end: '@\"Step'})", "error");
}

// The playhead is on frame 3, between the start and the end of a marker.
void tst_KeyTools::typedMarkers()
{
    QFETCH(QString, call);
    QFETCH(QString, after);
    KeyToolStage stage;
    const auto add = [](const QString &name, int first, int last) {
        VxMarker marker;
        marker.name = name;
        marker.span = VxTimeRange(first * KeyToolStage::Frame, last * KeyToolStage::Frame);
        VxMarkers::of(vxScene)->add(marker);
    };
    add("Step", 2, 5);
    add("Right-step 2", 7, 7);
    add("STEP", 8, 8);
    add(QString::fromUtf8("\u00dcbung1"), 9, 9);
    vxScene->setTime(3 * KeyToolStage::Frame);
    stage.draw("A B . . . . . . . .");
    const QString result = stage.run("KeyTools." + call + ".done");
    if (after == "error") {
        QVERIFY2(result.contains("cannot be used for End"), qPrintable(result));
        QCOMPARE(stage.drawing(10), QString("A B . . . . . . . ."));
        return;
    }
    QCOMPARE(result, QString("true"));
    QCOMPARE(stage.drawing(10), after);
}

void tst_KeyTools::snapping()
{
    KeyToolStage stage;
    stage.channel->setKey(-70, 1, VxKeyInterp::Tcb, 0.5F);
    stage.channel->setKey(90, 2, VxKeyInterp::Linear);
    stage.channel->setKey(390, 3, VxKeyInterp::Linear);
    stage.channel->setKey(410, 4, VxKeyInterp::Linear);
    stage.app.getKeySelection()->set({{stage.channel, {{0, 4}}, 0}});
    // 390 and 410 snap to frames 2 and 3; a half is rounded up.
    QCOMPARE(stage.run("KeyTools.snap().merged"), QString("0"));
    QCOMPARE(stage.run("Scene.findNode('node').getXPosControl().getKeyTimes().join()"),
             QString("0,160,320,480"));
    float tension = 0;
    QCOMPARE(stage.channel->getKeyInterpolationType(0, &tension), int(VxKeyInterp::Tcb));
    QCOMPARE(tension, 0.5F);
    QCOMPARE(stage.run("KeyTools.snap({step: '4'}).merged"), QString("2"));
}

void tst_KeyTools::limitedAndWholeValues()
{
    KeyToolStage stage;
    auto *limited = new VxFloatProperty("limited");
    limited->setMinMax(0, 10, true);
    auto *whole = new VxIntProperty("whole");
    stage.node->addProperty(limited, "/Special");
    stage.node->addProperty(whole, "/Special");
    for (int i = 0; i < 3; ++i) {
        limited->setKey(i * 160, float(i * 4), VxKeyInterp::Linear);
        whole->setKey(i * 160, i * 3);
    }
    stage.node->select();
    stage.run("KeyTools.setValues({value: '*1.5'})");
    QCOMPARE(limited->getKeyValue(2), 10.0F);
    QCOMPARE(limited->getKeyValue(1), 6.0F);
    QCOMPARE(whole->getKeyValue(1), 5); // 4.5, rounded
    QCOMPARE(whole->getKeyValue(2), 9);
    stage.run("KeyTools.move({by: '3'})");
    QCOMPARE(whole->getKeyTime(0), 480);
    stage.run("KeyTools.setValues({value: '=1e30'})");
    QCOMPARE(whole->getKeyValue(0), 2147483647);
}

void tst_KeyTools::lockedAndLinkedAreLeftOut()
{
    KeyToolStage stage;
    VxSceneBuilder builder(vxScene);
    builder.keyChannels({stage.node}, 5);
    const auto special = builder.addSpecialProperties(stage.node);
    stage.node->select();
    const QVector<int> before = [&] {
        QVector<int> times;
        for (int i = 0; i < special.locked->getNumKeys(); ++i)
            times << special.locked->getKeyTime(i);
        return times;
    }();
    const QString message = stage.run("KeyTools.move({by: '1'}).message");
    QVERIFY2(message.contains("locked or linked skipped"), qPrintable(message));
    for (int i = 0; i < special.locked->getNumKeys(); ++i)
        QCOMPARE(special.locked->getKeyTime(i), before[i]);
    // The alias and its property have the same keys, which moved once.
    QCOMPARE(stage.channel->getKeyTime(0), 160);
}

void tst_KeyTools::randomToolsUndoAndRedo_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 3; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

void tst_KeyTools::randomToolsUndoAndRedo()
{
    QFETCH(int, seed);
    KeyToolStage stage;
    std::mt19937 random{quint32(seed)};
    VxSceneBuilder builder(vxScene, quint32(seed));
    const Leg leg;
    builder.keyChannels({stage.node, leg.foot}, 30, 160, VxSceneBuilder::KeyTypes::Mixed);
    builder.addSpecialProperties(stage.node);
    leg.knee->getYRotControl()->setOverridingControl(stage.node->getYRotControl());
    for (const char *property : {"XTranslate", "YRotate", "alias", "none"}) {
        stage.keeper.copied.push_back(
            {{{0, 160, 800}, {1, -2, 3}, {0, 2, 1}, {}}, {}, "node", QLatin1String(property)});
    }
    // Arms of different rest axes, to be mirrored.
    const std::array<VxNode *, 2> arms = {new VxBone("LeftArm"), new VxBone("RightArm")};
    for (VxNode *arm : arms) {
        vxScene->addNode(arm, leg.hip);
        arm->getZRotControl()->setStoredValue(arm == arms[0] ? 20 : 75);
        builder.keyChannels({arm}, 12, 160, VxSceneBuilder::KeyTypes::Mixed);
    }
    for (const char *property : {"ZTranslate", "YRotate"}) {
        stage.keeper.copied.push_back(
            {{{90, 160, 800}, {1, -2, 3}, {0, 2, 1}, {}}, {}, "LeftArm", QLatin1String(property)});
    }
    KeyStates states;
    const QStringList texts = {"0",  "3",   "-2",  "150%", "-50%", "+4",
                               "=1", "0.5", "17t", "1e9",  "-0"};
    for (int step = 0; step < 100; ++step) {
        VxNode *const nodes[] = {stage.node, leg.foot, leg.knee, leg.hip};
        nodes[random() % 4]->select(random() % 3 != 0);
        vxScene->setTime(VxTime(random() % 5000));
        if (random() % 3 == 0) {
            VxProperty *property = nodes[random() % 4]->getProperty(int(random() % 6));
            VxProperty *holder = property->getKeyHolder();
            const int count = holder->getNumKeys();
            const int first = count > 0 ? int(random() % unsigned(count)) : 0;
            if (count > 0)
                stage.app.getKeySelection()->set({{holder, {{first, count}}, 0}});
        } else if (random() % 3 == 0) {
            stage.app.getKeySelection()->clear();
        }
        const KeyTool &tool = KeyTool::all()[int(random() % unsigned(KeyTool::all().size()))];
        QVariantMap arguments;
        for (const KeyToolParameter &parameter : tool.parameters) {
            if (parameter.kind == KeyToolParameter::Choice)
                arguments.insert(parameter.name,
                                 int(random() % unsigned(parameter.choices.size())));
            else if (random() % 2 && tool.name != "pin" && tool.name != "bake" &&
                     tool.name != "duplicate")
                arguments.insert(parameter.name, texts[int(random() % unsigned(texts.size()))]);
        }
        tool.runWith(arguments);
        QVERIFY2(KeyToolStage::areKeysSound(), qPrintable(tool.name));
        // Indexes of the former keys select none of the present ones.
        stage.app.getKeySelection()->clear();
        states.add();
    }
    QVERIFY(states.count() > 20);
    QVERIFY(states.areRestored());
}

VX_TEST_MAIN(tst_KeyTools)
#include "tst_keytools.moc"
