#include "keytoolstage.h"
#include "testing/vxtestmain.h"

/// Pasting of copied keys by drawings of the receiving channel; the playhead is on frame 2.
class tst_KeyPaste : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drawings_data();
    void drawings();
    void severalNodes();
    void refusals();
    void shapesAndLimits();
    void lockedIsSkipped();
    void aliasesShareTheirKeys();
    void atTheEndOfTime();
};

void tst_KeyPaste::drawings_data()
{
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const char *copied, const char *call, const char *before,
                        const char *after) {
        QTest::newRow(name) << copied << call << before << after;
    };
    row("merged", "x A . B", "paste()", "m n o p q r", "m n A p B r");
    row("into nothing", "A B", "paste()", ".", ". . A B");
    row("replacing the span", "A . B", "paste({mode: 'Replace span'})", "m n o p q r",
        "m n A . B r");
    row("with ripple", "A . B", "paste({mode: 'Ripple'})", "m n o p . q", "m n A . B o p . q");
    row("with ripple behind the last key", "A . B", "paste({mode: 'Ripple'})", "m n", "m n A . B");
}

void tst_KeyPaste::drawings()
{
    QFETCH(QString, copied);
    QFETCH(QString, call);
    QFETCH(QString, before);
    QFETCH(QString, after);
    KeyToolStage stage;
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    vxScene->setTime(2 * Frame);
    stage.draw(copied);
    stage.copy(stage.channel);
    const QByteArray source = stage.drawing(8).toUtf8();
    stage.draw(other->getXPosControl(), before);
    other->select();
    const QByteArray start = KeyToolStage::snapshot();
    vxApp->getUndoStack()->clear();
    QCOMPARE(stage.run("KeyTools." + call + ".done"), QString("true"));
    QCOMPARE(stage.drawing(other->getXPosControl(), after.split(' ').size()), after);
    QCOMPARE(stage.drawing(8).toUtf8().toLower(), source.toLower()); // the copied node itself
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    const QByteArray end = KeyToolStage::snapshot();
    vxApp->getUndoStack()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
    vxApp->getUndoStack()->redo();
    QCOMPARE(KeyToolStage::snapshot(), end);
}

// The keys of the n-th copied node are pasted to the n-th selected node, by property names.
void tst_KeyPaste::severalNodes()
{
    KeyToolStage stage;
    VxNode *const nodes[] = {new VxNode("second"), new VxNode("third"), new VxNode("fourth")};
    for (VxNode *node : nodes)
        vxScene->addNode(node);
    stage.draw("A");
    stage.draw(nodes[0]->getXPosControl(), "B");
    stage.draw(nodes[0]->getYRotControl(), "C");
    stage.copy(stage.channel);
    stage.copy(nodes[0]->getXPosControl());
    stage.copy(nodes[0]->getYRotControl());
    vxScene->setTime(Frame);
    nodes[2]->select(); // the order of the scene counts, not that of selecting
    nodes[1]->select();
    QCOMPARE(stage.run("KeyTools.paste().message"), QString("Paste Keys: 3 on 3 channels"));
    QCOMPARE(stage.drawing(nodes[1]->getXPosControl(), 2), QString(". A"));
    QCOMPARE(stage.drawing(nodes[2]->getXPosControl(), 2), QString(". B"));
    QCOMPARE(stage.drawing(nodes[2]->getYRotControl(), 2), QString(". C"));
    QCOMPARE(nodes[1]->getYRotControl()->getNumKeys(), 0);
    // To the nodes they were copied from, whatever is selected.
    QCOMPARE(stage.run("KeyTools.paste({to: 'Copied nodes'}).channels"), QString("3"));
    QCOMPARE(stage.drawing(2), QString("a A"));
    QCOMPARE(stage.drawing(nodes[0]->getYRotControl(), 2), QString("c C"));
}

