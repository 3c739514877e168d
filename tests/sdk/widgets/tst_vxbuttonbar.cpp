#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QHBoxLayout>
#include <QSpinBox>
#include <QtTest>
#include <optional>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>

class TestVxButtonBar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void itemsAreInIndexOrder_data();
    void itemsAreInIndexOrder();
    void sparseAndNegativeIndices();
    void hiddenItemsTakeNoPlace();
    void hideAndShowTransportItems();
    void itemsHiddenBeforeTheBarIsShown();
    void itemStateDoesNotDependOnTheBar();
    void unknownIndexIsIgnored();
    void takenIndexIsRefused();
    void nullAndDoubleWidgetsAreRefused();
    void deletedWidgetFreesItsIndex();
    void separatorWidths();
    void outerButtonsKeepTheirRoundSides();
    void joinsFollowDirectHiding();
    void rightToLeftMirrors();
    void barIsAsWideAsItsItems();
    void otherWidgetsMayBeItems();
    void oneFrameAroundAll_data();
    void oneFrameAroundAll();
    void emptyBarIsInvisible();
    void styleSheetPaintsTheBar();

private:
    VxBarButton *add(int index);
    // False for an index without an item.
    bool isShown(int index) const;
    // The indices of the shown items from left to right.
    QList<int> order(const QList<int> &indices) const;
    void show();
    // Makes the window lay the bar out anew.
    void settle() { QCoreApplication::processEvents(); }

    std::optional<VxWarningGuard> m_guard;
    std::unique_ptr<QWidget> m_window;
    VxButtonBar *m_bar = nullptr;
};

void TestVxButtonBar::init()
{
    m_guard.emplace();
    useHostStyle(VxStyle::ColorScheme::Dark);
    m_window = std::make_unique<QWidget>();
    m_window->resize(500, 60);
    m_bar = new VxButtonBar;
    auto *layout = new QHBoxLayout(m_window.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar, 0, Qt::AlignBottom);
    layout->addStretch(1);
    m_bar->setObjectName("TestBar");
}

void TestVxButtonBar::cleanup()
{
    m_window.reset();
    m_guard.reset();
}

VxBarButton *TestVxButtonBar::add(int index)
{
    auto *button = new VxBarButton;
    button->setIcon(hostStyle().icon(VxStyle::SP_VxPlay));
    m_bar->addWidget(button, index);
    return button;
}

bool TestVxButtonBar::isShown(int index) const
{
    const QWidget *item = m_bar->widget(index);
    return item && !item->isHidden();
}

QList<int> TestVxButtonBar::order(const QList<int> &indices) const
{
    QMap<int, int> byPlace;
    for (const int index : indices) {
        if (isShown(index))
            byPlace.insert(m_bar->widget(index)->x(), index);
    }
    return byPlace.values();
}

void TestVxButtonBar::show()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    settle();
}

void TestVxButtonBar::itemsAreInIndexOrder_data()
{
    QTest::addColumn<QList<int>>("added");
    QTest::newRow("in order") << QList<int>{0, 1, 2, 3};
    QTest::newRow("backwards") << QList<int>{3, 2, 1, 0};
    QTest::newRow("mixed") << QList<int>{2, 0, 3, 1};
}

void TestVxButtonBar::itemsAreInIndexOrder()
{
    QFETCH(QList<int>, added);
    QMap<int, QWidget *> buttons;
    for (const int index : added) {
        if (index == 2)
            m_bar->addSeparator(VxButtonBar::LineSeparator, index);
        else
            buttons[index] = add(index);
    }
    show();
    QCOMPARE(order({0, 1, 2, 3}), QList<int>({0, 1, 2, 3}));
    for (auto button = buttons.cbegin(); button != buttons.cend(); ++button) {
        QCOMPARE(m_bar->widget(button.key()), button.value());
        QCOMPARE(button.value()->parentWidget(), m_bar);
    }
    QVERIFY(m_bar->widget(2));
}

