#include "create/createedits.h"
#include "create/namenumbers.h"
#include "scenebytes.h"
#include "scenetree/scenetreeview.h"
#include "scenetree/vxscenepane.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QStatusBar>
#include <vxcore/vxbone.h>
#include <vxcore/vxmirrornames.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

/// The menu Create in the whole program.
class tst_CreateEdits : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUpShared(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void figureHasTheHeightsOfMotionFiles();
    void figureIsSymmetric();
    void figuresHaveNamesOfTheirOwn();
    void boneContinuesItsParent_data();
    void boneContinuesItsParent();
    void nodeIsBelowTheSelection();
    void copiesNames_data();
    void copiesNames();
    void duplicateHasKeysAndReferences();
    void duplicateOfSeveral();
    void groupKeepsWorldTransforms();
    void groupOfLockedNodesReportsThem();
    void nothingSelected_data();
    void nothingSelected();
    void tooDeep();
    void shortcuts();
    void inTheTreesMenu();

private:
    static VxUndoStack *history() { return vxApp->getUndoStack(); }
    QString status() const { return window()->statusBar()->currentMessage(); }
    static VxNode *node(const char *name)
    {
        VxNode *found = vxScene->findNode(QLatin1String(name));
        if (!found)
            qFatal("no node %s", name);
        return found;
    }
    static QVector3D place(const VxNode *node)
    {
        return node->getWorldTransform(vxScene->getTime()) * QVector3D();
    }
    static QVector3D end(const VxNode *node)
    {
        return node->getWorldTransform(vxScene->getTime()) * node->getEndPoint();
    }
    // Undo and redo of the only entry restore the same bytes.
    static void checkOneEntry(const QByteArray &before, const QString &text)
    {
        QCOMPARE(history()->count(), 1);
        QCOMPARE(history()->undoText(), text);
        const QByteArray after = wholeScene();
        QVERIFY(after != before);
        history()->undo();
        QVERIFY(wholeScene() == before);
        history()->redo();
        QVERIFY(wholeScene() == after);
    }
};

// Centimetres, with the feet on the ground.
void tst_CreateEdits::figureHasTheHeightsOfMotionFiles()
{
    const QByteArray before = wholeScene();
    action("VxCreateFigureAction")->trigger();
    checkOneEntry(before, "Create \"Figure\"");
    auto *figure = qobject_cast<VxSkeleton *>(node("Figure"));
    QVERIFY(figure);
    const QVector<VxBone *> bones = figure->getAllBones();
    QCOMPARE(bones.size(), 21);
    QCOMPARE(place(node("Hips")), QVector3D(0, 98, 0));
    QCOMPARE(end(node("Head")), QVector3D(0, 176, 0));
    QCOMPARE(place(node("LeftToes")).y(), 0.0f);
    QCOMPARE(end(node("RightToes")).y(), 0.0f);
    float lowest = 1000;
    for (const VxBone *bone : bones)
        lowest = qMin(lowest, qMin(place(bone).y(), end(bone).y()));
    QCOMPARE(lowest, 0.0f);
    // A T pose: the arms are level and point to the sides.
    QCOMPARE(end(node("LeftHand")).y(), place(node("LeftUpperArm")).y());
    QCOMPARE(end(node("LeftHand")), QVector3D(87, 145, 0));
    // Every bone with a single child ends there.
    QCOMPARE(end(node("LeftThigh")), place(node("LeftShin")));
    QCOMPARE(end(node("RightForearm")), place(node("RightHand")));
}

