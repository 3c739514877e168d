#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QHelpEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>
#include <QtTest>
#include <functional>
#include <optional>
#include <vxcore/vxstyledbutton.h>

namespace {

const QString longText = QStringLiteral("Translation, Rotation, Scale");

// Runs `inspect` on the menu that opens next, then closes it. A menu of a button runs an event
// loop of its own, so all that happens while it is open must be asked for beforehand.
class MenuWatch : public QObject
{
public:
    explicit MenuWatch(std::function<void(QMenu *)> inspect)
        : m_inspect(std::move(inspect))
    {
        m_timer.setInterval(5);
        connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
        m_timer.start();
    }
    bool opened() const { return m_opened; }

private:
    void look()
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        m_timer.stop();
        m_opened = true;
        m_inspect(menu);
        menu->close();
    }

    std::function<void(QMenu *)> m_inspect;
    QTimer m_timer;
    bool m_opened = false;
};

} // namespace

class TestVxStyledButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void initialValues();
    void settersAndGetters();
    void textIsElidedAtTheGivenEnd_data();
    void textIsElidedAtTheGivenEnd();
    void textThatFitsIsNotElided();
    void elidedTextNeverMeetsTheArrow_data();
    void elidedTextNeverMeetsTheArrow();
    void arrowIsDrawnAtTheEnd_data();
    void arrowIsDrawnAtTheEnd();
    void menuAloneDrawsNoArrow();
    void textIsAlignedAsTheFormatSays_data();
    void textIsAlignedAsTheFormatSays();
    void iconAloneIsCentred();
    void sizeHintIncludesAllParts();
    void minimumWidthOfElidingButtonIsSmall();
    void propertyTypesTextFitsItsFixedSize();
    void clickOpensMenuBelow();
    void keysOpenTheMenu_data();
    void keysOpenTheMenu();
    void keysWithoutMenuDoNothing();
    void menuEntryIsTriggeredByTheMouse();
    void buttonIsRaisedAfterTheMenu();
    void clickWithoutMenu();
    void toolTipShowsElidedText();
    void statesLookDifferent_data();
    void statesLookDifferent();
    void flatHasNoFrameWhenIdle();
    void dropDownSetsTheArrowOff();
    void styleSheetApplies();
    void mnemonicIsNotShownAsText();

private:
    void moveMouseAway() { VxMouseDriver(m_window.get()).moveTo(QPoint(1, 1)); }
    QImage picture(const QString &text);

    std::optional<VxWarningGuard> m_guard;
    std::unique_ptr<QWidget> m_window;
    VxStyledButton *m_button = nullptr;
};

void TestVxStyledButton::init()
{
    m_guard.emplace();
    useHostStyle(VxStyle::ColorScheme::Dark);
    m_window = std::make_unique<QWidget>();
    m_window->resize(400, 200);
    m_button = new VxStyledButton(m_window.get());
    m_button->setGeometry(20, 20, 90, 22);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    moveMouseAway();
}

void TestVxStyledButton::cleanup()
{
    m_window.reset();
    m_guard.reset();
}

QImage TestVxStyledButton::picture(const QString &text)
{
    m_button->setText(text);
    return pictureOf(*m_button);
}

void TestVxStyledButton::initialValues()
{
    QCOMPARE(m_button->elideMode(), Qt::ElideNone);
    QCOMPARE(m_button->displayDownArrow(), false);
    QCOMPARE(m_button->buttonStyle(), VxStyledButton::Default);
    QCOMPARE(m_button->buttonTextFormat(), Qt::AlignHCenter);
    QCOMPARE(VxStyledButton("text").text(), QString("text"));
}

