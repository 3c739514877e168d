#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QAction>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <QtTest>
#include <optional>
#include <vxcore/vxbarbutton.h>

class TestVxBarButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void toolTipText_data();
    void toolTipText();
    void toolTipIsShownOnRequest();
    void withoutTextNoToolTip();
    void shortcutOfDefaultAction();
    void clickEmitsClicked();
    void clickLeavesTheFocus();
    void checkableToggles();
    void sizeFollowsIconOrText();
    void everyStateLooksDifferent_data();
    void everyStateLooksDifferent();
    void iconIsCentred_data();
    void iconIsCentred();
    void joinedSideReachesTheEdge();
    void styleSheetPaintsTheButton();

private:
    std::optional<VxWarningGuard> m_guard;
    std::unique_ptr<QWidget> m_window;
    VxBarButton *m_button = nullptr;
};

void TestVxBarButton::init()
{
    m_guard.emplace();
    useHostStyle(VxStyle::ColorScheme::Dark);
    m_window = std::make_unique<QWidget>();
    m_window->resize(200, 100);
    m_button = new VxBarButton(m_window.get());
    m_button->setIcon(hostStyle().icon(VxStyle::SP_VxPlay));
    m_button->setGeometry(40, 40, 32, 22);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    VxMouseDriver(m_window.get()).moveTo(QPoint(5, 5));
}

void TestVxBarButton::cleanup()
{
    m_window.reset();
    m_guard.reset();
}

void TestVxBarButton::toolTipText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QKeySequence>("shortcut");
    QTest::addColumn<QString>("shown");
    const QKeySequence none;
    const QKeySequence keys(Qt::CTRL + Qt::Key_K);
    QTest::newRow("nothing") << ""
                             << "" << none << "";
    QTest::newRow("text") << "Play"
                          << "" << none << "Play";
    QTest::newRow("text with mnemonic") << "&Play"
                                        << "" << none << "Play";
    QTest::newRow("tool tip before text") << "Play"
                                          << "Starts playing" << none << "Starts playing";
    QTest::newRow("text and shortcut") << "Create Keys"
                                       << "" << keys << "Create Keys (Ctrl+K)";
    QTest::newRow("tool tip and shortcut") << ""
                                           << "Make" << keys << "Make (Ctrl+K)";
    QTest::newRow("shortcut alone shows nothing") << ""
                                                  << "" << keys << "";
    QTest::newRow("text with a place mark") << "50%1"
                                            << "" << keys << "50%1 (Ctrl+K)";
}

void TestVxBarButton::toolTipText()
{
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    QFETCH(QKeySequence, shortcut);
    m_button->setText(text);
    m_button->setToolTip(toolTip);
    m_button->setShortcut(shortcut);
    QTEST(m_button->toolTipText(), "shown");
}

void TestVxBarButton::toolTipIsShownOnRequest()
{
    m_button->setText("Play");
    m_button->setShortcut(QKeySequence(Qt::Key_Space));
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), m_button->mapToGlobal(QPoint(5, 5)));
    QVERIFY(QApplication::sendEvent(m_button, &help));
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QString("Play (Space)"));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestVxBarButton::withoutTextNoToolTip()
{
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), m_button->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(m_button, &help);
    QVERIFY(!QToolTip::isVisible());
}

void TestVxBarButton::shortcutOfDefaultAction()
{
    QAction action("Copy");
    action.setShortcut(QKeySequence(Qt::CTRL + Qt::Key_C));
    m_button->setDefaultAction(&action);
    QCOMPARE(m_button->toolTipText(), QString("Copy (Ctrl+C)"));
}

void TestVxBarButton::clickEmitsClicked()
{
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QCOMPARE(clicked.count(), 1);
    m_button->setEnabled(false);
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QCOMPARE(clicked.count(), 1);
}

void TestVxBarButton::clickLeavesTheFocus()
{
    m_window->setFocusPolicy(Qt::StrongFocus);
    m_window->setFocus();
    QTRY_VERIFY(m_window->hasFocus());
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QVERIFY(m_window->hasFocus());
}

void TestVxBarButton::checkableToggles()
{
    m_button->setCheckable(true);
    QSignalSpy toggled(m_button, &QAbstractButton::toggled);
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QVERIFY(m_button->isChecked());
    VxMouseDriver(m_button).click(QPoint(10, 10));
    QVERIFY(!m_button->isChecked());
    QCOMPARE(toggled.count(), 2);
}

