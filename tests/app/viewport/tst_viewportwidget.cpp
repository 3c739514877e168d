#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/boneshape.h"
#include "viewport/figurelines.h"
#include "viewport/viewportwidget.h"

#include <QPainter>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>
#include <ctime>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxviewportmgr.h>

namespace {

void addEdges(const std::optional<BoneShape> &shape, QVector<QLineF> *edges)
{
    if (!shape)
        return;
    *edges += shape->ridges;
    for (int i = 0; i < shape->outline.size(); ++i)
        edges->append(
            QLineF(shape->outline.at(i), shape->outline.at((i + 1) % shape->outline.size())));
}

} // namespace

/// The viewport over a figure of one upright bone, four units long.
class tst_ViewportWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void boneIsPaintedWhereTheCameraSeesIt();
    void selectionChangesTheColour();
    void timeMovesTheFigure();
    void paletteChangesTheGround();
    void wheelZooms();
    void conventionsAreFollowed();
    void aClickSelects();
    void modifiersAddAndRemove();
    void aClickOnNothingClears();
    void aDragSelectsNothing();
    void theNodeUnderTheMouseIsShown();
    void theSelectionIsFramed();
    void framingAgainChangesNothing();
    void aLoadedSceneShowsItsFigure_data();
    void aLoadedSceneShowsItsFigure();
    void theFirstFigureIsFramed();
    void figuresOfAnySize_data();
    void figuresOfAnySize();
    void hiddenNodesAreNotPainted();
    void hiddenFiguresAreNotPaintedOrHit();
    void aFrameOf170Bones();

private:
    QImage picture() const { return m_view->grab().toImage(); }
    QPoint pixel(const QVector3D &point) const;
    void click(const QVector3D &at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    VxNode *addNode(const char *name, const QVector3D &at) const;
    static int lightness(const QImage &image, const QPoint &at) { return qGray(image.pixel(at)); }

    // By more than a line of the grid.
    static bool isPainted(const QImage &image, const QPoint &at)
    {
        return lightness(image, at) > 80;
    }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxApp> m_app;
    QScopedPointer<VxViewportMgr> m_conventions;
    QScopedPointer<ViewportWidget> m_view;
    VxBone *m_bone = nullptr;
};

void tst_ViewportWidget::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    m_bone = new VxBone(QStringLiteral("bone"));
    m_bone->setEndPoint({0, 4, 0});
    figure->addNodeChild(m_bone);
    vxScene->addNode(figure);
    m_conventions.reset(new VxViewportMgr);
    m_view.reset(new ViewportWidget(vxScene, m_conventions.data()));
    m_view->resize(400, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.data()));
    m_view->frameAll();
}

void tst_ViewportWidget::cleanup()
{
    m_view.reset();
    m_conventions.reset();
    m_app.reset();
    m_guard.reset();
}

QPoint tst_ViewportWidget::pixel(const QVector3D &point) const
{
    return m_view->camera().project(point).value_or(QPointF(-1, -1)).toPoint();
}

void tst_ViewportWidget::boneIsPaintedWhereTheCameraSeesIt()
{
    const QImage image = picture();
    for (const float height : {0.5f, 1.5f, 3.5f}) {
        const QPoint at = pixel({0, height, 0});
        QVERIFY(image.rect().contains(at));
        QVERIFY(isPainted(image, at));                  // light bones on a dark ground
        QVERIFY(!isPainted(image, at + QPoint(30, 0))); // and nothing beside them
        QVERIFY(!isPainted(image, at - QPoint(30, 0)));
    }
}

void tst_ViewportWidget::selectionChangesTheColour()
{
    const QPoint at = pixel({0, 3.9f, 0}); // the edges meet
    m_bone->select();
    const QColor ink = m_app->getStyle()->getInterfaceColor(QStringLiteral("Style_Key_Selected"));
    const QColor painted(picture().pixel(at));
    QVERIFY(std::abs(painted.red() - ink.red()) < 30 && std::abs(painted.blue() - ink.blue()) < 30);
}

void tst_ViewportWidget::timeMovesTheFigure()
{
    m_bone->getXPosControl()->setKey(0, 0, 0);
    m_bone->getXPosControl()->setKey(100, 1, 0);
    const QPoint here = pixel({0, 2, 0});
    const QPoint there = pixel({1, 2, 0});
    QVERIFY(isPainted(picture(), here) && !isPainted(picture(), there));
    vxScene->setTime(100);
    QVERIFY(!isPainted(picture(), here) && isPainted(picture(), there));
}

