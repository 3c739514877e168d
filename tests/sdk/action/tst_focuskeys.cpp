#include "action/focuskeys.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtTest>
#include <memory>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

class CountingAction : public VxAction
{
public:
    explicit CountingAction(const QKeySequence &shortcut)
        : VxAction(QStringLiteral("Count"))
    {
        setShortcut(shortcut);
    }
    int runs = 0;

protected:
    void executeAction() override { ++runs; }
};

const struct
{
    int key;
    char letter; // for short tables
} allKeys[] = {{Qt::Key_Left, 'L'},   {Qt::Key_Right, 'R'},     {Qt::Key_Home, 'H'},
               {Qt::Key_End, 'E'},    {Qt::Key_Up, 'U'},        {Qt::Key_Down, 'D'},
               {Qt::Key_PageUp, 'P'}, {Qt::Key_PageDown, 'N'},  {Qt::Key_Space, ' '},
               {Qt::Key_Delete, 'x'}, {Qt::Key_Backspace, 'b'}, {Qt::Key_K, 'k'},
               {Qt::Key_F5, 'f'},     {Qt::Key_Escape, 'c'},    {Qt::Key_Return, 'r'}};

QWidget *make(const QString &kind)
{
    if (kind.startsWith("line edit")) {
        auto *edit = new QLineEdit;
        edit->setReadOnly(kind.contains("read-only"));
        return edit;
    }
    if (kind == "spin box")
        return new QSpinBox;
    if (kind == "decimal spin box")
        return new QDoubleSpinBox;
    if (kind == "plain text")
        return new QPlainTextEdit;
    if (kind == "rich text")
        return new QTextEdit;
    if (kind.startsWith("tree")) {
        auto *tree = new QTreeView;
        tree->setProperty(FocusKeys::timeAxisProperty, kind.contains("time"));
        return tree;
    }
    if (kind == "slider")
        return new QSlider;
    if (kind.startsWith("box")) {
        auto *box = new QComboBox;
        box->setEditable(kind.contains("editable"));
        return box;
    }
    if (kind == "tabs")
        return new QTabBar;
    return kind.startsWith("check box") ? new QCheckBox : new QWidget;
}

} // namespace

/// Who gets a plain key: the widget with the focus or the shortcut.
class TestFocusKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void kept_data();
    void kept();
    void keptWithModifiers_data();
    void keptWithModifiers();
    void noWidget();

    void lineEditEdits();
    void spinBoxEdits();
    void textEdits();
    void treeWalks();
    void treeAlongTime();
    void sliderSlides();
    void clickedButtonLeavesTheSpaceBar();
    void tabbedButtonKeepsTheSpaceBar();
    void returningFocusKeepsItsReason();
    void nothingSpecialHasTheFocus();
    void nearestOfTwoCommands();
    void disabledNearCommand();

private:
    CountingAction *addShortcut(const QKeySequence &shortcut);
    template <class Widget> Widget *addFocused();
    void type(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxActionMgr> m_actions;
    std::unique_ptr<QWidget> m_window;
    std::vector<std::unique_ptr<CountingAction>> m_shortcuts;
};

void TestFocusKeys::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_actions = std::make_unique<VxActionMgr>();
    m_window = std::make_unique<QWidget>();
    new QVBoxLayout(m_window.get());
    m_window->setFocusPolicy(Qt::StrongFocus);
}

void TestFocusKeys::cleanup()
{
    m_window.reset();
    m_shortcuts.clear();
    m_actions.reset();
    m_guard.reset();
}

CountingAction *TestFocusKeys::addShortcut(const QKeySequence &shortcut)
{
    m_shortcuts.push_back(std::make_unique<CountingAction>(shortcut));
    m_window->addAction(m_shortcuts.back().get());
    return m_shortcuts.back().get();
}

template <class Widget> Widget *TestFocusKeys::addFocused()
{
    auto *widget = new Widget;
    m_window->layout()->addWidget(widget);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the window does not become active");
    widget->setFocus(Qt::MouseFocusReason);
    return widget;
}

