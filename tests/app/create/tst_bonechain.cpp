#include "create/bonechaintool.h"
#include "create/viewportmenu.h"
#include "posetestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QPushButton>
#include <random>

/// Bones drawn with the mouse, the viewport's context menu and what an empty viewport offers.
class tst_BoneChain : public QObject, private PoseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init();
    void cleanup();

    void aChainInAnEmptyScene();
    void aChainFromTheEndOfABone();
    void keysEndTheChain_data();
    void keysEndTheChain();
    void aDoubleClickEndsTheChain();
    void backspaceTakesTheLastBack();
    void anotherToolDiscardsTheChain();
    void aNewDocumentDiscardsTheChain();
    void belowAParentScaledToNothing();
    void jointsLieOnTheGrid_data();
    void aParentMayBeDeleted();
    void jointsLieOnTheGrid();
    void randomChains();
    void bonesEndWhereTheMouseIs();
    void theContextMenuSelectsTheNode();
    void anEmptyViewportOffersCommands();
    void theOfferIsReachedByTheKeyboard();

private:
    ViewportWidget *view() const { return window()->viewport(); }
    QPoint pixel(const QVector3D &at) const
    {
        return view()->camera().project(at).value_or(QPointF()).toPoint();
    }
    void begin() const;
    void clickAt(const QVector3D &at) const
    {
        QTest::qWait(0);
        VxMouseDriver(view()).click(pixel(at));
    }
    QPoint freePixel(std::mt19937 *random) const;
    static QVector<VxBone *> bones();
};

void tst_BoneChain::init()
{
    newScene();
    vxScene->clear();
    history()->clear();
    action("VxFrontViewAction")->trigger();
    ViewportCamera camera = view()->camera();
    camera.frame({{-50, -50, 0}, {50, 50, 0}});
    view()->setCamera(camera);
}

void tst_BoneChain::cleanup()
{
    view()->setTool(nullptr);
}

QVector<VxBone *> tst_BoneChain::bones()
{
    QVector<VxBone *> found;
    for (VxNode *each : vxScene->getNodes()) {
        if (auto *bone = qobject_cast<VxBone *>(each))
            found.append(bone);
    }
    return found;
}

void tst_BoneChain::begin() const
{
    action("VxBoneChainAction")->trigger();
    QVERIFY(action("VxBoneChainAction")->isChecked());
}

void tst_BoneChain::aChainInAnEmptyScene()
{
    begin();
    clickAt({0, 0, 0});
    clickAt({20, 30, 0});
    clickAt({0, 45, 0});
    QCOMPARE(vxScene->getNumNodes(), 0); // until it is ended
    const QByteArray before = sceneBytes();
    type(Qt::Key_Return);
    checkOneEntry(before, "Create 2 Bones");
    QCOMPARE(bones().size(), 2);
    QVERIFY(qobject_cast<VxSkeleton *>(vxScene->getRootNodes().first()));
    const float pixelSize = view()->camera().unitsPerPixel();
    QVERIFY((bones().at(0)->getOrigin() - QVector3D(0, 0, 0)).length() < pixelSize);
    QVERIFY((bones().at(0)->getEndPoint() - QVector3D(20, 30, 0)).length() < 2 * pixelSize);
    QCOMPARE(bones().at(1)->getOrigin(), bones().at(0)->getEndPoint());
    QVERIFY((bones().at(1)->getEndPoint() - QVector3D(-20, 15, 0)).length() < 2 * pixelSize);
    QCOMPARE(bones().at(1)->getNodeParent(), bones().at(0));
    QTRY_VERIFY(!action("VxBoneChainAction")->isChecked());
    QVERIFY(!view()->tool());
}

void tst_BoneChain::aChainFromTheEndOfABone()
{
    CreateEdits::addFigure(vxScene);
    select({"LeftHand"});
    vxScene->findNode("LeftForearm")->getZRotControl()->setStoredValue(90);
    vxScene->findNode("LeftHand")->getScaleControl()->setStoredValue(2);
    view()->frameAll();
    begin();
    const VxNode *hand = node("LeftHand");
    const QVector3D end = hand->getWorldTransform(0).map(hand->getEndPoint());
    clickAt(end + QVector3D(30, 0, 0));
    type(Qt::Key_Return);
    const VxNode *made = vxScene->getPrimarySelection();
    QCOMPARE(made->getNodeParent(), hand);
    QCOMPARE(made->getOrigin(), hand->getEndPoint());
    const QVector3D reached = made->getWorldTransform(0).map(made->getEndPoint());
    QVERIFY((reached - end - QVector3D(30, 0, 0)).length() < 2 * view()->camera().unitsPerPixel());
}