void tst_CreateEdits::figureIsSymmetric()
{
    CreateEdits::addFigure(vxScene);
    const VxMirrorNames names;
    int sides = 0;
    for (const VxNode *left : vxScene->getNodes()) {
        const QString other = names.mirrored(left->getName());
        if (other.isEmpty())
            continue;
        ++sides;
        const VxNode *right = vxScene->findNode(other);
        QVERIFY2(right, qPrintable(other));
        const QVector3D mirror(-1, 1, 1);
        QCOMPARE(place(right), place(left) * mirror);
        QCOMPARE(right->getEndPoint(), left->getEndPoint() * mirror);
        QCOMPARE(right->getRotationOrder(), left->getRotationOrder());
        QCOMPARE(right->getXRotControl()->getMin(), left->getXRotControl()->getMin());
        QCOMPARE(right->getYRotControl()->getMin(), -left->getYRotControl()->getMax());
        QCOMPARE(right->getZRotControl()->getMax(), -left->getZRotControl()->getMin());
        QVERIFY(right->getZRotControl()->isClamped());
    }
    QCOMPARE(sides, 16);
    // A knee bends back and no further than it can.
    VxFloatProperty *knee = node("LeftShin")->getXRotControl();
    knee->setValue(-20);
    QCOMPARE(knee->getValue(), 0.0f);
    QVERIFY(!node("Hips")->getYRotControl()->isClamped());
}

void tst_CreateEdits::figuresHaveNamesOfTheirOwn()
{
    CreateEdits::addFigure(vxScene);
    CreateEdits::addFigure(vxScene);
    CreateEdits::addFigure(vxScene);
    QSet<QString> names;
    for (const VxNode *each : vxScene->getNodes())
        names.insert(each->getName());
    QCOMPARE(names.size(), 66);
    QVERIFY(names.contains("LeftHand_3"));
    QCOMPARE(VxMirrorNames().mirrored("LeftHand_3"), QString("RightHand_3"));
    QCOMPARE(node("LeftHand_3")->getLabel(), QString("Left Hand"));
    QCOMPARE(vxScene->getPrimarySelection(), node("Figure_3"));
    QCOMPARE(vxScene->getNumSelectedNodes(), 1);
}

void tst_CreateEdits::boneContinuesItsParent_data()
{
    QTest::addColumn<QVector3D>("parentEnd");
    QTest::addColumn<QVector3D>("origin");
    QTest::addColumn<QVector3D>("end");
    QTest::newRow("along X") << QVector3D(4, 0, 0) << QVector3D(4, 0, 0) << QVector3D(10, 0, 0);
    QTest::newRow("slanted") << QVector3D(3, 0, 4) << QVector3D(3, 0, 4) << QVector3D(6, 0, 8);
    QTest::newRow("no length") << QVector3D() << QVector3D() << QVector3D(0, 10, 0);
    QTest::newRow("huge") << QVector3D(0, -3e38f, 0) << QVector3D() << QVector3D(0, -10, 0);
}

void tst_CreateEdits::boneContinuesItsParent()
{
    QFETCH(QVector3D, parentEnd);
    auto *parent = new VxBone("upper");
    parent->setEndPoint(parentEnd);
    vxScene->addNode(parent);
    parent->select();
    const QByteArray before = wholeScene();
    action("VxCreateBoneAction")->trigger();
    checkOneEntry(before, "Create \"Bone\"");
    VxNode *bone = node("Bone");
    QCOMPARE(bone->getNodeParent(), parent);
    QTEST(bone->getOrigin(), "origin");
    QTEST(bone->getEndPoint(), "end");
    // It is selected after a creation: the next one continues from it.
    bone->select();
    vxScene->selectNodes({parent}, false);
    action("VxCreateBoneAction")->trigger();
    QCOMPARE(node("Bone_2")->getNodeParent(), bone);
}

void tst_CreateEdits::nodeIsBelowTheSelection()
{
    action("VxCreateNodeAction")->trigger();
    action("VxCreateNodeAction")->trigger();
    QCOMPARE(node("Node_2")->getNodeParent(), node("Node"));
    action("VxCreateSkeletonAction")->trigger();
    VxNode *skeleton = node("Skeleton");
    QVERIFY(!skeleton->getNodeParent());
    QVERIFY(qobject_cast<VxSkeleton *>(skeleton));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{skeleton});
    QCOMPARE(history()->count(), 3);
}