void TestFocusKeys::type(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void TestFocusKeys::kept_data()
{
    QTest::addColumn<bool>("tabbedTo");
    QTest::addColumn<QString>("kept");
    QTest::newRow("line edit") << false << "LRHEUDPN xbk";
    QTest::newRow("line edit, read-only") << false << "LRHEUDPN";
    QTest::newRow("spin box") << false << "LRHEUDPN xbk";
    QTest::newRow("decimal spin box") << false << "LRHEUDPN xbk";
    QTest::newRow("plain text") << false << "LRHEUDPN xbk";
    QTest::newRow("rich text") << false << "LRHEUDPN xbk";
    QTest::newRow("tree") << false << "LRHEUDPN";
    QTest::newRow("tree along time") << false << "UDPN";
    QTest::newRow("slider") << false << "LRHEUDPN";
    QTest::newRow("box") << false << "LRHEUDPN";
    QTest::newRow("box, editable") << false << "LRHEUDPN xbk";
    QTest::newRow("tabs") << false << "LRHE";
    QTest::newRow("box that was tabbed to") << true << "LRHEUDPN ";
    QTest::newRow("check box") << false << "";
    QTest::newRow("check box that was tabbed to") << true << " ";
    QTest::newRow("plain widget") << true << "";
}

void TestFocusKeys::kept()
{
    QFETCH(bool, tabbedTo);
    QFETCH(QString, kept);
    const std::unique_ptr<QWidget> widget(make(QTest::currentDataTag()));
    QString found;
    QString shifted;
    for (const auto &entry : allKeys) {
        if (FocusKeys::areKept(widget.get(), entry.key, Qt::NoModifier, tabbedTo))
            found += QLatin1Char(entry.letter);
        if (FocusKeys::areKept(widget.get(), entry.key, Qt::ShiftModifier, tabbedTo))
            shifted += QLatin1Char(entry.letter);
    }
    QCOMPARE(found, kept);
    QCOMPARE(shifted, kept);
}

void TestFocusKeys::keptWithModifiers_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("kept");
    QTest::newRow("none") << int(Qt::NoModifier) << true;
    QTest::newRow("keypad") << int(Qt::KeypadModifier) << true;
    QTest::newRow("Ctrl") << int(Qt::ControlModifier) << false;
    QTest::newRow("Alt") << int(Qt::AltModifier) << false;
    QTest::newRow("Meta and Shift") << int(Qt::MetaModifier | Qt::ShiftModifier) << false;
}

void TestFocusKeys::keptWithModifiers()
{
    QFETCH(int, modifiers);
    QFETCH(bool, kept);
    const QLineEdit edit;
    QCOMPARE(FocusKeys::areKept(&edit, Qt::Key_Left, Qt::KeyboardModifiers(modifiers), false),
             kept);
}

void TestFocusKeys::noWidget()
{
    QVERIFY(!FocusKeys::areKept(nullptr, Qt::Key_Left, Qt::NoModifier, true));
}

