// The key cursor of the timeline in the whole program: the keyboard does what the mouse does.

#include "studiotestbase.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"

#include <QTimer>
#include <QTreeView>
#include <QtMath>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostackhold.h>

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : qPow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The contrast ratio of the web accessibility guidelines: 1 for the same colour, 21 at most.
double contrast(const QColor &a, const QColor &b)
{
    const double lighter = qMax(luminance(a), luminance(b));
    const double darker = qMin(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

/// Such as "5 10* 20": the frames of a property's keys, with a star for the selected ones.
QString keysOf(VxProperty *property)
{
    QStringList texts;
    const std::vector<VxKeySpan> spans = vxApp->getKeySelection()->spansOf(property);
    for (int i = 0; i < property->getNumKeys(); ++i) {
        QString text = QString::number(property->getKeyTime(i) / double(Frame));
        for (const VxKeySpan &span : spans)
            text += i >= span.first && i < span.last ? "*" : "";
        texts += text;
    }
    return texts.join(' ');
}

} // namespace

class tst_KeyCursor : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void beginsAtTheCurrentRow();
    void escapeGivesTheFocusBack();
    void arrowsMoveAmongKeysAndRows();
    void rowsAreOpenedAndClosed();
    void spaceAndReturnSelect();
    void shiftExtendsTheSelection();
    void grabAndMove();
    void grabAndCancel();
    void graph();
    void values();
    void contextMenu();
    void shortcutsStillWork();
    void endsWhenTheFocusLeaves();
    void rowsThatDisappear();
    void emptyScene();
    void ringIsVisible_data();
    void ringIsVisible();
    void viewsStayAsTheyAre();
    void historyHolds_data();
    void historyHolds();

private:
    QTreeView *sheet() const { return inTimePane<QTreeView>("TimelineDopeSheetTView"); }
    QWidget *cursor() const { return inTimePane<QWidget>("TimelineKeyCursor"); }
    QString text() const { return cursor()->accessibleDescription(); }
    QModelIndex row(const char *name, const QModelIndex &parent = QModelIndex()) const;
    void begin() const;
    void types(std::initializer_list<int> keys) const
    {
        for (const int key : keys)
            type(key);
    }
    QPoint centreOf(const QRect &global) const { return global.center(); }
    // All keys, values and times of the scene.
    static QString scenePrint();
    static bool keysAreSound();

    VxNode *m_leg = nullptr;
    VxNode *m_arm = nullptr;
    VxFloatProperty *m_x = nullptr;
    VxFloatProperty *m_y = nullptr;
};

// The leg's X translation has keys at the frames 5, 10 and 20, its Y translation at 10 and 30; the
// arm's X translation at 8. The row of the leg's X translation is the current one.
void tst_KeyCursor::init()
{
    setUp();
    start();
    m_leg = new VxNode("leg");
    m_arm = new VxNode("arm");
    vxScene->addNode(m_leg);
    vxScene->addNode(m_arm);
    m_x = m_leg->getXPosControl();
    m_y = m_leg->getYPosControl();
    for (const int frame : {5, 10, 20})
        m_x->setKey(frame * Frame, float(frame), VxKeyInterp::Linear);
    for (const int frame : {10, 30})
        m_y->setKey(frame * Frame, float(-frame), VxKeyInterp::Linear);
    m_arm->getXPosControl()->setKey(8 * Frame, 1, VxKeyInterp::Linear);
    vxScene->setAnimRange({0, 60 * Frame});
    vxScene->setPlayRange({0, 60 * Frame});
    vxScene->setTime(4 * Frame);
    vxApp->getScriptEngine()->evaluate(
        QStringLiteral("var pane = App.findPane('VxTimePane'); pane.setViewMode(2);"
                       "pane.setKeyGraphOpen(true)"),
        QStringLiteral("test"), nullptr);
    QCoreApplication::processEvents();
    sheet()->expandAll();
    sheet()->setFocus();
    sheet()->setCurrentIndex(row("X Translate"));
    QCoreApplication::processEvents();
    vxApp->getUndoStack()->clear();
}