void tst_ViewportWidget::paletteChangesTheGround()
{
    QVERIFY(lightness(picture(), {2, 2}) < 100);
    m_app->getStyle()->setColorScheme(VxStyle::ColorScheme::Light);
    QTRY_VERIFY(lightness(picture(), {2, 2}) > 180);
}

void tst_ViewportWidget::wheelZooms()
{
    const float before = m_view->camera().distance();
    const QVector3D target = m_view->camera().target();
    QWheelEvent up(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, 120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_view.data(), &up);
    QVERIFY(m_view->camera().distance() < before);
    QVERIFY(m_view->camera().target() != target); // about the mouse
    QVERIFY(up.isAccepted());
}

void tst_ViewportWidget::conventionsAreFollowed()
{
    m_conventions->setOperation(
        m_conventions->getMouseBtnAccelerator(Qt::RightButton, Qt::NoModifier),
        VxViewportMgr::Frame);
    ViewportCamera away = m_view->camera();
    const ViewportCamera framed = away;
    away.zoom(0.2);
    away.pan({500, 500});
    m_view->setCamera(away);
    QTest::mouseClick(m_view.data(), Qt::RightButton, Qt::NoModifier, {30, 30});
    QVERIFY(m_view->camera() == framed);
    QTest::mouseClick(m_view.data(), Qt::RightButton, Qt::ShiftModifier, {30, 30}); // means nothing
    QVERIFY(m_view->camera() == framed);
}

void tst_ViewportWidget::click(const QVector3D &at, Qt::KeyboardModifiers modifiers) const
{
    VxMouseDriver(m_view.data()).click(pixel(at), Qt::LeftButton, modifiers);
}

VxNode *tst_ViewportWidget::addNode(const char *name, const QVector3D &at) const
{
    auto *node = new VxNode(QString::fromLatin1(name));
    node->setOrigin(at);
    vxScene->addNode(node);
    return node;
}

void tst_ViewportWidget::aClickSelects()
{
    VxNode *light = addNode("light", {1.5f, 2, 0});
    click({0, 2, 0});
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_bone}));
    QCOMPARE(vxScene->getPrimarySelection(), m_bone);
    click({1.5f, 2, 0});
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({light}));
    const QSignalSpy reports(vxScene, &VxScene::nodeSelectionListChanged);
    click({1.5f, 2, 0}); // the only one already
    QCOMPARE(reports.count(), 0);
    QCOMPARE(m_app->getUndoStack()->count(), 0);
}

void tst_ViewportWidget::modifiersAddAndRemove()
{
    VxNode *light = addNode("light", {1.5f, 2, 0});
    click({0, 2, 0});
    click({1.5f, 2, 0}, Qt::ShiftModifier);
    QCOMPARE(vxScene->getNumSelectedNodes(), 2);
    QCOMPARE(vxScene->getPrimarySelection(), light);
    click({1.5f, 2, 0}, Qt::ShiftModifier);
    QCOMPARE(vxScene->getNumSelectedNodes(), 2);
    click({1.5f, 2, 0}, Qt::ControlModifier);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_bone}));
    click({1.5f, 2, 0}, Qt::ControlModifier);
    QCOMPARE(vxScene->getNumSelectedNodes(), 2);
    click({0, 2, 0}); // of several: it alone stays
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_bone}));
}