void TestFocusKeys::lineEditEdits()
{
    const QKeySequence shortcuts[] = {
        Qt::Key_Left,       Qt::Key_Home, Qt::Key_Space,           Qt::Key_Delete,
        Qt::Key_K,          Qt::Key_End,  Qt::CTRL | Qt::Key_Left, QKeySequence::Copy,
        QKeySequence::Paste};
    for (const QKeySequence &shortcut : shortcuts)
        addShortcut(shortcut);
    auto *edit = addFocused<QLineEdit>();
    edit->setText("one two");
    edit->deselect();
    type(Qt::Key_Left);
    type(Qt::Key_K);
    QCOMPARE(edit->text(), QString("one twko"));
    type(Qt::Key_Home);
    type(Qt::Key_Delete);
    type(Qt::Key_Space);
    QCOMPARE(edit->text(), QString(" ne twko"));
    type(Qt::Key_End);
    type(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(edit->cursorPosition(), 4);
    type(Qt::Key_End, Qt::ShiftModifier);
    type(Qt::Key_C, Qt::ControlModifier);
    type(Qt::Key_End);
    type(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit->text(), QString(" ne twkotwko"));
    for (const auto &shortcut : m_shortcuts)
        QVERIFY2(shortcut->runs == 0, qPrintable(shortcut->shortcut().toString()));
}

void TestFocusKeys::spinBoxEdits()
{
    for (const int key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Space, Qt::Key_Delete, Qt::Key_Up,
                          Qt::Key_Down, Qt::Key_PageUp})
        addShortcut(QKeySequence(key));
    auto *box = addFocused<QSpinBox>();
    box->setRange(0, 1000);
    box->setValue(25);
    box->findChild<QLineEdit *>()->deselect();
    type(Qt::Key_Home);
    type(Qt::Key_Delete);
    QCOMPARE(box->text(), QString("5"));
    type(Qt::Key_Up);
    QCOMPARE(box->value(), 6);
    type(Qt::Key_Down);
    type(Qt::Key_PageUp);
    QCOMPARE(box->value(), 15);
    type(Qt::Key_Space);
    type(Qt::Key_Left);
    for (const auto &shortcut : m_shortcuts)
        QVERIFY2(shortcut->runs == 0, qPrintable(shortcut->shortcut().toString()));
}

void TestFocusKeys::textEdits()
{
    for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Home, Qt::Key_Space})
        addShortcut(QKeySequence(key));
    auto *edit = addFocused<QPlainTextEdit>();
    edit->setPlainText("ab\ncd");
    type(Qt::Key_Down);
    type(Qt::Key_End);
    type(Qt::Key_Left);
    type(Qt::Key_Space);
    type(Qt::Key_Up);
    type(Qt::Key_Home);
    type(Qt::Key_X);
    QCOMPARE(edit->toPlainText(), QString("xab\nc d"));
    for (const auto &shortcut : m_shortcuts)
        QVERIFY2(shortcut->runs == 0, qPrintable(shortcut->shortcut().toString()));
}

void TestFocusKeys::treeWalks()
{
    const CountingAction *left = addShortcut(QKeySequence(Qt::Key_Left));
    const CountingAction *space = addShortcut(QKeySequence(Qt::Key_Space));
    QStandardItemModel model;
    auto *parent = new QStandardItem("parent");
    parent->appendRow(new QStandardItem("child"));
    model.appendRow(parent);
    auto *tree = addFocused<QTreeView>();
    tree->setModel(&model);
    tree->setCurrentIndex(parent->index());
    tree->expand(parent->index());
    type(Qt::Key_Left);
    QVERIFY(!tree->isExpanded(parent->index()));
    QCOMPARE(left->runs, 0);
    type(Qt::Key_Space);
    QCOMPARE(space->runs, 1);
    tree->setModel(nullptr);
}

void TestFocusKeys::treeAlongTime()
{
    const CountingAction *left = addShortcut(QKeySequence(Qt::Key_Left));
    const CountingAction *down = addShortcut(QKeySequence(Qt::Key_Down));
    QStandardItemModel model;
    model.appendRow(new QStandardItem("first"));
    model.appendRow(new QStandardItem("second"));
    auto *tree = addFocused<QTreeView>();
    tree->setProperty(FocusKeys::timeAxisProperty, true);
    tree->setModel(&model);
    tree->setCurrentIndex(model.index(0, 0));
    type(Qt::Key_Left);
    QCOMPARE(left->runs, 1);
    type(Qt::Key_Down);
    QCOMPARE(tree->currentIndex().row(), 1);
    QCOMPARE(down->runs, 0);
    tree->setModel(nullptr);
}