void tst_CreateEdits::copiesNames_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("copies");
    QTest::newRow("plain") << "Hips"
                           << "Hips_2";
    QTest::newRow("of a copy") << "Hips Hips_2"
                               << "Hips_3 Hips_4";
    QTest::newRow("one number for all") << "Arm Hand Hand_2"
                                        << "Arm_3 Hand_3 Hand_4";
    QTest::newRow("side in front") << "LeftHand lFoot"
                                   << "LeftHand_2 lFoot_2";
    QTest::newRow("side at the end") << "Hand_L HandRight Foot.R"
                                     << "Hand_2_L Hand_2Right Foot_2.R";
    QTest::newRow("numbers of its own") << "Spine1 Spine_1 Spine_01"
                                        << "Spine1_2 Spine_1_2 Spine_01_2";
    QTest::newRow("huge number") << "n_99999999999"
                                 << "n_99999999999_2";
    QTest::newRow("percent signs") << "Load%1 Load%2_L %3"
                                   << "Load%1_2 Load%2_2_L %3_2";
    QTest::newRow("no stem") << "_2 2"
                             << "_2_2 2_2";
}

void tst_CreateEdits::copiesNames()
{
    QFETCH(QString, names);
    for (const QString &name : names.split(' '))
        vxScene->addNode(new VxNode(name));
    const QStringList copies = NameNumbers(vxScene).copies(vxScene->getNodes());
    QTEST(copies.join(' '), "copies");
    for (const QString &copy : copies)
        QVERIFY(!vxScene->findNode(copy));
}

void tst_CreateEdits::duplicateHasKeysAndReferences()
{
    auto *arm = new VxBone("LeftArm");
    auto *hand = new VxBone("LeftHand");
    auto *light = new VxNode("light");
    arm->addNodeChild(hand);
    vxScene->addNode(arm);
    vxScene->addNode(light);
    hand->setLabel("Left Hand");
    hand->setOrigin({1, 2, 3});
    hand->setRotationOrder(VxNode::YZX);
    hand->setVisible(false);
    VxFloatProperty *bend = arm->getXRotControl();
    bend->setKey(0, 1, 2, 0.5f, 0, 0);
    bend->setKey(160, 7, 1);
    hand->getXRotControl()->setLink(bend, true, 2, 1);
    hand->getYRotControl()->setLink(light->getXPosControl());
    hand->getZRotControl()->setLocked(true);
    auto *grip = new VxFloatProperty("Grip", 0.25f);
    hand->addProperty(grip, "/Pose");
    grip->setMinMax(-1, 1, true);
    grip->setValue(0.5f);
    auto *alias = new VxFloatProperty("Bend");
    hand->addProperty(alias, "/Pose");
    alias->setKey(480, 3, 0); // hidden by the reference
    alias->setAliasedProperty(bend);
    auto *object = new VxObject("glove");
    auto *morph = new VxMorph("Fist");
    object->addSubElement(morph);
    hand->setObject(object);
    morph->getValueControl()->setKey(320, 1, 0);
    const QByteArray before = wholeScene();

    arm->select();
    hand->select(); // copied with the arm
    action("VxDuplicateNodesAction")->trigger();
    checkOneEntry(before, "Duplicate \"LeftArm\"");
    VxNode *arm2 = node("LeftArm_2");
    VxNode *hand2 = node("LeftHand_2");
    QCOMPARE(vxScene->getNumNodes(), 5);
    QVERIFY(hand2->getId() != hand->getId());
    QCOMPARE(vxScene->findNodeById(hand2->getId()), hand2);
    QCOMPARE(hand2->getNodeParent(), arm2);
    QVERIFY(qobject_cast<VxBone *>(hand2));
    QCOMPARE(hand2->getLabel(), QString("Left Hand"));
    QCOMPARE(hand2->getOrigin(), QVector3D(1, 2, 3));
    QCOMPARE(hand2->getRotationOrder(), VxNode::YZX);
    QVERIFY(!hand2->isVisible());
    VxFloatProperty *bend2 = arm2->getXRotControl();
    QCOMPARE(bend2->getNumKeys(), 2);
    float tension = 0;
    QCOMPARE(bend2->getKeyInterpolationType(0, &tension), 2);
    QCOMPARE(tension, 0.5f);
    QCOMPARE(bend2->getKeyValue(1), 7.0f);
    QCOMPARE(hand2->getXRotControl()->getLinkedProperty(), bend2);
    QVERIFY(hand2->getXRotControl()->isLinkTerminal());
    QCOMPARE(hand2->getXRotControl()->getLinkFactor(), 2.0);
    QCOMPARE(hand2->getYRotControl()->getLinkedProperty(), light->getXPosControl());
    QVERIFY(hand2->getZRotControl()->isLocked());
    VxProperty *alias2 = hand2->findProperty("Bend");
    QCOMPARE(alias2->getAliasedProperty(), bend2);
    QCOMPARE(vxOwnContents(static_cast<VxFloatProperty *>(alias2)).keys.count, 1);
    auto *grip2 = qobject_cast<VxFloatProperty *>(hand2->findProperty("Grip"));
    QCOMPARE(grip2->getValue(), 0.5f);
    QCOMPARE(grip2->getMax(), 1.0f);
    QVERIFY(grip2->isClamped());
    auto *morph2 = qobject_cast<VxMorph *>(hand2->getObject()->getSubElement(0));
    QCOMPARE(morph2->getValueControl()->getKeyTime(0), 320);
    // The keys are its own.
    bend2->deleteAllKeys();
    QCOMPARE(bend->getNumKeys(), 2);
}