void TestVxButtonBar::sparseAndNegativeIndices()
{
    add(1000);
    add(-5);
    add(7);
    show();
    QCOMPARE(order({-5, 7, 1000}), QList<int>({-5, 7, 1000}));
    QVERIFY(!m_bar->widget(8));
}

void TestVxButtonBar::hiddenItemsTakeNoPlace()
{
    add(0);
    add(1);
    add(2);
    show();
    const int one = m_bar->widget(0)->width();
    QCOMPARE(m_bar->sizeHint().width(), 3 * one);
    m_bar->hideItem(1);
    QVERIFY(!isShown(1));
    QVERIFY(!m_bar->widget(1)->isVisible());
    QCOMPARE(m_bar->sizeHint().width(), 2 * one);
    settle();
    QCOMPARE(m_bar->widget(2)->x(), one);
    QTRY_COMPARE(m_bar->width(), 2 * one);
    m_bar->hideItem(1);
    m_bar->showItem(1);
    QVERIFY(isShown(1) && m_bar->widget(1)->isVisible());
    QCOMPARE(m_bar->sizeHint().width(), 3 * one);
}

void TestVxButtonBar::hideAndShowTransportItems()
{
    const QList<int> separators{1, 3, 6, 8, 11};
    QList<int> all;
    for (int index = 0; index <= 12; ++index) {
        all << index;
        if (separators.contains(index))
            m_bar->addSeparator(VxButtonBar::SmallSeparator, index);
        else
            add(index);
    }
    show();
    const int whole = m_bar->sizeHint().width();
    for (const int index : {4, 5, 6, 8, 9, 10})
        m_bar->hideItem(index);
    settle();
    QCOMPARE(order(all), QList<int>({0, 1, 2, 3, 7, 11, 12}));
    QCOMPARE(m_bar->sizeHint().width(),
             whole - 4 * m_bar->widget(0)->width() - 2 * m_bar->widget(1)->width());
    for (const int index : {4, 5, 6, 8, 9, 10})
        m_bar->showItem(index);
    settle();
    QCOMPARE(order(all), all);
    QCOMPARE(m_bar->sizeHint().width(), whole);
}

void TestVxButtonBar::itemsHiddenBeforeTheBarIsShown()
{
    add(0);
    add(1);
    m_bar->hideItem(0);
    show();
    QVERIFY(!m_bar->widget(0)->isVisible());
    QVERIFY(m_bar->widget(1)->isVisible());
    QCOMPARE(m_bar->widget(1)->x(), 0);
}

void TestVxButtonBar::itemStateDoesNotDependOnTheBar()
{
    add(0);
    add(1);
    m_bar->hideItem(1);
    QVERIFY(isShown(0));
    show();
    m_bar->hide();
    QVERIFY(isShown(0));
    QVERIFY(!isShown(1));
    m_bar->showItem(1);
    QVERIFY(isShown(1));
    QVERIFY(!m_bar->isVisible());
}

void TestVxButtonBar::unknownIndexIsIgnored()
{
    add(0);
    m_bar->hideItem(5);
    m_bar->showItem(5);
    QVERIFY(!isShown(5));
    QVERIFY(!m_bar->widget(5));
    QVERIFY(isShown(0));
}

void TestVxButtonBar::takenIndexIsRefused()
{
    VxBarButton *first = add(3);
    VxBarButton other;
    m_guard->expect("VxButtonBar \"TestBar\": nothing added at index 3: the index is in use");
    m_bar->addWidget(&other, 3);
    QVERIFY(!other.parentWidget());
    m_guard->expect("VxButtonBar \"TestBar\": nothing added at index 3: the index is in use");
    m_bar->addSeparator(VxButtonBar::LineSeparator, 3);
    QCOMPARE(m_bar->widget(3), first);
    QCOMPARE(m_bar->findChildren<QWidget *>().size(), 1);
}