void tst_BoneChain::keysEndTheChain_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void tst_BoneChain::keysEndTheChain()
{
    QFETCH(int, key);
    begin();
    type(key); // nothing drawn
    QTRY_VERIFY(!view()->tool());
    QCOMPARE(history()->count(), 0);
    begin();
    clickAt({0, 0, 0});
    type(key); // a joint is no bone
    QCOMPARE(history()->count(), 0);
    QTRY_VERIFY(!view()->tool());
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    type(key);
    QCOMPARE(bones().size(), 1);
    QCOMPARE(history()->count(), 1);
}

void tst_BoneChain::aDoubleClickEndsTheChain()
{
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    VxMouseDriver(view()).doubleClick(pixel({0, 40, 0}));
    QCOMPARE(bones().size(), 2);
    QTRY_VERIFY(!view()->tool());
}

void tst_BoneChain::backspaceTakesTheLastBack()
{
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    clickAt({0, 40, 0});
    type(Qt::Key_Backspace);
    clickAt({20, 20, 0});
    type(Qt::Key_Return);
    QCOMPARE(bones().size(), 2);
    QVERIFY(bones().at(1)->getEndPoint().x() > 15);
    history()->undo();
    begin();
    for (int i = 0; i < 3; ++i)
        type(Qt::Key_Backspace);
    type(Qt::Key_Return);
    QCOMPARE(vxScene->getNumNodes(), 0);
}

void tst_BoneChain::anotherToolDiscardsTheChain()
{
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    ViewportTool other;
    view()->setTool(&other);
    QVERIFY(!action("VxBoneChainAction")->isChecked());
    QCOMPARE(vxScene->getNumNodes(), 0);
    view()->setTool(nullptr);
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    action("VxBoneChainAction")->trigger(); // its own command ends it
    QCOMPARE(bones().size(), 1);
}

void tst_BoneChain::aNewDocumentDiscardsTheChain()
{
    CreateEdits::addFigure(vxScene);
    select({"Head"});
    begin();
    clickAt({0, 0, 0});
    window()->document()->clear();
    type(Qt::Key_Return);
    QCOMPARE(vxScene->getNumNodes(), 0);
}

void tst_BoneChain::belowAParentScaledToNothing()
{
    CreateEdits::addSkeleton(vxScene);
    vxScene->getRootNodes().first()->getScaleControl()->setStoredValue(0);
    history()->clear();
    begin();
    clickAt({0, 0, 0});
    clickAt({0, 20, 0});
    type(Qt::Key_Return);
    QVERIFY(bones().isEmpty());
    QCOMPARE(history()->count(), 0);
    QVERIFY2(status().contains("scaled to nothing"), qPrintable(status()));
}

void tst_BoneChain::jointsLieOnTheGrid_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<int>("normal");
    QTest::newRow("front") << "VxFrontViewAction" << 2;
    QTest::newRow("side") << "VxSideViewAction" << 0;
    QTest::newRow("top") << "VxTopViewAction" << 1;
    QTest::newRow("perspective") << "VxPerspectiveAction" << 1;
}

// The clicks are kept as a skeleton of their own.
void tst_BoneChain::aParentMayBeDeleted()
{
    CreateEdits::addFigure(vxScene);
    select({"Head"});
    VxNode *figure = node("Figure");
    history()->clear();
    begin();
    clickAt({40, 20, 0});
    clickAt({60, 20, 0});
    {
        VxUndoStackHold hold; // keeps the node
        vxScene->removeNode(figure);
        hold.accept("Delete");
    }
    view()->setFocus();
    type(Qt::Key_Return);
    QCOMPARE(bones().size(), 2);
    QCOMPARE(vxScene->getRootNodes().size(), 1);
    history()->undo();
    QCOMPARE(vxScene->getNumNodes(), 0);
}

void tst_BoneChain::jointsLieOnTheGrid()
{
    QFETCH(QString, view);
    QFETCH(int, normal);
    ViewportCamera camera = window()->viewport()->camera();
    camera.setDirection(30, 30);
    window()->viewport()->setCamera(camera);
    action(view.toLatin1().constData())->trigger();
    begin();
    VxMouseDriver(window()->viewport()).click(window()->viewport()->rect().center() + QPoint(9, 5));
    const auto *tool = qobject_cast<BoneChainTool *>(window()->viewport()->tool());
    QVERIFY(tool);
    QCOMPARE(tool->joints().size(), 1);
    QVERIFY(std::abs(tool->joints().first()[normal]) < 1e-3f);
}

/** Beside the tool bar and the buttons. */
QPoint tst_BoneChain::freePixel(std::mt19937 *random) const
{
    QPoint pixel;
    do {
        pixel = {20 + int((*random)() % unsigned(view()->width() - 40)),
                 20 + int((*random)() % unsigned(view()->height() - 40))};
    } while (view()->childAt(pixel));
    return pixel;
}