void TestVxStyledButton::settersAndGetters()
{
    m_button->setElideMode(Qt::ElideMiddle);
    m_button->setDisplayDownArrow(true);
    m_button->setButtonStyle(VxStyledButton::DropDown);
    m_button->setButtonTextFormat(Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(m_button->elideMode(), Qt::ElideMiddle);
    QCOMPARE(m_button->displayDownArrow(), true);
    QCOMPARE(m_button->buttonStyle(), VxStyledButton::DropDown);
    QCOMPARE(m_button->buttonTextFormat(), Qt::AlignRight);
    QVERIFY(m_button->setProperty("buttonTextFormat",
                                  QVariant::fromValue(Qt::Alignment(Qt::AlignLeft))));
    QCOMPARE(m_button->buttonTextFormat(), Qt::AlignLeft);
}

void TestVxStyledButton::textIsElidedAtTheGivenEnd_data()
{
    QTest::addColumn<Qt::TextElideMode>("mode");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("right") << Qt::ElideRight << "^Tr.*\u2026$";
    QTest::newRow("left") << Qt::ElideLeft << "^\u2026.*le$";
    QTest::newRow("middle") << Qt::ElideMiddle << "^T.*\u2026.*e$";
    QTest::newRow("not at all") << Qt::ElideNone << "^Translation, Rotation, Scale$";
}

void TestVxStyledButton::textIsElidedAtTheGivenEnd()
{
    QFETCH(Qt::TextElideMode, mode);
    QFETCH(QString, pattern);
    m_button->setText(longText);
    m_button->setElideMode(mode);
    const QString shown = m_button->displayedText();
    QVERIFY2(QRegularExpression(pattern).match(shown).hasMatch(), qPrintable(shown));
    if (mode == Qt::ElideNone)
        return;
    // The tool tip shows the painted text.
    QCOMPARE(picture(longText), picture(shown));
    QVERIFY(picture(longText) != picture(longText.left(6)));
}

void TestVxStyledButton::textThatFitsIsNotElided()
{
    m_button->setElideMode(Qt::ElideRight);
    m_button->setDisplayDownArrow(true);
    m_button->setText(longText);
    m_button->resize(m_button->sizeHint());
    QCOMPARE(m_button->displayedText(), longText);
    m_button->resize(m_button->width() - 1, m_button->height());
    QVERIFY(m_button->displayedText() != longText);
}

void TestVxStyledButton::elidedTextNeverMeetsTheArrow_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<Qt::TextElideMode>("mode");
    for (const int width : {24, 30, 40, 60, 90, 150}) {
        for (const Qt::TextElideMode mode : {Qt::ElideRight, Qt::ElideLeft, Qt::ElideNone})
            QTest::addRow("%d wide, mode %d", width, int(mode)) << width << mode;
    }
}

void TestVxStyledButton::elidedTextNeverMeetsTheArrow()
{
    QFETCH(int, width);
    QFETCH(Qt::TextElideMode, mode);
    m_button->setElideMode(mode);
    m_button->setDisplayDownArrow(true);
    m_button->resize(width, 22);
    const QRect text = differenceOf(picture(longText), picture(QString()));
    const QImage withArrow = picture(QString());
    m_button->setDisplayDownArrow(false);
    const QRect arrow = differenceOf(withArrow, picture(QString()));
    QVERIFY(!arrow.isEmpty());
    QVERIFY2(text.isEmpty() || text.right() < arrow.left(),
             qPrintable(QString("text to %1, arrow from %2").arg(text.right()).arg(arrow.left())));
    if (width >= 40)
        QVERIFY(text.width() > (width - 30) / 2);
}

void TestVxStyledButton::arrowIsDrawnAtTheEnd_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<qreal>("scale");
    QTest::newRow("left to right") << Qt::LeftToRight << 1.0;
    QTest::newRow("right to left") << Qt::RightToLeft << 1.0;
    QTest::newRow("half as large again") << Qt::LeftToRight << 1.5;
    QTest::newRow("doubled") << Qt::LeftToRight << 2.0;
}

void TestVxStyledButton::arrowIsDrawnAtTheEnd()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(qreal, scale);
    m_button->setLayoutDirection(direction);
    const QImage without = pictureOf(*m_button, scale);
    m_button->setDisplayDownArrow(true);
    const QRect arrow = differenceOf(pictureOf(*m_button, scale), without);
    const QRectF logical(QPointF(arrow.topLeft()) / scale, QSizeF(arrow.size()) / scale);
    const QRectF end = direction == Qt::LeftToRight ? QRectF(72, 3, 16, 16) : QRectF(2, 3, 16, 16);
    QVERIFY2(end.contains(logical), qPrintable(QString("arrow at %1").arg(logical.x())));
    QVERIFY(logical.width() >= 5 && logical.height() >= 3);
    QVERIFY(qAbs(logical.center().y() - 11) <= 1);
}