void TestFocusKeys::sliderSlides()
{
    const CountingAction *right = addShortcut(QKeySequence(Qt::Key_Right));
    const auto *slider = addFocused<QSlider>();
    type(Qt::Key_Right);
    QCOMPARE(slider->value(), 1);
    QCOMPARE(right->runs, 0);
}

void TestFocusKeys::clickedButtonLeavesTheSpaceBar()
{
    const CountingAction *space = addShortcut(QKeySequence(Qt::Key_Space));
    auto *box = addFocused<QCheckBox>();
    VxMouseDriver(box).click(QPoint(8, box->height() / 2));
    QVERIFY(box->isChecked());
    QCOMPARE(QApplication::focusWidget(), box);
    type(Qt::Key_Space);
    QCOMPARE(space->runs, 1);
    QVERIFY(box->isChecked());
}

void TestFocusKeys::tabbedButtonKeepsTheSpaceBar()
{
    const CountingAction *space = addShortcut(QKeySequence(Qt::Key_Space));
    addFocused<QLineEdit>();
    auto *box = new QCheckBox;
    m_window->layout()->addWidget(box);
    box->show();
    type(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), box);
    type(Qt::Key_Space);
    QVERIFY(box->isChecked());
    QCOMPARE(space->runs, 0);
}

// From a menu or another window: who was tabbed to still is, who was clicked was not.
void TestFocusKeys::returningFocusKeepsItsReason()
{
    const CountingAction *space = addShortcut(QKeySequence(Qt::Key_Space));
    auto *box = addFocused<QCheckBox>();
    for (const Qt::FocusReason back : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        for (const bool tabbed : {true, false}) {
            const int runs = space->runs;
            const bool checked = box->isChecked();
            QFocusEvent first(QEvent::FocusIn, tabbed ? Qt::TabFocusReason : Qt::MouseFocusReason);
            QCoreApplication::sendEvent(box, &first);
            QFocusEvent again(QEvent::FocusIn, back);
            QCoreApplication::sendEvent(box, &again);
            type(Qt::Key_Space);
            QCOMPARE(box->isChecked(), checked != tabbed);
            QCOMPARE(space->runs, runs + (tabbed ? 0 : 1));
        }
    }
}

void TestFocusKeys::nothingSpecialHasTheFocus()
{
    const CountingAction *left = addShortcut(QKeySequence(Qt::Key_Left));
    const CountingAction *erase = addShortcut(QKeySequence(Qt::Key_Delete));
    auto *widget = addFocused<QWidget>();
    widget->setFocusPolicy(Qt::ClickFocus);
    widget->setFocus(Qt::MouseFocusReason);
    type(Qt::Key_Left);
    type(Qt::Key_Delete);
    QCOMPARE(left->runs, 1);
    QCOMPARE(erase->runs, 1);
}

// Delete in a list deletes what the list shows, not the keys of another pane.
void TestFocusKeys::nearestOfTwoCommands()
{
    const CountingAction *far = addShortcut(QKeySequence(Qt::Key_Delete));
    auto *pane = addFocused<QWidget>();
    auto *list = new QTreeView(pane);
    list->show();
    list->setFocus(Qt::MouseFocusReason);
    CountingAction near(QKeySequence(Qt::Key_Delete));
    near.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    pane->addAction(&near);
    type(Qt::Key_Delete);
    type(Qt::Key_Delete);
    QCOMPARE(near.runs, 2);
    QCOMPARE(far->runs, 0);
}

void TestFocusKeys::disabledNearCommand()
{
    const CountingAction *far = addShortcut(QKeySequence(Qt::Key_Delete));
    auto *pane = addFocused<QTreeView>();
    CountingAction near(QKeySequence(Qt::Key_Delete));
    near.setShortcutContext(Qt::WidgetShortcut);
    near.setEnabled(false);
    pane->addAction(&near);
    type(Qt::Key_Delete);
    QCOMPARE(near.runs, 0);
    QCOMPARE(far->runs, 1);
}

VX_TEST_MAIN(TestFocusKeys)
#include "tst_focuskeys.moc"
