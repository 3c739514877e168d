#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QSignalSpy>
#include <QtTest>
#include <optional>
#include <vxcore/vxmousebutton.h>

namespace {

QPixmap square(const QColor &color, int side = 20, qreal ratio = 1)
{
    QPixmap pixmap(side, side);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

class TestVxMouseButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void sizeIsThePicturesLogicalSize();
    void pictureFollowsState();
    void missingPicturesFallBack();
    void disabledIsDimmed();
    void clickSendsEachSignalOnce();
    void otherButtonsDoNothing();
    void dragReportsTheDeltaFromThePress();
    void dragOffAndBackIsOneGesture();
    void smallMoveStillClicks();
    void releaseOutsideDoesNotClick();
    void moveWithoutHoldIsNoDrag();
    void disablingEndsTheHold();
    void hidingEndsTheHold();
    void losingTheFocusEndsTheHold();
    void spaceKeyClicks();
    void checkableToggles();
    void deletionWhileReleasedIsSurvived();

private:
    std::optional<VxWarningGuard> m_guard;
    std::unique_ptr<QWidget> m_window;
    VxMouseButton *m_button = nullptr;
};

void TestVxMouseButton::init()
{
    m_guard.emplace();
    m_window = std::make_unique<QWidget>();
    m_window->resize(120, 100);
    m_button =
        new VxMouseButton(square(Qt::red), square(Qt::green), square(Qt::blue), m_window.get());
    m_button->setGeometry(40, 40, 20, 20);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    VxMouseDriver(m_window.get()).moveTo(QPoint(5, 5));
}

void TestVxMouseButton::cleanup()
{
    m_window.reset();
    m_guard.reset();
}

void TestVxMouseButton::sizeIsThePicturesLogicalSize()
{
    QCOMPARE(m_button->sizeHint(), QSize(20, 20));
    m_button->setPixmaps(square(Qt::red, 30, 2), QPixmap(), QPixmap());
    QCOMPARE(m_button->sizeHint(), QSize(15, 15));
    QCOMPARE(VxMouseButton().sizeHint(), QSize(0, 0));
}

void TestVxMouseButton::pictureFollowsState()
{
    VxMouseDriver mouse(m_button);
    const auto colour = [this] { return pictureOf(*m_button).pixelColor(10, 10); };
    QCOMPARE(colour(), QColor(Qt::red));
    mouse.moveTo(QPoint(10, 10));
    QCOMPARE(colour(), QColor(Qt::green));
    mouse.press(QPoint(10, 10));
    QCOMPARE(colour(), QColor(Qt::blue));
    mouse.moveTo(QPoint(60, 10));
    QCOMPARE(colour(), QColor(Qt::blue));
    mouse.moveTo(QPoint(10, 10));
    mouse.release(QPoint(10, 10));
    QCOMPARE(colour(), QColor(Qt::green));
    mouse.moveTo(QPoint(-20, 10));
    QCOMPARE(colour(), QColor(Qt::red));
}

void TestVxMouseButton::missingPicturesFallBack()
{
    VxMouseDriver mouse(m_button);
    m_button->setPixmaps(square(Qt::red), QPixmap(), QPixmap());
    mouse.press(QPoint(10, 10));
    QCOMPARE(pictureOf(*m_button).pixelColor(10, 10), QColor(Qt::red));
    m_button->setPixmaps(square(Qt::red), square(Qt::green), QPixmap());
    QCOMPARE(pictureOf(*m_button).pixelColor(10, 10), QColor(Qt::green));
    mouse.release(QPoint(10, 10));
}

void TestVxMouseButton::disabledIsDimmed()
{
    const QImage enabled = pictureOf(*m_button);
    m_button->setEnabled(false);
    const QColor dimmed = pictureOf(*m_button).pixelColor(10, 10);
    QVERIFY(enabled.pixelColor(10, 10) != dimmed);
    QVERIFY2(dimmed.hslSaturation() < 128, qPrintable(dimmed.name()));
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QCOMPARE(clicked.count(), 0);
}

void TestVxMouseButton::clickSendsEachSignalOnce()
{
    QSignalSpy pressed(m_button, &QAbstractButton::pressed);
    QSignalSpy released(m_button, &QAbstractButton::released);
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(3, 4));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 0);
    QVERIFY(m_button->isDown());
    mouse.release(QPoint(3, 4));
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(dragged.count(), 0);
    QVERIFY(!m_button->isDown());
}