void tst_KeyPaste::refusals()
{
    KeyToolStage stage;
    QCOMPARE(stage.run("KeyTools.paste().message"), QString("Paste Keys: copy keys first"));
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    stage.draw("A");
    stage.draw(other->getXPosControl(), "B");
    stage.copy(stage.channel);
    QCOMPARE(stage.run("KeyTools.paste().message"), QString("Paste Keys: select nodes"));
    stage.copy(other->getXPosControl());
    other->select();
    QCOMPARE(stage.run("KeyTools.paste().message"),
             QString("Paste Keys: the keys are of 2 nodes; select as many"));
    stage.keeper.copied.pop_back();
    stage.keeper.copied[0].property = "Nowhere";
    QCOMPARE(stage.run("KeyTools.paste().message"),
             QString("Paste Keys: no property accepts the keys; not found: 1"));
    QCOMPARE(other->getXPosControl()->getNumKeys(), 1);
}

void tst_KeyPaste::shapesAndLimits()
{
    KeyToolStage stage;
    auto *limited = new VxFloatProperty("limited");
    limited->setMinMax(0, 10, true);
    auto *whole = new VxIntProperty("whole");
    stage.node->addProperty(limited, "/Special");
    stage.node->addProperty(whole, "/Special");
    VxCopiedKeys keys;
    keys.node = "gone";
    keys.property = "limited";
    keys.times = {-50, 30};
    keys.values = {-4, 2.6};
    keys.types = {VxKeyInterp::Tcb, VxKeyInterp::Constant};
    keys.tcb = {{0.5F, 0, 0}, {}};
    stage.keeper.copied = {keys, keys};
    stage.keeper.copied[1].property = "whole";
    stage.node->select();
    vxScene->setTime(1000);
    QCOMPARE(stage.run("KeyTools.paste().keys"), QString("4"));
    QCOMPARE(limited->getKeyTime(0), 1000);
    QCOMPARE(limited->getKeyTime(1), 1080);
    QCOMPARE(limited->getKeyValue(0), 0.0F);
    float tension = 0;
    QCOMPARE(limited->getKeyInterpolationType(0, &tension), int(VxKeyInterp::Tcb));
    QCOMPARE(tension, 0.5F);
    QCOMPARE(limited->getKeyInterpolationType(1), int(VxKeyInterp::Constant));
    QCOMPARE(whole->getKeyValue(0), -4);
    QCOMPARE(whole->getKeyValue(1), 3);
}

void tst_KeyPaste::lockedIsSkipped()
{
    KeyToolStage stage;
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    stage.draw("A B");
    stage.copy(stage.channel);
    other->getXPosControl()->setLocked(true);
    other->select();
    QCOMPARE(stage.run("KeyTools.paste({mode: 2}).message"),
             QString("Paste Keys: no property accepts the keys (1 locked or linked skipped)"));
    QCOMPARE(other->getXPosControl()->getNumKeys(), 0);
}

// Copied of the property and of its alias, keys are pasted once.
void tst_KeyPaste::aliasesShareTheirKeys()
{
    KeyToolStage stage;
    auto *alias = new VxFloatProperty("alias");
    stage.node->addProperty(alias, "/Special");
    alias->setAliasedProperty(stage.channel);
    stage.draw("A B");
    stage.copy(stage.channel);
    stage.keeper.copied.push_back(stage.keeper.copied[0]);
    stage.keeper.copied[1].property = "alias";
    vxScene->setTime(3 * Frame);
    QCOMPARE(stage.run("KeyTools.paste({to: 0, mode: 2}).channels"), QString("1"));
    QCOMPARE(stage.drawing(5), QString("a b . A B"));
}

void tst_KeyPaste::atTheEndOfTime()
{
    KeyToolStage stage;
    stage.draw("A . B");
    stage.copy(stage.channel);
    vxScene->setTime(VxTimeMax - 1);
    QCOMPARE(stage.run("KeyTools.paste({to: 0}).keys"), QString("2"));
    QCOMPARE(stage.channel->getKeyTime(3), VxTimeMax);
    // No room for a ripple: nothing is lost.
    vxScene->setTime(Frame);
    QCOMPARE(stage.run("KeyTools.paste({to: 0, mode: 2}).done"), QString("false"));
    QCOMPARE(stage.channel->getNumKeys(), 4);
}

VX_TEST_MAIN(tst_KeyPaste)
#include "tst_keypaste.moc"