void TestVxBarButton::sizeFollowsIconOrText()
{
    const int height = hostStyle().metric(VxStyle::PM_VxControlHeight);
    const int margin = hostStyle().metric(VxStyle::PM_VxButtonMargin);
    const int icon = hostStyle().metric(VxStyle::PM_VxBarIconSize);
    QCOMPARE(m_button->sizeHint(), QSize(icon + 2 * margin, height));
    m_button->setText("long text for the tool tip");
    QCOMPARE(m_button->sizeHint(), QSize(icon + 2 * margin, height));
    m_button->setIconSize(QSize(40, 40));
    QCOMPARE(m_button->sizeHint().width(), 40 + 2 * margin);
    QVERIFY(m_button->sizeHint().height() >= 40);
    m_button->setIcon(QIcon());
    QVERIFY(m_button->sizeHint().width() > 100);
}

void TestVxBarButton::everyStateLooksDifferent_data()
{
    QTest::addColumn<VxStyle::ColorScheme>("scheme");
    QTest::newRow("dark") << VxStyle::ColorScheme::Dark;
    QTest::newRow("light") << VxStyle::ColorScheme::Light;
}

void TestVxBarButton::everyStateLooksDifferent()
{
    QFETCH(VxStyle::ColorScheme, scheme);
    useHostStyle(scheme);
    m_button->setIcon(hostStyle().icon(VxStyle::SP_VxPlay));
    VxMouseDriver mouse(m_button);
    QList<QImage> pictures;
    pictures << pictureOf(*m_button);
    mouse.moveTo(QPoint(10, 10));
    pictures << pictureOf(*m_button);
    mouse.press(QPoint(10, 10));
    pictures << pictureOf(*m_button);
    mouse.release(QPoint(10, 10));
    mouse.moveTo(QPoint(-20, -20));
    QCOMPARE(pictureOf(*m_button), pictures.first());
    m_button->setEnabled(false);
    pictures << pictureOf(*m_button);
    m_button->setEnabled(true);
    m_button->setCheckable(true);
    m_button->setChecked(true);
    pictures << pictureOf(*m_button);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j),
                     qPrintable(QString("states %1 and %2 look alike").arg(i).arg(j)));
    }
}

void TestVxBarButton::iconIsCentred_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("scale");
    QTest::newRow("wide") << QSize(32, 22) << 1.0;
    QTest::newRow("square") << QSize(22, 22) << 1.0;
    QTest::newRow("wide, doubled") << QSize(32, 22) << 2.0;
    QTest::newRow("wide, half as large again") << QSize(32, 22) << 1.5;
}

void TestVxBarButton::iconIsCentred()
{
    QFETCH(QSize, size);
    QFETCH(qreal, scale);
    QPixmap full(48, 48);
    full.fill(Qt::red);
    m_button->setIcon(QIcon(full));
    m_button->setIconSize(QSize(16, 16));
    m_button->resize(size);
    const QImage picture = pictureOf(*m_button, scale);
    QImage blank = picture;
    blank.fill(picture.pixel(0, 0));
    const QRect icon = differenceOf(picture, blank);
    const QRect expected((size.width() - 16) / 2, (size.height() - 16) / 2, 16, 16);
    QCOMPARE(icon.size(), (QSizeF(expected.size()) * scale).toSize());
    QCOMPARE(icon.topLeft(), (QPointF(expected.topLeft()) * scale).toPoint());
    // Sharp edges: nothing between the icon's colour and the ground.
    QCOMPARE(countOf(picture, Qt::red, icon), icon.width() * icon.height());
}

void TestVxBarButton::joinedSideReachesTheEdge()
{
    m_button->setIcon(QIcon());
    m_button->setDown(true);
    const auto ground = [this](int x) { return pictureOf(*m_button).pixelColor(x, 11); };
    const QColor pressed = ground(16);
    QVERIFY(ground(0) != pressed);
    QVERIFY(ground(31) != pressed);
    m_button->setJoinedEdges(Qt::LeftEdge);
    QCOMPARE(ground(0), pressed);
    QVERIFY(ground(31) != pressed);
    m_button->setJoinedEdges(Qt::LeftEdge | Qt::RightEdge);
    QCOMPARE(ground(0), pressed);
    QCOMPARE(ground(31), pressed);
    m_button->setJoinedEdges(Qt::Edges());
    QVERIFY(ground(0) != pressed);
}

void TestVxBarButton::styleSheetPaintsTheButton()
{
    m_button->setObjectName("PlayBtn");
    m_window->setStyleSheet("#PlayBtn { background: #104020; border: none; }");
    QCOMPARE(pictureOf(*m_button).pixelColor(1, 1), QColor(0x10, 0x40, 0x20));
}

VX_TEST_MAIN(TestVxBarButton)
#include "tst_vxbarbutton.moc"