void tst_ViewportWidget::aClickOnNothingClears()
{
    m_bone->select();
    const QPoint corner(m_view->width() - 5, 5);
    QVERIFY(!m_view->nodeAt(corner));
    VxMouseDriver mouse(m_view.data());
    mouse.click(corner, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(m_bone->isSelected());
    mouse.click(corner);
    QCOMPARE(vxScene->getNumSelectedNodes(), 0);
}

void tst_ViewportWidget::aDragSelectsNothing()
{
    const ViewportCamera before = m_view->camera();
    VxMouseDriver mouse(m_view.data());
    const QPoint on = pixel({0, 2, 0});
    mouse.press(on);
    mouse.moveTo(on + QPoint(2, 1)); // within the distance of a click
    QVERIFY(m_view->camera() == before);
    mouse.moveTo(on + QPoint(30, 0));
    QVERIFY(m_view->camera() != before);
    mouse.release(on);
    QCOMPARE(vxScene->getNumSelectedNodes(), 0);
    m_view->setCamera(before);
    mouse.press(on);
    mouse.release(on + QPoint(2, 1));
    QVERIFY(m_bone->isSelected());
}

void tst_ViewportWidget::theNodeUnderTheMouseIsShown()
{
    VxMouseDriver mouse(m_view.data());
    mouse.moveTo({5, 5});
    QVERIFY(!m_view->hoveredNode());
    const QImage before = picture();
    mouse.moveTo(pixel({0, 2, 0}));
    QCOMPARE(m_view->hoveredNode(), m_bone);
    QVERIFY(picture() != before);
    mouse.moveTo({5, 5});
    QVERIFY(!m_view->hoveredNode());
    QVERIFY(picture() == before);
    mouse.click(pixel({0, 2, 0}));
    QVERIFY(!m_view->hoveredNode()); // so that the selection is seen
    mouse.moveTo(pixel({0, 2, 0}) + QPoint(1, 0));
    QCOMPARE(m_view->hoveredNode(), m_bone);
    vxScene->removeNode(m_bone); // nothing is left to point to
    QVERIFY(!m_view->hoveredNode());
    picture();
}

void tst_ViewportWidget::theSelectionIsFramed()
{
    addNode("light", {50, 0, 0})->select();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.data()));
    m_view->setFocus();
    QTest::keyClick(m_view->windowHandle(), Qt::Key_F);
    QCOMPARE(m_view->camera().target(), QVector3D(50, 0, 0));
    vxScene->selectAllNodes(false);
    vxScene->getRootNodes().first()->select(); // a selected figure frames its bones
    QTest::keyClick(m_view->windowHandle(), Qt::Key_F);
    QCOMPARE(m_view->camera().target(), QVector3D(0, 2, 0));
    vxScene->selectAllNodes(false);
    QTest::keyClick(m_view->windowHandle(), Qt::Key_F);
    QVERIFY(m_view->camera().target().x() > 20); // all of it
}

void tst_ViewportWidget::framingAgainChangesNothing()
{
    addNode("light", {3, 1, 0})->select();
    m_view->frameSelection();
    const ViewportCamera once = m_view->camera();
    QVERIFY((once.target() - QVector3D(3, 1, 0)).length() < 1e-4f);
    QVERIFY(once.distance() < 3); // closer than all of the scene
    for (int i = 0; i < 5; ++i)
        m_view->frameSelection();
    QVERIFY(m_view->camera() == once);
}

void tst_ViewportWidget::aLoadedSceneShowsItsFigure_data()
{
    QTest::addColumn<QSize>("view");
    QTest::newRow("wide view") << QSize(800, 300);
    QTest::newRow("square view") << QSize(400, 400);
    QTest::newRow("high view") << QSize(400, 450);
}

void tst_ViewportWidget::aLoadedSceneShowsItsFigure()
{
    QFETCH(QSize, view);
    m_view->resize(view);
    vxScene->beginLoad();
    addNode("ground", {500, 0, -500}); // a plain node far off
    m_bone->getZPosControl()->setKey(0, 0, 0);
    m_bone->getZPosControl()->setKey(4800, 200, 0); // the figure crosses the ground
    vxScene->endLoad();
    const double part = double(pixel({0, 0, 0}).y() - pixel({0, 4, 0}).y()) / view.height();
    QVERIFY2(std::abs(part - 2.0 / 3) < 0.07, qPrintable(QString::number(part)));
    QCOMPARE(m_view->camera().target(), QVector3D(0, 2, 0));
    m_view->frameAll();
    QVERIFY(pixel({0, 0, 0}).y() - pixel({0, 4, 0}).y() < view.height() / 10);
}

void tst_ViewportWidget::theFirstFigureIsFramed()
{
    vxScene->clear();
    picture();
    auto *figure = new VxSkeleton(QStringLiteral("large"));
    auto *bone = new VxBone(QStringLiteral("bone"));
    bone->setEndPoint({0, 400, 0});
    figure->addNodeChild(bone);
    vxScene->addNode(figure);
    picture();
    const ViewportCamera framed = m_view->camera();
    QCOMPARE(framed.target(), QVector3D(0, 200, 0));
    const double part = double(pixel({0, 0, 0}).y() - pixel({0, 400, 0}).y()) / m_view->height();
    QVERIFY2(std::abs(part - 2.0 / 3) < 0.07, qPrintable(QString::number(part)));
    // A further one leaves the camera to the user.
    auto *other = new VxSkeleton(QStringLiteral("other"));
    auto *far = new VxBone(QStringLiteral("far"));
    far->setEndPoint({9000, 0, 0});
    other->addNodeChild(far);
    vxScene->addNode(other);
    picture();
    QVERIFY(m_view->camera() == framed);
}