void TestVxButtonBar::nullAndDoubleWidgetsAreRefused()
{
    VxBarButton *first = add(3);
    m_guard->expect("VxButtonBar \"TestBar\": nothing added at index 4: there is no widget to add");
    m_bar->addWidget(nullptr, 4);
    m_guard->expect(
        "VxButtonBar \"TestBar\": nothing added at index 5: the widget is already in the bar");
    m_bar->addWidget(first, 5);
    QVERIFY(!m_bar->widget(4) && !m_bar->widget(5));
    QCOMPARE(m_bar->widget(3), first);
}

void TestVxButtonBar::deletedWidgetFreesItsIndex()
{
    delete add(0);
    QVERIFY(!m_bar->widget(0));
    VxBarButton *second = add(0);
    QCOMPARE(m_bar->widget(0), second);
    const std::unique_ptr<QWidget> taken(second);
    taken->setParent(nullptr);
    QVERIFY(!m_bar->widget(0));
    add(1);
    add(0);
    show();
    QCOMPARE(order({0, 1}), QList<int>({0, 1}));
}

void TestVxButtonBar::separatorWidths()
{
    add(0);
    m_bar->addSeparator(VxButtonBar::SmallSeparator, 1);
    m_bar->addSeparator(VxButtonBar::LineSeparator, 2);
    m_bar->addSeparator(VxButtonBar::SpaceSeparator, 3);
    add(4);
    show();
    QCOMPARE(m_bar->widget(1)->width(), 1);
    QCOMPARE(m_bar->widget(2)->width(), 1);
    QVERIFY(m_bar->widget(3)->width() > 4);
    const auto drawn = [this](int index) {
        // In the bar, whose frame is below.
        const QWidget *separator = m_bar->widget(index);
        const QImage picture = pictureOf(*m_bar);
        const QColor ground = m_bar->palette().color(QPalette::Button);
        const QRect inside = separator->geometry().adjusted(0, 1, 0, -1);
        return inside.width() * inside.height() - countOf(picture, ground, inside);
    };
    QVERIFY(drawn(1) > 4);
    QVERIFY(drawn(2) > drawn(1));
    QCOMPARE(drawn(3), 0);
}

void TestVxButtonBar::outerButtonsKeepTheirRoundSides()
{
    const Qt::Edges left = Qt::LeftEdge;
    const Qt::Edges right = Qt::RightEdge;
    VxBarButton *first = add(0);
    QCOMPARE(first->joinedEdges(), Qt::Edges());
    VxBarButton *second = add(1);
    m_bar->addSeparator(VxButtonBar::SmallSeparator, 2);
    VxBarButton *last = add(3);
    QCOMPARE(first->joinedEdges(), right);
    QCOMPARE(second->joinedEdges(), left | right);
    QCOMPARE(last->joinedEdges(), left);
    m_bar->hideItem(3);
    m_bar->hideItem(2);
    QCOMPARE(second->joinedEdges(), left);
    m_bar->hideItem(0);
    QCOMPARE(second->joinedEdges(), Qt::Edges());
    m_bar->showItem(3);
    QCOMPARE(second->joinedEdges(), right);
    delete last;
    QCOMPARE(second->joinedEdges(), Qt::Edges());
}

void TestVxButtonBar::joinsFollowDirectHiding()
{
    VxBarButton *first = add(0);
    VxBarButton *second = add(1);
    show();
    first->hide();
    QVERIFY(!isShown(0));
    QTRY_COMPARE(second->joinedEdges(), Qt::Edges());
    first->show();
    QTRY_COMPARE(second->joinedEdges(), Qt::Edges(Qt::LeftEdge));
}