void TestVxStyledButton::menuAloneDrawsNoArrow()
{
    const QImage without = picture("TRS");
    QMenu menu;
    m_button->setMenu(&menu);
    QCOMPARE(picture("TRS"), without);
    m_button->setDisplayDownArrow(true);
    QVERIFY(picture("TRS") != without);
}

void TestVxStyledButton::textIsAlignedAsTheFormatSays_data()
{
    QTest::addColumn<Qt::Alignment>("format");
    QTest::addColumn<int>("place"); // -1 left, 0 middle, 1 right
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft) << -1;
    QTest::newRow("middle") << Qt::Alignment(Qt::AlignHCenter) << 0;
    QTest::newRow("right") << Qt::Alignment(Qt::AlignRight) << 1;
}

void TestVxStyledButton::textIsAlignedAsTheFormatSays()
{
    QFETCH(Qt::Alignment, format);
    QFETCH(int, place);
    m_button->setButtonTextFormat(format);
    const QRect text = differenceOf(picture("TRS"), picture(QString()));
    const int left = text.left();
    const int right = 89 - text.right();
    if (place < 0)
        QVERIFY(left < 10 && right > 40);
    else if (place > 0)
        QVERIFY(right < 10 && left > 40);
    else
        QVERIFY(qAbs(left - right) <= 2);
}

void TestVxStyledButton::iconAloneIsCentred()
{
    m_button->resize(32, 22);
    const QImage without = pictureOf(*m_button);
    QPixmap red(16, 16);
    red.fill(Qt::red);
    m_button->setIcon(red);
    m_button->setIconSize(QSize(16, 16));
    QCOMPARE(differenceOf(pictureOf(*m_button), without), QRect(8, 3, 16, 16));
}

void TestVxStyledButton::sizeHintIncludesAllParts()
{
    const QSize empty = m_button->sizeHint();
    QCOMPARE(empty.height(), hostStyle().metric(VxStyle::PM_VxControlHeight));
    m_button->setText("TRSOAH");
    const QSize text = m_button->sizeHint();
    QCOMPARE(text.width() - empty.width(), m_button->fontMetrics().size(0, "TRSOAH").width());
    m_button->setDisplayDownArrow(true);
    const QSize arrow = m_button->sizeHint();
    QVERIFY(arrow.width() > text.width() + 5);
    m_button->setIcon(hostStyle().icon(VxStyle::SP_VxPlay));
    m_button->setIconSize(QSize(16, 16));
    QVERIFY(m_button->sizeHint().width() >= arrow.width() + 16);
    m_button->setIconSize(QSize(40, 40));
    QVERIFY(m_button->sizeHint().height() >= 40);
}

void TestVxStyledButton::minimumWidthOfElidingButtonIsSmall()
{
    m_button->setText(longText);
    QCOMPARE(m_button->minimumSizeHint(), m_button->sizeHint());
    m_button->setElideMode(Qt::ElideRight);
    QVERIFY(m_button->minimumSizeHint().width() < m_button->sizeHint().width() / 2);
    m_button->resize(m_button->minimumSizeHint());
    QVERIFY(m_button->displayedText().size() >= 1);
    QVERIFY(!differenceOf(picture(longText), picture(QString())).isEmpty());
}

void TestVxStyledButton::propertyTypesTextFitsItsFixedSize()
{
    // The size that a pane gives a drop-down button for a given text.
    const QString text("TRSOAH");
    const QStyle &style = hostStyle();
    m_button->setElideMode(Qt::ElideRight);
    m_button->setDisplayDownArrow(true);
    m_button->setText(text);
    m_button->setFixedSize(m_button->fontMetrics().horizontalAdvance(text) +
                               hostStyle().metric(VxStyle::PM_VxButtonInset) +
                               3 * style.pixelMetric(QStyle::PM_ButtonMargin),
                           hostStyle().metric(VxStyle::PM_VxControlHeight));
    QCOMPARE(m_button->displayedText(), text);
}