QModelIndex tst_KeyCursor::row(const char *name, const QModelIndex &parent) const
{
    const QModelIndex from = parent.isValid() ? parent : sheet()->model()->index(0, 0);
    const QModelIndexList found = sheet()->model()->match(from, Qt::DisplayRole, name, 1,
                                                          Qt::MatchRecursive | Qt::MatchExactly);
    if (found.isEmpty())
        qFatal("no row %s", name);
    return found.constFirst();
}

void tst_KeyCursor::begin() const
{
    type(Qt::Key_K, Qt::ShiftModifier);
    QVERIFY(cursor()->isVisible());
    QVERIFY(cursor()->hasFocus());
}

void tst_KeyCursor::beginsAtTheCurrentRow()
{
    begin();
    QCOMPARE(text(), QString("Keys of X Translate, Frame 5, 5, Linear"));
    QCOMPARE(vxScene->getTime(), 4 * Frame);
    QVERIFY(vxApp->getKeySelection()->entries().empty());
}

void tst_KeyCursor::escapeGivesTheFocusBack()
{
    begin();
    type(Qt::Key_Escape);
    QVERIFY(!cursor()->isVisible());
    QCOMPARE(QApplication::focusWidget(), sheet());
    // From another pane, too: the command is in the menu.
    window()->viewport()->setFocus();
    action("VxKeyToolsKeyCursorAction")->trigger();
    QVERIFY(cursor()->hasFocus());
    type(Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(window()->viewport()));
}

void tst_KeyCursor::arrowsMoveAmongKeysAndRows()
{
    begin();
    type(Qt::Key_Right);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 10, 10, Linear"));
    type(Qt::Key_End);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 20, 20, Linear"));
    type(Qt::Key_Right);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 20, 20, Linear"));
    // The key of the next row that is nearest in time; back where it was.
    type(Qt::Key_Down);
    QCOMPARE(text(), QString("Keys of Y Translate, Frame 30, -30, Linear"));
    type(Qt::Key_Up);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 20, 20, Linear"));
    type(Qt::Key_Home);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 5, 5, Linear"));
    types({Qt::Key_Down, Qt::Key_Down});
    QCOMPARE(text(), QString("Keys of Z Translate, no keys"));
    types({Qt::Key_PageUp});
    QCOMPARE(text(), QString("Keys of leg, open: its keys are in the rows below"));
    // The time does not move: arrows are no shortcuts here.
    QCOMPARE(vxScene->getTime(), 4 * Frame);
}

void tst_KeyCursor::rowsAreOpenedAndClosed()
{
    begin();
    type(Qt::Key_PageUp);
    type(Qt::Key_Left, Qt::AltModifier);
    QVERIFY(!sheet()->isExpanded(row("leg")));
    QCOMPARE(text(), QString("Keys of leg, Frame 5"));
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    QCOMPARE(keysOf(m_x), QString("5 10* 20"));
    QCOMPARE(keysOf(m_y), QString("10* 30"));
    type(Qt::Key_Right, Qt::AltModifier);
    QVERIFY(sheet()->isExpanded(row("leg")));
}