void tst_BoneChain::randomChains()
{
    std::mt19937 random(17);
    const auto below = [&random](int count) { return int(random() % unsigned(count)); };
    const QByteArray start = sceneBytes();
    for (int round = 0; round < 40; ++round) {
        if (below(3) == 0)
            vxScene->selectAllNodes(false);
        begin();
        for (int step = below(6); step >= 0; --step) {
            if (below(4) == 0)
                type(Qt::Key_Backspace);
            else
                VxMouseDriver(view()).click(freePixel(&random));
        }
        type(below(2) ? Qt::Key_Return : Qt::Key_Escape);
        if (below(5) == 0)
            history()->undo();
        for (const VxBone *bone : bones())
            QVERIFY(std::isfinite(bone->getEndPoint().lengthSquared()));
    }
    while (history()->canRedo())
        history()->redo();
    const QByteArray end = sceneBytes();
    while (history()->canUndo())
        history()->undo();
    QVERIFY(sceneBytes() == start);
    while (history()->canRedo())
        history()->redo();
    QVERIFY(sceneBytes() == end);
}

void tst_BoneChain::bonesEndWhereTheMouseIs()
{
    CreateEdits::addFigure(vxScene);
    select({"Head"});
    view()->frameAll();
    history()->clear();
    const VxNode *head = node("Head");
    const QVector3D end = head->getWorldTransform(0).map(head->getEndPoint());
    const QPoint at = pixel(end + QVector3D(40, 0, 0));
    QScopedPointer<QMenu> menu(view()->findChild<ViewportMenu *>()->makeMenu(at));
    for (QAction *entry : menu->actions().first()->menu()->actions()) {
        if (entry->text().remove('&') == QLatin1String("Bone Ending Here"))
            entry->trigger();
    }
    QCOMPARE(history()->count(), 1);
    const VxNode *made = vxScene->getPrimarySelection();
    QCOMPARE(made->getNodeParent(), head);
    const QVector3D reached = made->getWorldTransform(0).map(made->getEndPoint());
    QVERIFY((reached - end - QVector3D(40, 0, 0)).length() < 2 * view()->camera().unitsPerPixel());
}

void tst_BoneChain::theContextMenuSelectsTheNode()
{
    CreateEdits::addFigure(vxScene);
    view()->frameAll();
    select({"Head"});
    const VxNode *shin = node("LeftShin");
    const QPoint at = pixel(shin->getWorldTransform(0).column(3).toVector3D());
    QContextMenuEvent request(QContextMenuEvent::Mouse, at, view()->mapToGlobal(at));
    QCoreApplication::sendEvent(view(), &request);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{node("LeftShin")});
    QStringList titles;
    for (const QAction *entry : menu->actions()) {
        if (!entry->isSeparator())
            titles << entry->text().remove('&');
    }
    QVERIFY(titles.contains("Create") && titles.contains("Pose") && titles.contains("Delete"));
    menu->close();
}

void tst_BoneChain::anEmptyViewportOffersCommands()
{
    auto *offer = view()->findChild<QWidget *>("EmptySceneOffer");
    QTRY_VERIFY(offer->isVisible());
    QStringList texts;
    for (const QPushButton *button : offer->findChildren<QPushButton *>()) {
        texts << button->text().remove('&');
        QVERIFY(view()->rect().contains(QRect(button->mapTo(view(), QPoint()), button->size())));
    }
    QCOMPARE(texts.join(", "),
             QString("Open..., Import Motion..., Create Figure, Create Skeleton, Open Sample"));
    VxMouseDriver(offer->findChild<QPushButton *>("VxCreateSkeletonActionButton")).click({9, 9});
    QCOMPARE(vxScene->getNumNodes(), 1);
    QTRY_VERIFY(!offer->isVisible());
    history()->undo();
    QTRY_VERIFY(offer->isVisible());
    history()->setClean();
    VxMouseDriver(offer->findChild<QPushButton *>("StudioOpenSampleButton")).click({9, 9});
    QVERIFY(bones().size() > 10);
    QVERIFY(window()->document()->fileName().isEmpty());
    QVERIFY(history()->isClean());
    QTRY_VERIFY(!offer->isVisible());
}

void tst_BoneChain::theOfferIsReachedByTheKeyboard()
{
    auto *offer = view()->findChild<QWidget *>("EmptySceneOffer");
    QTRY_VERIFY(offer->isVisible());
    view()->setFocus();
    QTRY_VERIFY(view()->hasFocus());
    auto *figure = offer->findChild<QPushButton *>("VxCreateFigureActionButton");
    for (int i = 0; i < 3; ++i)
        type(Qt::Key_Tab);
    QVERIFY(figure->hasFocus());
    type(Qt::Key_Return);
    QCOMPARE(bones().size(), 21);
    QTRY_VERIFY(view()->hasFocus());
}

VX_TEST_MAIN(tst_BoneChain)
#include "tst_bonechain.moc"