void TestVxStyledButton::clickOpensMenuBelow()
{
    QMenu menu;
    menu.addAction("one");
    m_button->setMenu(&menu);
    QPoint place;
    bool down = false;
    MenuWatch watch([&](QMenu *open) {
        place = open->pos();
        down = m_button->isDown();
    });
    VxMouseDriver(m_button).click(QPoint(30, 10));
    QVERIFY(watch.opened());
    QVERIFY(down);
    const QPoint below = m_button->mapToGlobal(QPoint(0, m_button->height()));
    QCOMPARE(place, below);
}

void TestVxStyledButton::keysOpenTheMenu_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("space") << int(Qt::Key_Space) << Qt::KeyboardModifiers();
    QTest::newRow("F4") << int(Qt::Key_F4) << Qt::KeyboardModifiers();
    QTest::newRow("Alt+Down") << int(Qt::Key_Down) << Qt::KeyboardModifiers(Qt::AltModifier);
}

void TestVxStyledButton::keysOpenTheMenu()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QMenu menu;
    menu.addAction("one");
    m_button->setMenu(&menu);
    m_button->setFocus();
    QMenu *opened = nullptr;
    MenuWatch watch([&](QMenu *open) { opened = open; });
    QTest::keyClick(m_button, Qt::Key(key), modifiers);
    QTRY_VERIFY(watch.opened());
    QCOMPARE(opened, &menu);
}

void TestVxStyledButton::keysWithoutMenuDoNothing()
{
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    m_button->setFocus();
    QTest::keyClick(m_button, Qt::Key_F4);
    QTest::keyClick(m_button, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(clicked.count(), 0);
    QTest::keyClick(m_button, Qt::Key_Space);
    QCOMPARE(clicked.count(), 1);
}

void TestVxStyledButton::menuEntryIsTriggeredByTheMouse()
{
    QMenu menu;
    QAction *one = menu.addAction("one");
    QAction *two = menu.addAction("two");
    QSignalSpy first(one, &QAction::triggered);
    QSignalSpy second(two, &QAction::triggered);
    m_button->setMenu(&menu);
    MenuWatch watch([&](QMenu *open) {
        QTest::mouseClick(open, Qt::LeftButton, Qt::NoModifier, open->actionGeometry(two).center());
    });
    VxMouseDriver(m_button).click(QPoint(30, 10));
    QVERIFY(watch.opened());
    QTRY_COMPARE(second.count(), 1);
    QCOMPARE(first.count(), 0);
}

void TestVxStyledButton::buttonIsRaisedAfterTheMenu()
{
    QMenu menu;
    menu.addAction("one");
    m_button->setMenu(&menu);
    const QImage before = picture("TRS");
    QImage open;
    MenuWatch watch([&](QMenu *) { open = pictureOf(*m_button); });
    VxMouseDriver(m_button).click(QPoint(30, 10));
    QVERIFY(watch.opened());
    QVERIFY(open != before);
    QVERIFY(!m_button->isDown());
    moveMouseAway();
    m_button->clearFocus();
    QCOMPARE(pictureOf(*m_button), before);
}

void TestVxStyledButton::clickWithoutMenu()
{
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    VxMouseDriver(m_button).click(QPoint(30, 10));
    QCOMPARE(clicked.count(), 1);
}

void TestVxStyledButton::toolTipShowsElidedText()
{
    const auto ask = [this] {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), m_button->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(m_button, &help);
        return QToolTip::text();
    };
    m_button->setElideMode(Qt::ElideRight);
    m_button->setText("TRS");
    QCOMPARE(ask(), QString());
    m_button->setText("&Translation, Rotation, Scale");
    QCOMPARE(ask(), longText);
    m_button->setToolTip("Which properties are listed");
    QCOMPARE(ask(), QString("Which properties are listed"));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestVxStyledButton::statesLookDifferent_data()
{
    QTest::addColumn<VxStyle::ColorScheme>("scheme");
    QTest::addColumn<VxStyledButton::ButtonStyle>("style");
    const auto dark = VxStyle::ColorScheme::Dark;
    const auto light = VxStyle::ColorScheme::Light;
    QTest::newRow("dark, default") << dark << VxStyledButton::Default;
    QTest::newRow("dark, flat") << dark << VxStyledButton::Flat;
    QTest::newRow("dark, drop-down") << dark << VxStyledButton::DropDown;
    QTest::newRow("light, default") << light << VxStyledButton::Default;
    QTest::newRow("light, flat") << light << VxStyledButton::Flat;
    QTest::newRow("light, drop-down") << light << VxStyledButton::DropDown;
}

void TestVxStyledButton::statesLookDifferent()
{
    QFETCH(VxStyle::ColorScheme, scheme);
    QFETCH(VxStyledButton::ButtonStyle, style);
    useHostStyle(scheme);
    m_button->setButtonStyle(style);
    m_button->setDisplayDownArrow(true);
    m_button->setText("TRSOAH");
    m_button->clearFocus();
    QStringList names{"idle", "hovered", "pressed", "focused", "disabled"};
    QList<QImage> pictures;
    VxMouseDriver mouse(m_button);
    pictures << pictureOf(*m_button);
    mouse.moveTo(QPoint(30, 10));
    pictures << pictureOf(*m_button);
    m_button->setDown(true);
    pictures << pictureOf(*m_button);
    m_button->setDown(false);
    moveMouseAway();
    m_button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(m_button, Qt::Key_Tab); // the focus is only shown to those who use keys
    m_button->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(m_button->hasFocus());
    pictures << pictureOf(*m_button);
    m_button->clearFocus();
    m_button->setEnabled(false);
    pictures << pictureOf(*m_button);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j),
                     qPrintable(names.at(i) + " looks like " + names.at(j)));
    }
}