void tst_CreateEdits::duplicateOfSeveral()
{
    openSample();
    const int nodes = vxScene->getNumNodes();
    vxScene->selectAllNodes(true);
    const QByteArray before = wholeScene();
    history()->clear();
    action("VxDuplicateNodesAction")->trigger();
    checkOneEntry(before, "Duplicate 2 Nodes");
    QCOMPARE(vxScene->getNumNodes(), 2 * nodes);
    QSet<QString> names;
    for (const VxNode *each : vxScene->getNodes())
        names.insert(each->getName());
    QCOMPARE(names.size(), 2 * nodes);
}

void tst_CreateEdits::groupKeepsWorldTransforms()
{
    CreateEdits::addFigure(vxScene);
    node("LeftUpperArm")->getZRotControl()->setKey(0, 40, 0);
    node("LeftUpperArm")->getZRotControl()->setKey(320, -40, 0);
    node("Chest")->getYRotControl()->setValue(30);
    for (VxFloatProperty *angle :
         {node("LeftHand")->getXRotControl(), node("LeftHand")->getYRotControl(),
          node("LeftHand")->getZRotControl()})
        angle->setMinMax(-180, 180); // the limits of a wrist are too narrow below the group
    history()->clear();
    makeAllControls();
    vxScene->selectNodes(vxScene->getSelectedNodes(), false);
    vxScene->selectNodes({node("LeftHand"), node("LeftShin"), node("LeftToes")}, true);
    const QVector<VxNode *> moved{node("LeftHand"), node("LeftToes")};
    QVector<QMatrix4x4> places;
    for (const VxNode *each : moved)
        places.append(each->getWorldTransform(0));
    const QByteArray before = wholeScene();
    action("VxGroupNodesAction")->trigger();
    makeAllControls();
    VxNode *group = node("Group");
    QCOMPARE(group->getNodeParent(), node("Hips"));
    QCOMPARE(node("LeftHand")->getNodeParent(), group);
    QCOMPARE(node("LeftShin")->getNodeParent(), group);
    QCOMPARE(node("LeftToes")->getNodeParent(), node("LeftFoot"));
    for (int i = 0; i < moved.size(); ++i) {
        for (int j = 0; j < 16; ++j)
            QVERIFY(qAbs(moved.at(i)->getWorldTransform(0).constData()[j] -
                         places.at(i).constData()[j]) < 1e-3f);
    }
    checkOneEntry(before, "Group 2 Nodes");
}