void tst_KeyCursor::spaceAndReturnSelect()
{
    begin();
    type(Qt::Key_Space);
    QCOMPARE(keysOf(m_x), QString("5* 10 20"));
    QCOMPARE(text(), QString("Keys of X Translate, Frame 5, 5, Linear, selected"));
    types({Qt::Key_End, Qt::Key_Space});
    QCOMPARE(keysOf(m_x), QString("5* 10 20*"));
    type(Qt::Key_Space);
    QCOMPARE(keysOf(m_x), QString("5* 10 20"));
    types({Qt::Key_Left, Qt::Key_Return});
    QCOMPARE(keysOf(m_x), QString("5 10* 20"));
    QVERIFY(!vxScene->isPlaying());
    type(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(vxScene->getTime(), 10 * Frame);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void tst_KeyCursor::shiftExtendsTheSelection()
{
    begin();
    type(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5* 10* 20"));
    type(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5* 10* 20"));
    QCOMPARE(keysOf(m_y), QString("10* 30"));
    type(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5* 10* 20*"));
    QCOMPARE(keysOf(m_y), QString("10* 30*"));
    // Back over the beginning.
    type(Qt::Key_Home, Qt::ShiftModifier);
    type(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_y), QString("10 30"));
    // A plain step keeps the selection, and the next extension begins there.
    type(Qt::Key_End);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 20, 20, Linear"));
    type(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5 10* 20*"));
}

void tst_KeyCursor::grabAndMove()
{
    begin();
    types({Qt::Key_Right, Qt::Key_Return, Qt::Key_G, Qt::Key_Right, Qt::Key_Right});
    QCOMPARE(keysOf(m_x), QString("5 12* 20"));
    type(Qt::Key_Left);
    type(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5 20 21*"));
    QVERIFY(cursor()->isVisible());
    type(Qt::Key_Left, Qt::ShiftModifier);
    type(Qt::Key_Return);
    QCOMPARE(keysOf(m_x), QString("5 11* 20"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QVERIFY(cursor()->hasFocus());
    QTRY_COMPARE(text(), QString("Keys of X Translate, Frame 11, 10, Linear, selected"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keysOf(m_x), QString("5 10* 20"));
}

void tst_KeyCursor::grabAndCancel()
{
    begin();
    types({Qt::Key_Return, Qt::Key_G, Qt::Key_Right});
    QCOMPARE(keysOf(m_x), QString("6* 10 20"));
    type(Qt::Key_Escape);
    QCOMPARE(keysOf(m_x), QString("5* 10 20"));
    QVERIFY(cursor()->hasFocus());
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    type(Qt::Key_Escape);
    QVERIFY(!cursor()->isVisible());
}

void tst_KeyCursor::graph()
{
    m_leg->select(true);
    QItemSelection both;
    both.select(row("X Translate"), row("Y Translate"));
    sheet()->selectionModel()->select(both, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
    QCoreApplication::processEvents();
    begin();
    type(Qt::Key_Tab);
    QCOMPARE(text(), QString("leg: X Translate, Frame 5, 5, Linear"));
    types({Qt::Key_End, Qt::Key_Down});
    QCOMPARE(text(), QString("leg: Y Translate, Frame 30, -30, Linear"));
    type(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5 10 20*"));
    QCOMPARE(keysOf(m_y), QString("10 30*"));
    type(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(keysOf(m_x), QString("5* 10* 20*"));
    QCOMPARE(keysOf(m_y), QString("10* 30*"));
    type(Qt::Key_Tab);
    QCOMPARE(text(), QString("Keys of X Translate, Frame 5, 5, Linear, selected"));
    // Begun in the graph, it stays there.
    type(Qt::Key_Escape);
    inTimePane<QWidget>("TimelineKeyGraphView")->setFocus();
    begin();
    QVERIFY(text().startsWith("leg: X Translate"));
}

void tst_KeyCursor::values()
{
    begin();
    types({Qt::Key_Return, Qt::Key_V, Qt::Key_Up, Qt::Key_Up});
    const float raised = m_x->getKeyValue(0);
    QVERIFY2(raised > 5, qPrintable(QString::number(double(raised))));
    type(Qt::Key_Down);
    QVERIFY(m_x->getKeyValue(0) < raised);
    QVERIFY(m_x->getKeyValue(0) > 5);
    type(Qt::Key_Return);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(m_x->getKeyValue(0), 5.0f);
}

void tst_KeyCursor::contextMenu()
{
    begin();
    bool seen = false;
    QTimer closer;
    connect(&closer, &QTimer::timeout, &closer, [&] {
        if (QWidget *menu = QApplication::activePopupWidget()) {
            seen = true;
            menu->close();
        }
    });
    closer.start(5);
    type(Qt::Key_Menu);
    QVERIFY(seen);
    QVERIFY(cursor()->isVisible());
    seen = false;
    type(Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(seen);
}

void tst_KeyCursor::shortcutsStillWork()
{
    begin();
    types({Qt::Key_Return, Qt::Key_Delete});
    QCOMPARE(keysOf(m_x), QString("10 20"));
    QVERIFY(cursor()->hasFocus());
    // The cursor is at the nearest key that is left.
    type(Qt::Key_Return);
    QCOMPARE(keysOf(m_x), QString("10* 20"));
    type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_x->getNumKeys(), 3);
}

void tst_KeyCursor::endsWhenTheFocusLeaves()
{
    begin();
    window()->viewport()->setFocus();
    QVERIFY(!cursor()->isVisible());
    sheet()->setFocus();
    begin();
    inTimePane<QWidget>("TimelineKeyGraphView")->setFocus();
    QVERIFY(!cursor()->isVisible());
    begin();
    timePane()->parentWidget()->hide();
    QVERIFY(!cursor()->isVisible());
}

void tst_KeyCursor::rowsThatDisappear()
{
    begin();
    vxScene->removeNode(m_leg);
    QCoreApplication::processEvents();
    types({Qt::Key_Right, Qt::Key_Space, Qt::Key_Down, Qt::Key_Return});
    QVERIFY(cursor()->isVisible());
    vxScene->clear();
    QCoreApplication::processEvents();
    types({Qt::Key_Right, Qt::Key_Space, Qt::Key_Down, Qt::Key_Return});
    type(Qt::Key_Escape);
    QVERIFY(!cursor()->isVisible());
}

void tst_KeyCursor::emptyScene()
{
    vxScene->removeNode(m_leg);
    vxScene->removeNode(m_arm);
    QCoreApplication::processEvents();
    sheet()->setFocus();
    type(Qt::Key_K, Qt::ShiftModifier);
    QVERIFY(!cursor()->isVisible());
    QCOMPARE(QApplication::focusWidget(), sheet());
}

void tst_KeyCursor::ringIsVisible_data()
{
    QTest::addColumn<bool>("light");
    QTest::newRow("dark palette") << false;
    QTest::newRow("light palette") << true;
}

void tst_KeyCursor::ringIsVisible()
{
    QFETCH(bool, light);
    vxApp->getStyle()->setColorScheme(light ? VxStyle::ColorScheme::Light
                                            : VxStyle::ColorScheme::Dark);
    QCoreApplication::processEvents();
    QWidget *views = cursor()->parentWidget();
    const QImage without = views->grab().toImage();
    begin();
    type(Qt::Key_Right);
    const QImage with = views->grab().toImage();
    // Beside the key, at its height, there is a line that contrasts with what was there.
    const QModelIndex cell = row("X Translate").sibling(row("X Translate").row(), 1);
    const QRect rect = sheet()->visualRect(cell);
    const int y = sheet()->viewport()->mapTo(views, rect.center()).y();
    int strong = 0;
    for (int x = sheet()->columnViewportPosition(1); x < with.width(); ++x) {
        if (contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= 3)
            ++strong;
    }
    QVERIFY2(strong >= 4 && strong < 20, qPrintable(QString::number(strong)));
}

void tst_KeyCursor::viewsStayAsTheyAre()
{
    QWidget *views = cursor()->parentWidget();
    const QImage before = views->grab().toImage();
    begin();
    types({Qt::Key_Right, Qt::Key_Down, Qt::Key_Up});
    QVERIFY(views->grab().toImage() != before);
    type(Qt::Key_Escape);
    QCOMPARE(views->grab().toImage(), before);
}

QString tst_KeyCursor::scenePrint()
{
    QString print;
    for (const VxNode *node : vxScene->getNodes()) {
        print += node->objectName() + ':';
        for (VxProperty *property : node->getMadeProperties()) {
            const auto *number = qobject_cast<const VxFloatProperty *>(property);
            for (int i = 0; number && i < number->getNumKeys(); ++i)
                print += QStringLiteral("%1=%2 ")
                             .arg(number->getKeyTime(i))
                             .arg(double(number->getKeyValue(i)));
        }
    }
    return print;
}

bool tst_KeyCursor::keysAreSound()
{
    for (const VxNode *node : vxScene->getNodes()) {
        for (VxProperty *property : node->getMadeProperties()) {
            const auto *number = qobject_cast<const VxFloatProperty *>(property);
            for (int i = 0; number && i < number->getNumKeys(); ++i) {
                if (!qIsFinite(number->getKeyValue(i)) ||
                    (i > 0 && number->getKeyTime(i) <= number->getKeyTime(i - 1)))
                    return false;
            }
        }
    }
    return true;
}

void tst_KeyCursor::historyHolds_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_KeyCursor::historyHolds()
{
    QFETCH(uint, seed);
    std::mt19937 random(seed);
    const auto any = [&random](int low, int high) {
        return std::uniform_int_distribution<>(low, high)(random);
    };
    VxSceneBuilder builder(vxScene, seed);
    VxNode *special = builder.addNode(QStringLiteral("special"));
    builder.keyChannels({special}, 6, 5 * Frame, VxSceneBuilder::KeyTypes::Mixed);
    builder.addSpecialProperties(special);
    QCoreApplication::processEvents();
    sheet()->expandAll();
    vxApp->getUndoStack()->clear();
    const QString start = scenePrint();
    const int keys[] = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                        Qt::Key_Home,   Qt::Key_End,    Qt::Key_Space,    Qt::Key_Space,
                        Qt::Key_Return, Qt::Key_G,      Qt::Key_G,        Qt::Key_V,
                        Qt::Key_Tab,    Qt::Key_Escape, Qt::Key_PageDown, Qt::Key_Delete};
    // Deleted keys are restored, so that there are keys to the end of a long session.
    QSignalSpy entries(vxApp->getUndoStack(), &VxUndoStack::indexChanged);
    for (int step = 0; step < vxSessionLength(400); ++step) {
        if (step % 50 == 49)
            vxApp->getUndoStack()->setIndex(vxApp->getUndoStack()->index() / 2);
        const auto *gesture = timePane()->findChild<QWidget *>("KeyGesture");
        if (!cursor()->hasFocus() && !(gesture && gesture->hasFocus()))
            action("VxKeyToolsKeyCursorAction")->trigger();
        const int key = keys[any(0, int(std::size(keys)) - 1)];
        type(key, any(0, 3) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        // Most gestures are continued by some steps, and accepted.
        if ((key == Qt::Key_G || key == Qt::Key_V) && any(0, 3) > 0) {
            const int along = key == Qt::Key_G ? Qt::Key_Right : Qt::Key_Up;
            const int back = key == Qt::Key_G ? Qt::Key_Left : Qt::Key_Down;
            for (int i = any(1, 3); i > 0; --i)
                type(any(0, 2) == 0 ? back : along);
            type(any(0, 4) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        }
        if (any(0, 30) == 0)
            vxApp->getUndoStack()->undo();
        if (any(0, 60) == 0 && vxScene->getNumNodes() > 1 && !cursor()->hasFocus()) {
            VxUndoStackHold hold;
            vxScene->removeNode(vxScene->getNodes().last());
            hold.accept(QStringLiteral("Remove"));
        }
        if (any(0, 10) == 0)
            QCoreApplication::processEvents();
        QVERIFY2(keysAreSound(), qPrintable(QStringLiteral("step %1").arg(step)));
    }
    types({Qt::Key_Escape, Qt::Key_Escape});
    QVERIFY(!cursor()->isVisible());
    QVERIFY2(entries.count() >= vxSessionLength(20), qPrintable(QString::number(entries.count())));
    // Undone steps can be redone, too.
    while (vxApp->getUndoStack()->canRedo())
        vxApp->getUndoStack()->redo();
    const QString end = scenePrint();
    while (vxApp->getUndoStack()->canUndo())
        vxApp->getUndoStack()->undo();
    QCOMPARE(scenePrint(), start);
    while (vxApp->getUndoStack()->canRedo())
        vxApp->getUndoStack()->redo();
    QCOMPARE(scenePrint(), end);
}

VX_TEST_MAIN(tst_KeyCursor)
#include "tst_keycursor.moc"