void TestVxStyledButton::flatHasNoFrameWhenIdle()
{
    m_button->setButtonStyle(VxStyledButton::Flat);
    m_button->clearFocus();
    const QImage idle = pictureOf(*m_button);
    QCOMPARE(countOf(idle, m_button->palette().color(QPalette::Window), m_button->rect()),
             m_button->width() * m_button->height());
    m_button->setButtonStyle(VxStyledButton::Default);
    QVERIFY(pictureOf(*m_button) != idle);
}

void TestVxStyledButton::dropDownSetsTheArrowOff()
{
    m_button->setDisplayDownArrow(true);
    const QImage plain = picture("TRSOAH");
    m_button->setButtonStyle(VxStyledButton::DropDown);
    const QRect line = differenceOf(picture("TRSOAH"), plain);
    QCOMPARE(line.width(), 1);
    QVERIFY(line.height() > 5);
    QVERIFY(line.left() > 60 && line.left() < 80);
}

void TestVxStyledButton::styleSheetApplies()
{
    m_button->setObjectName("TypesBtn");
    m_button->setDisplayDownArrow(true);
    m_window->setStyleSheet("#TypesBtn { background: #204060; border: 1px solid #80c0ff;"
                            " color: #ff0000; }");
    const QImage picture = pictureOf(*m_button);
    QCOMPARE(picture.pixelColor(5, 5), QColor(0x20, 0x40, 0x60));
    QCOMPARE(picture.pixelColor(45, 0), QColor(0x80, 0xc0, 0xff));
    m_button->setText("TRS");
    QVERIFY(m_button->displayedText() == "TRS");
    const QImage withText = pictureOf(*m_button);
    bool red = false;
    for (int x = 0; x < 70; ++x)
        red = red || withText.pixelColor(x, 11).red() > 150;
    QVERIFY(red);
}

void TestVxStyledButton::mnemonicIsNotShownAsText()
{
    m_button->setElideMode(Qt::ElideRight);
    m_button->setText("&Linear");
    m_button->resize(m_button->sizeHint());
    const int withMnemonic = m_button->sizeHint().width();
    QCOMPARE(m_button->displayedText(), QString("&Linear"));
    m_button->setText("Linear");
    QCOMPARE(m_button->sizeHint().width(), withMnemonic);
}

VX_TEST_MAIN(TestVxStyledButton)
#include "tst_vxstyledbutton.moc"