void tst_CreateEdits::groupOfLockedNodesReportsThem()
{
    CreateEdits::addFigure(vxScene);
    node("Chest")->getYRotControl()->setValue(30);
    for (VxFloatProperty *angle :
         {node("LeftHand")->getXRotControl(), node("LeftHand")->getYRotControl()})
        angle->setLocked(true);
    vxScene->selectNodes(vxScene->getSelectedNodes(), false);
    vxScene->selectNodes({node("LeftHand"), node("LeftShin")}, true);
    action("VxGroupNodesAction")->trigger();
    QCOMPARE(status(), QString("\"Left Hand\" could not keep its world position."));
}

void tst_CreateEdits::nothingSelected_data()
{
    QTest::addColumn<QString>("message");
    QTest::newRow("VxCreateBoneAction")
        << "Select the bone or skeleton that the new bone is a child of.";
    QTest::newRow("VxDuplicateNodesAction") << "Select the nodes to duplicate.";
    QTest::newRow("VxGroupNodesAction") << "Select the nodes to group.";
}

void tst_CreateEdits::nothingSelected()
{
    vxScene->addNode(new VxNode("alone"));
    const QByteArray before = wholeScene();
    action(QTest::currentDataTag())->trigger();
    QTEST(status(), "message");
    QCOMPARE(history()->count(), 0);
    QVERIFY(wholeScene() == before);
}

// A message instead of a half-made group.
void tst_CreateEdits::tooDeep()
{
    auto *top = new VxNode("n1");
    VxNode *last = top;
    for (int i = 2; i <= VxNode::MaxDepth; ++i) {
        auto *next = new VxNode(QStringLiteral("n%1").arg(i));
        last->addNodeChild(next);
        last = next;
    }
    vxScene->addNode(top);
    last->select();
    const QByteArray before = wholeScene();
    const char *const message = "Nodes cannot be nested deeper than 4096 levels.";
    for (const char *name : {"VxCreateNodeAction", "VxCreateBoneAction", "VxGroupNodesAction"}) {
        window()->statusBar()->clearMessage();
        action(name)->trigger();
        QCOMPARE(status(), QString(message));
        QCOMPARE(history()->count(), 0);
        QVERIFY(wholeScene() == before);
    }
}

// By the keyboard, in the window.
void tst_CreateEdits::shortcuts()
{
    QStringList used;
    for (const VxAction *each : actions()->getActions()) {
        if (each->getDefaultAccel().isEmpty())
            continue;
        QVERIFY2(!used.contains(each->getDefaultAccel()), qPrintable(each->objectName()));
        used.append(each->getDefaultAccel());
        QCOMPARE(each->shortcut(), QKeySequence(each->getDefaultAccel()));
    }
    type(Qt::Key_F, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(vxScene->getNumNodes(), 22);
    type(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(vxScene->getNumNodes(), 44);
    type(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(vxScene->getNumNodes(), 45);
    QCOMPARE(node("Figure_2")->getNodeParent(), node("Group"));
    type(Qt::Key_Z, Qt::ControlModifier);
    type(Qt::Key_Z, Qt::ControlModifier);
    type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(vxScene->getNumNodes(), 0);
}

void tst_CreateEdits::inTheTreesMenu()
{
    const QStringList texts{"Node",       "Skeleton",     "Bone",      "Figure",
                            "Bone Chain", "Edit Bone...", "Duplicate", "Group"};
    for (const QString &text : texts)
        QVERIFY2(entry("Create", text), qPrintable(text));
    auto *pane = qobject_cast<VxScenePane *>(window()->getPaneMgr()->findPane("VxScenePane"));
    const QScopedPointer<QMenu> menu(pane->getTreeView()->makeContextMenu());
    QMenu *create = nullptr;
    for (const QAction *each : menu->actions()) {
        if (each->menu() && each->text() == "Create")
            create = each->menu();
    }
    QVERIFY(create);
    QStringList shown;
    for (const QAction *each : create->actions())
        shown << (each->isSeparator() ? QStringLiteral("-") : each->text());
    QStringList divided = texts;
    divided.insert(6, QStringLiteral("-")); // as in the menu bar
    QCOMPARE(shown, divided);
    create->actions().at(3)->trigger();
    QCOMPARE(vxScene->getNumNodes(), 22);
}

VX_TEST_MAIN(tst_CreateEdits)
#include "tst_createedits.moc"