void TestVxButtonBar::rightToLeftMirrors()
{
    VxBarButton *first = add(0);
    VxBarButton *second = add(1);
    m_bar->setLayoutDirection(Qt::RightToLeft);
    show();
    QVERIFY(first->x() > second->x());
    QCOMPARE(first->joinedEdges(), Qt::Edges(Qt::LeftEdge));
    QCOMPARE(second->joinedEdges(), Qt::Edges(Qt::RightEdge));
}

void TestVxButtonBar::barIsAsWideAsItsItems()
{
    add(0);
    add(1)->setMaximumSize(20, 22);
    show();
    QCOMPARE(m_bar->widget(1)->width(), 20);
    QCOMPARE(m_bar->width(), m_bar->widget(0)->width() + m_bar->widget(1)->width());
    QCOMPARE(m_bar->height(), hostStyle().metric(VxStyle::PM_VxControlHeight));
    QCOMPARE(m_bar->geometry().bottom(), 59);
    m_bar->hideItem(0);
    QTRY_COMPARE(m_bar->width(), m_bar->widget(1)->width());
}

void TestVxButtonBar::otherWidgetsMayBeItems()
{
    auto *spin = new QSpinBox;
    add(0);
    m_bar->addWidget(spin, 1);
    show();
    QCOMPARE(m_bar->widget(1), spin);
    QVERIFY(spin->isVisible());
}

void TestVxButtonBar::oneFrameAroundAll_data()
{
    QTest::addColumn<VxStyle::ColorScheme>("scheme");
    QTest::newRow("dark") << VxStyle::ColorScheme::Dark;
    QTest::newRow("light") << VxStyle::ColorScheme::Light;
}

void TestVxButtonBar::oneFrameAroundAll()
{
    QFETCH(VxStyle::ColorScheme, scheme);
    useHostStyle(scheme);
    for (int i = 0; i < 3; ++i)
        add(i)->setIcon(QIcon());
    show();
    VxMouseDriver(m_bar).moveTo(QPoint(-10, -10));
    const QImage picture = pictureOf(*m_bar);
    const QColor ground = m_bar->palette().color(QPalette::Button);
    // Two rounded ends, an edge above and below, and nothing between the buttons.
    const QRect inside = m_bar->rect().adjusted(3, 3, -3, -3);
    QCOMPARE(countOf(picture, ground, inside), inside.width() * inside.height());
    QVERIFY(picture.pixelColor(0, 11) != ground);
    QVERIFY(picture.pixelColor(m_bar->width() - 1, 11) != ground);
    QVERIFY(picture.pixelColor(m_bar->width() / 2, 0) != ground);
    QVERIFY(picture.pixelColor(0, 0) != picture.pixelColor(0, 11));

    // The fill of a pressed button in the middle ends at its sides.
    auto *middle = qobject_cast<VxBarButton *>(m_bar->widget(1));
    middle->setDown(true);
    const QRect changed = differenceOf(pictureOf(*m_bar), picture);
    QCOMPARE(changed.left(), middle->x());
    QCOMPARE(changed.right(), middle->geometry().right());
}

void TestVxButtonBar::emptyBarIsInvisible()
{
    add(0);
    m_bar->hideItem(0);
    QCOMPARE(m_bar->sizeHint().width(), 0);
    m_bar->setFixedSize(30, 20);
    show();
    const QImage picture = pictureOf(*m_bar);
    QCOMPARE(countOf(picture, m_bar->palette().color(QPalette::Window), picture.rect()), 600);
    m_bar->showItem(0);
    QVERIFY(pictureOf(*m_bar) != picture);
}

void TestVxButtonBar::styleSheetPaintsTheBar()
{
    add(0)->setIcon(QIcon());
    m_bar->setStyleSheet("#TestBar { background: #402010; }");
    show();
    QCOMPARE(pictureOf(*m_bar).pixelColor(m_bar->rect().center()), QColor(0x40, 0x20, 0x10));
}

VX_TEST_MAIN(TestVxButtonBar)
#include "tst_vxbuttonbar.moc"