void TestVxMouseButton::otherButtonsDoNothing()
{
    QSignalSpy pressed(m_button, &QAbstractButton::pressed);
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    VxMouseDriver(m_button).drag(QPoint(3, 4), QPoint(30, 40), Qt::RightButton);
    VxMouseDriver(m_button).drag(QPoint(3, 4), QPoint(30, 40), Qt::MiddleButton);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(dragged.count(), 0);
}

void TestVxMouseButton::dragReportsTheDeltaFromThePress()
{
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(10, 10));
    mouse.moveTo(QPoint(11, 10));
    mouse.moveTo(QPoint(10, -25));
    mouse.moveTo(QPoint(-100, 300));
    mouse.release(QPoint(-100, 300));
    QCOMPARE(dragged.count(), 3);
    QCOMPARE(dragged.at(0).at(0).toPoint(), QPoint(1, 0));
    QCOMPARE(dragged.at(1).at(0).toPoint(), QPoint(0, -35));
    QCOMPARE(dragged.at(2).at(0).toPoint(), QPoint(-110, 290));
    QCOMPARE(clicked.count(), 0);
}

void TestVxMouseButton::dragOffAndBackIsOneGesture()
{
    QSignalSpy pressed(m_button, &QAbstractButton::pressed);
    QSignalSpy released(m_button, &QAbstractButton::released);
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(10, 10));
    mouse.moveTo(QPoint(60, 10));
    QVERIFY(m_button->isDown());
    mouse.moveTo(QPoint(10, 10));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 0);
    mouse.release(QPoint(10, 10));
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 0);
}

void TestVxMouseButton::smallMoveStillClicks()
{
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).drag(QPoint(10, 10), QPoint(12, 11));
    QCOMPARE(clicked.count(), 1);
}

void TestVxMouseButton::releaseOutsideDoesNotClick()
{
    QSignalSpy released(m_button, &QAbstractButton::released);
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).drag(QPoint(19, 10), QPoint(22, 10));
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 0);
}

void TestVxMouseButton::moveWithoutHoldIsNoDrag()
{
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    m_button->setMouseTracking(true);
    VxMouseDriver(m_button).moveTo(QPoint(5, 5));
    VxMouseDriver(m_button).moveTo(QPoint(15, 5));
    QCOMPARE(dragged.count(), 0);
}

void TestVxMouseButton::disablingEndsTheHold()
{
    QSignalSpy released(m_button, &QAbstractButton::released);
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(10, 10));
    m_button->setEnabled(false);
    QCOMPARE(released.count(), 1);
    QVERIFY(!m_button->isDown());
    mouse.moveTo(QPoint(30, 10));
    mouse.release(QPoint(30, 10));
    QCOMPARE(dragged.count(), 0);
    QCOMPARE(released.count(), 1);
}

void TestVxMouseButton::hidingEndsTheHold()
{
    QSignalSpy released(m_button, &QAbstractButton::released);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(10, 10));
    m_button->hide();
    QCOMPARE(released.count(), 1);
    mouse.release(QPoint(10, 10));
    QCOMPARE(released.count(), 1);
}

void TestVxMouseButton::losingTheFocusEndsTheHold()
{
    m_button->setFocus();
    QTRY_VERIFY(m_button->hasFocus());
    QSignalSpy released(m_button, &QAbstractButton::released);
    QSignalSpy dragged(m_button, &VxMouseButton::dragged);
    VxMouseDriver mouse(m_button);
    mouse.press(QPoint(10, 10));
    m_button->clearFocus();
    mouse.moveTo(QPoint(30, 10));
    mouse.release(QPoint(30, 10));
    QCOMPARE(released.count(), 1);
    QCOMPARE(dragged.count(), 0);
}

void TestVxMouseButton::spaceKeyClicks()
{
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    QTest::keyClick(m_button, Qt::Key_Space);
    QCOMPARE(clicked.count(), 1);
}

void TestVxMouseButton::checkableToggles()
{
    m_button->setCheckable(true);
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QVERIFY(m_button->isChecked());
    QCOMPARE(clicked.at(0).at(0).toBool(), true);
    QCOMPARE(pictureOf(*m_button).pixelColor(10, 10), QColor(Qt::blue));
}

void TestVxMouseButton::deletionWhileReleasedIsSurvived()
{
    QPointer<VxMouseButton> button = m_button;
    connect(m_button, &QAbstractButton::released, m_window.get(), [button] { delete button; });
    VxMouseDriver mouse(m_window.get());
    mouse.click(QPoint(50, 50));
    QVERIFY(!button);
}

VX_TEST_MAIN(TestVxMouseButton)
#include "tst_vxmousebutton.moc"