void tst_ViewportWidget::figuresOfAnySize_data()
{
    QTest::addColumn<float>("scale");
    QTest::newRow("microns") << 1e-4f;
    QTest::newRow("metres") << 1.f;
    QTest::newRow("centimetres") << 100.f;
    QTest::newRow("a hundred times too large") << 1e4f;
    QTest::newRow("as large as a planet") << 1e9f;
}

void tst_ViewportWidget::figuresOfAnySize()
{
    QFETCH(float, scale);
    vxScene->getRootNodes().first()->getScaleControl()->setStoredValue(scale);
    m_view->frameAll();
    QCOMPARE(m_view->nodeAt(pixel({0, 2 * scale, 0})), m_bone);
    // The bone fills the view as it did; only the grid has another step.
    const QPoint top = pixel({0, 4 * scale, 0});
    const QPoint foot = pixel({0, 0, 0});
    QVERIFY(foot.y() - top.y() > 150 && top.y() > 0 && foot.y() < m_view->height());
    QVERIFY(isPainted(picture(), pixel({0, 2 * scale, 0})));
}

void tst_ViewportWidget::hiddenFiguresAreNotPaintedOrHit()
{
    const QPoint at = pixel({0, 2, 0});
    vxScene->getRootNodes().first()->setVisible(false);
    QTRY_VERIFY(!isPainted(picture(), at));
    QVERIFY(!m_view->nodeAt(at));
    VxMouseDriver(m_view.data()).click(at);
    QCOMPARE(vxScene->getNumSelectedNodes(), 0);
    QVERIFY(m_bone->isVisible());
}

void tst_ViewportWidget::hiddenNodesAreNotPainted()
{
    const QPoint at = pixel({0, 2, 0});
    QVERIFY(isPainted(picture(), at));
    m_bone->setVisible(false);
    QTRY_VERIFY(!isPainted(picture(), at));
    QVERIFY(!m_view->nodeAt(at));
}

void tst_ViewportWidget::aFrameOf170Bones()
{
    VxBone *last = m_bone;
    for (int i = 0; i < 169; ++i) {
        auto *bone = new VxBone(QStringLiteral("bone %1").arg(i));
        bone->setOrigin({i % 2 ? 1.0f : -0.9f, 0.1f, 0});
        bone->getXRotControl()->setKey(0, 0, 0);
        bone->getXRotControl()->setKey(4800, 90, 0);
        vxScene->addNode(bone, last);
        last = bone;
    }
    m_view->resize(1280, 800);
    m_view->frameAll();
    QImage target(m_view->size(), QImage::Format_ARGB32_Premultiplied);
    m_view->render(&target); // the ground is kept from here on
    constexpr int Frames = 50;
    // The processor's time of this thread: on a machine that is shared only that can be compared.
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    };
    double start = now();
    for (int i = 0; i < Frames; ++i) {
        vxScene->setTime(i * 90);
        m_view->render(&target);
    }
    const double frame = (now() - start) / Frames;

    // The floor: the same picture and the same edges, already projected.
    QPixmap ground(m_view->size());
    ground.fill(Qt::black);
    const FigureLines lines = FigureLines::collect(*vxScene, 0);
    QVector<QLineF> bones;
    for (const FigureLines::Bone &bone : lines.bones)
        addEdges(boneShape(bone, m_view->camera()), &bones);
    start = now();
    for (int i = 0; i < Frames; ++i) {
        QPainter painter(&target);
        painter.drawPixmap(0, 0, ground);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, 1, Qt::SolidLine, Qt::RoundCap));
        painter.drawLines(bones);
    }
    const double floor = (now() - start) / Frames;
    qInfo("a frame of 170 bones at 1280 x 800: %.2f ms, the bare lines %.2f ms", frame, floor);
#ifndef __SANITIZE_ADDRESS__
    QVERIFY(frame < 3 * floor + 1);
#endif
}

VX_TEST_MAIN(tst_ViewportWidget)
#include "tst_viewportwidget.moc"
