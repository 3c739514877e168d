// The strip of markers in the program's window, edited by mouse and keyboard.

#include "markers/markeredits.h"
#include "markertestbase.h"
#include "testing/vxlostrelease.h"
#include "testing/vxmousedriver.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <random>
#include <vxcore/vxundostackhold.h>

class tst_MarkerStrip : public QObject, private MarkerStripTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { startWithStrip(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void dragMovesByFrames();
    void ctrlDragsFreely();
    void dragSnapsToPlayheadAndMarkers();
    void dragOfAnEndResizes();
    void lostReleases_data();
    void lostReleases();
    void aPressAloneMakesNoEntry();
    void loadingDropsADrag();
    void deletionDuringADrag();

    void doubleClickAddsOrRenames();
    void escapeKeepsTheName();
    void keyboard();
    void menuOfAMarker();
    void menuOfAnEmptyArea();
    void tipsAndAccessibleTexts();
    void actions();
    void randomSessions_data();
    void randomSessions();

private:
    QString drawn() const;
    void trigger(const QString &text) const;
};

// In frames, or in ticks with the suffix t.
QString tst_MarkerStrip::drawn() const
{
    const auto text = [](VxTime time) {
        return time % Step == 0 ? QString::number(time / Step) : QStringLiteral("%1t").arg(time);
    };
    QStringList texts;
    for (const VxMarker &each : markers()->list()) {
        texts.append(each.name + '@' + text(each.span.getStart()));
        if (!each.isPoint())
            texts.last() += '-' + text(each.span.getEnd());
    }
    return texts.join(' ');
}

void tst_MarkerStrip::dragMovesByFrames()
{
    const int id = addMarker("a", 10, 10);
    const QString before = drawn();
    VxMouseDriver mouse(strip());
    mouse.drag(at(10 * Step), at(14 * Step) + QPoint(1, 0));
    QCOMPARE(drawn(), QString("a@14"));
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Move Marker"));
    QCOMPARE(strip()->selectedMarker(), id);
    QCOMPARE(vxScene->getTime(), 0);
    history()->undo();
    QCOMPARE(drawn(), before);
    history()->redo();
    QCOMPARE(drawn(), QString("a@14"));
}

void tst_MarkerStrip::ctrlDragsFreely()
{
    addMarker("a", 10, 10);
    vxScene->setPlayRange(VxTimeRange(0, 20 * Step)); // many pixels a frame
    QCoreApplication::processEvents();
    VxMouseDriver mouse(strip());
    const QPoint end = at(13 * Step) + QPoint(9, 0);
    mouse.drag(at(10 * Step), end, Qt::LeftButton, Qt::ControlModifier);
    const VxTime time = markers()->list().first().span.getStart();
    QVERIFY(time % Step != 0);
    QVERIFY(qAbs(x(time) - end.x()) <= 1);
}

void tst_MarkerStrip::dragSnapsToPlayheadAndMarkers()
{
    vxScene->setPlayRange(VxTimeRange(0, 20 * Step));
    QCoreApplication::processEvents();
    const int id = addMarker("a", 2, 3);
    VxMarker other;
    other.name = "b";
    other.span = VxTimeRange(10 * Step + 40, 10 * Step + 40);
    markers()->add(other);
    vxScene->setTime(15 * Step + 50);
    VxMouseDriver mouse(strip());
    const QPoint middle((x(2 * Step) + x(3 * Step)) / 2, at(0).y());
    const QPoint toPlayhead(x(15 * Step + 50) - x(2 * Step), 0);
    mouse.drag(middle, middle + toPlayhead + QPoint(3, 0)); // the start at the playhead
    QCOMPARE(markers()->find(id)->span, VxTimeRange(15 * Step + 50, 16 * Step + 50));
    const QPoint now((x(15 * Step + 50) + x(16 * Step + 50)) / 2, at(0).y());
    const QPoint toOther(x(other.span.getStart()) - x(16 * Step + 50), 0);
    mouse.drag(now, now + toOther - QPoint(4, 0)); // the end at the other marker
    QCOMPARE(markers()->find(id)->span, VxTimeRange(9 * Step + 40, 10 * Step + 40));
}

void tst_MarkerStrip::dragOfAnEndResizes()
{
    addMarker("a", 10, 20);
    vxScene->setPlayRange(VxTimeRange(0, 50 * Step));
    QCoreApplication::processEvents();
    VxMouseDriver mouse(strip());
    mouse.drag(at(20 * Step), at(26 * Step));
    QCOMPARE(drawn(), QString("a@10-26"));
    QCOMPARE(history()->undoText(), QString("Resize Marker"));
    mouse.drag(at(10 * Step), at(4 * Step));
    QCOMPARE(drawn(), QString("a@4-26"));
    mouse.drag(at(4 * Step), at(40 * Step));
    QCOMPARE(drawn(), QString("a@26"));
    QCOMPARE(history()->count(), 3);
}

void tst_MarkerStrip::lostReleases_data()
{
    QTest::addColumn<int>("way");
    for (int way = 0; way < VxLostReleaseWays; ++way)
        QTest::addRow("way %d", way) << way;
}

void tst_MarkerStrip::lostReleases()
{
    QFETCH(int, way);
    addMarker("a", 10, 10);
    VxMouseDriver mouse(strip());
    mouse.press(at(10 * Step));
    mouse.moveTo(at(20 * Step));
    mouse.moveTo(at(24 * Step));
    QCOMPARE(drawn(), QString("a@24"));
    vxLoseRelease(strip(), way);
    QCOMPARE(drawn(), QString("a@10"));
    QCOMPARE(history()->count(), 0);
    mouse.moveTo(at(30 * Step));
    mouse.release(at(30 * Step));
    QCOMPARE(drawn(), QString("a@10"));
    QCOMPARE(history()->count(), 0);
    mouse.drag(at(10 * Step), at(12 * Step)); // the next one works
    QCOMPARE(drawn(), QString("a@12"));
}

void tst_MarkerStrip::aPressAloneMakesNoEntry()
{
    VxMarker between;
    between.span = VxTimeRange(1003, 1003);
    const int id = markers()->add(between);
    VxMouseDriver mouse(strip());
    mouse.drag(at(1003), at(1003) + QPoint(2, 0));
    QCOMPARE(strip()->selectedMarker(), id);
    QCOMPARE(markers()->find(id)->span.getStart(), 1003);
    mouse.press(at(1003));
    mouse.moveTo(at(40 * Step));
    mouse.moveTo(at(1003));
    mouse.release(at(1003));
    QCOMPARE(markers()->find(id)->span.getStart(), 1003);
    QCOMPARE(history()->count(), 0);
    mouse.click(at(100 * Step));
    QCOMPARE(strip()->selectedMarker(), 0);
}

void tst_MarkerStrip::loadingDropsADrag()
{
    addMarker("a", 10, 10);
    VxMouseDriver mouse(strip());
    mouse.press(at(10 * Step));
    mouse.moveTo(at(20 * Step));
    mouse.moveTo(at(24 * Step));
    openSample();
    QCOMPARE(drawn(), QString());
    mouse.release(at(30 * Step));
    QCOMPARE(history()->count(), 0);
    QVERIFY(history()->isClean());
}

void tst_MarkerStrip::deletionDuringADrag()
{
    const int id = addMarker("a", 10, 10);
    VxMouseDriver mouse(strip());
    mouse.press(at(10 * Step));
    mouse.moveTo(at(20 * Step));
    markers()->remove({id});
    mouse.moveTo(at(24 * Step));
    mouse.release(at(24 * Step));
    QCOMPARE(drawn(), QString());
    history()->undo();
    QCOMPARE(drawn(), QString("a@10"));
}

void tst_MarkerStrip::doubleClickAddsOrRenames()
{
    VxMouseDriver mouse(strip());
    mouse.doubleClick(at(40 * Step));
    QCOMPARE(drawn(), QString("Marker 1@40"));
    QCOMPARE(history()->count(), 1);
    mouse.doubleClick(at(60 * Step));
    QCOMPARE(drawn(), QString("Marker 1@40 Marker 2@60"));
    auto *name = strip()->findChild<QLineEdit *>("MarkerNameEdit");
    QVERIFY(!name->isVisible());
    mouse.doubleClick(at(40 * Step));
    QVERIFY(name->isVisible() && name->hasFocus());
    QTest::keyClicks(name, "Take off, \"left\"");
    QTest::keyClick(name, Qt::Key_Return);
    QVERIFY(!name->isVisible());
    QVERIFY(strip()->hasFocus());
    QCOMPARE(drawn(), QString("Take off, \"left\"@40 Marker 2@60"));
    QCOMPARE(history()->undoText(), QString("Rename Marker"));
    QCOMPARE(history()->count(), 3);
    // Beside the times, over the names of the rows, there is nothing to add.
    mouse.doubleClick(QPoint(qMax(0, strip()->scale().left() - 10), 5));
    QCOMPARE(markers()->count(), 2);
}

void tst_MarkerStrip::escapeKeepsTheName()
{
    const int id = addMarker("a", 10, 10);
    strip()->editName(id);
    auto *name = strip()->findChild<QLineEdit *>("MarkerNameEdit");
    QTest::keyClicks(name, "new");
    QTest::keyClick(name, Qt::Key_Escape);
    QVERIFY(!name->isVisible());
    QCOMPARE(drawn(), QString("a@10"));
    strip()->editName(id);
    QTest::keyClick(name, Qt::Key_Return); // nothing typed
    QCOMPARE(history()->count(), 0);
    // The marker is removed while its name is typed.
    strip()->editName(id);
    markers()->remove({id});
    QVERIFY(!name->isVisible());
    QCOMPARE(history()->count(), 0);
    // A click elsewhere accepts.
    const int other = addMarker("b", 20, 20);
    strip()->editName(other);
    QTest::keyClicks(name, "c");
    timePane()->setFocus();
    QCOMPARE(drawn(), QString("c@20"));
}

void tst_MarkerStrip::keyboard()
{
    const int a = addMarker("a", 10, 10);
    const int b = addMarker("b", 20, 30);
    const int c = addMarker("c", 40, 40);
    vxScene->setTime(15 * Step);
    strip()->setFocus();
    QTRY_VERIFY(strip()->hasFocus());
    type(Qt::Key_Right);
    QCOMPARE(strip()->selectedMarker(), b);
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    QCOMPARE(strip()->selectedMarker(), c);
    type(Qt::Key_Home);
    QCOMPARE(strip()->selectedMarker(), a);
    type(Qt::Key_End);
    type(Qt::Key_Left);
    QCOMPARE(strip()->selectedMarker(), b);
    QCOMPARE(vxScene->getTime(), 15 * Step); // no step of the playhead
    type(Qt::Key_F2);
    auto *name = strip()->findChild<QLineEdit *>("MarkerNameEdit");
    QVERIFY(name->isVisible());
    type(Qt::Key_X);
    type(Qt::Key_Return);
    QCOMPARE(drawn(), QString("a@10 x@20-30 c@40"));
    type(Qt::Key_Delete);
    QCOMPARE(drawn(), QString("a@10 c@40"));
    QCOMPARE(strip()->selectedMarker(), 0);
    type(Qt::Key_Delete);
    QCOMPARE(history()->count(), 2);
    type(Qt::Key_Left);
    QCOMPARE(strip()->selectedMarker(), a); // the last one before the playhead
    QCOMPARE(history()->undoText(), QString("Delete Marker"));
}

// Triggers an entry of the open menu, or of a menu in it.
void tst_MarkerStrip::trigger(const QString &text) const
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction *entry : menu->findChildren<QAction *>()) {
        if (entry->text().remove('&') == text)
            return menu->close(), entry->trigger();
    }
    QFAIL(qPrintable(text));
}

void tst_MarkerStrip::menuOfAMarker()
{
    const int id = addMarker("a", 10, 10);
    const auto open = [this](VxTime time) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at(time), strip()->mapToGlobal(at(time)));
        QApplication::sendEvent(strip(), &event);
    };
    open(10 * Step);
    trigger("Go to Marker");
    QCOMPARE(vxScene->getTime(), 10 * Step);
    QCOMPARE(history()->count(), 0);
    open(10 * Step);
    trigger("Make Span");
    QCOMPARE(drawn(), QString("a@10-40")); // one second
    open(20 * Step);
    trigger("Blue");
    QCOMPARE(markers()->find(id)->color, QRgb(0xff4d8fe0));
    QCOMPARE(history()->undoText(), QString("Set Marker Colour"));
    open(20 * Step);
    trigger("Make Point");
    QCOMPARE(drawn(), QString("a@10"));
    vxScene->setTime(33 * Step);
    open(10 * Step);
    trigger("Make Span");
    QCOMPARE(drawn(), QString("a@10-33"));
    open(20 * Step);
    trigger("Rename");
    QVERIFY(strip()->findChild<QLineEdit *>("MarkerNameEdit")->isVisible());
    QTest::keyClick(strip()->findChild<QLineEdit *>("MarkerNameEdit"), Qt::Key_Escape);
    open(20 * Step);
    trigger("Delete");
    QCOMPARE(drawn(), QString());
    QCOMPARE(history()->count(), 5);
}

void tst_MarkerStrip::menuOfAnEmptyArea()
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at(50 * Step),
                            strip()->mapToGlobal(at(50 * Step)));
    QApplication::sendEvent(strip(), &event);
    trigger("Add Marker Here");
    QCOMPARE(drawn(), QString("Marker 1@50"));
    QVERIFY(strip()->selectedMarker() != 0);
}

void tst_MarkerStrip::tipsAndAccessibleTexts()
{
    QCOMPARE(strip()->accessibleName(), QString("Markers"));
    const int id = addMarker("Contact", 10, 24);
    const auto tip = [this](VxTime time) {
        QHelpEvent event(QEvent::ToolTip, at(time), strip()->mapToGlobal(at(time)));
        QApplication::sendEvent(strip(), &event);
        return QToolTip::text();
    };
    QCOMPARE(tip(15 * Step), QString("Contact, frames 10 to 24"));
    QVERIFY(tip(100 * Step).contains("double click"));
    strip()->selectMarker(id);
    QCOMPARE(strip()->accessibleDescription(), QString("Contact, frames 10 to 24"));
    QToolTip::hideText();
}

void tst_MarkerStrip::actions()
{
    vxScene->setTime(12 * Step);
    strip()->setFocus();
    type(Qt::Key_M);
    QCOMPARE(drawn(), QString("Marker 1@12"));
    QCOMPARE(history()->undoText(), QString("Add Marker"));
    addMarker("b", 20, 30);
    QVector<int> frames;
    for (int i = 0; i < 3; ++i) {
        action("VxNextMarkerAction")->trigger();
        frames.append(frame());
    }
    type(Qt::Key_Comma);
    frames.append(frame());
    type(Qt::Key_Comma);
    frames.append(frame());
    type(Qt::Key_Comma);
    frames.append(frame());
    type(Qt::Key_Period);
    frames.append(frame());
    QCOMPARE(frames, (QVector<int>{20, 30, 30, 20, 12, 12, 20}));
    QCOMPARE(history()->count(), 1); // stepping is no edit
}

void tst_MarkerStrip::randomSessions_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 6; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

// A user edits, drops gestures, undoes and redoes; in the end undoing all gives the start and
// redoing all the end.
void tst_MarkerStrip::randomSessions()
{
    QFETCH(uint, seed);
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return int(random() % uint(limit)); };
    addMarker("first", 30, 60);
    const auto state = [this] {
        QString text;
        for (const VxMarker &each : markers()->list())
            text += QString("%1 %2 %3 %4 %5\n")
                        .arg(each.id)
                        .arg(each.name)
                        .arg(each.span.getStart())
                        .arg(each.span.getEnd())
                        .arg(each.color);
        return text;
    };
    const QString first = state();
    VxMouseDriver mouse(strip());
    strip()->setFocus();
    const int left = strip()->scale().left();
    const int width = strip()->scale().right() - left;
    const auto anywhere = [&] { return QPoint(left + below(width), strip()->height() / 2); };
    const auto onMarker = [&] {
        if (markers()->count() == 0)
            return anywhere();
        const VxMarker &each = markers()->list().at(below(markers()->count()));
        return at(below(2) ? each.span.getStart() : each.span.getEnd());
    };
    for (int step = vxSessionLength(240); step > 0; --step) {
        const QString before = state();
        const int entries = history()->index();
        const Qt::KeyboardModifiers modifiers =
            below(3) ? Qt::NoModifier : Qt::KeyboardModifiers(Qt::ControlModifier);
        switch (below(9)) {
        case 0:
            mouse.doubleClick(anywhere(), Qt::LeftButton, modifiers);
            if (QWidget *name = strip()->findChild<QLineEdit *>("MarkerNameEdit"))
                QTest::keyClick(name, Qt::Key_Return);
            break;
        case 1:
        case 2:
        case 3:
            mouse.drag(onMarker(), anywhere(), Qt::LeftButton, modifiers);
            break;
        case 4:
            mouse.press(onMarker());
            mouse.moveTo(anywhere());
            mouse.moveTo(anywhere());
            QTest::keyClick(strip(), Qt::Key_Escape);
            mouse.release(anywhere());
            QCOMPARE(state(), before);
            QCOMPARE(history()->index(), entries);
            break;
        case 5:
            QTest::keyClick(strip(), below(2) ? Qt::Key_Right : Qt::Key_Delete);
            break;
        case 6:
            if (markers()->count() > 0)
                MarkerEdits::toggleSpan(vxScene, markers()->list().first().id);
            break;
        case 7:
            history()->undo();
            break;
        default:
            history()->redo();
        }
        const VxMarkerList &list = markers()->list();
        for (int i = 0; i < list.size(); ++i) {
            QVERIFY(list.at(i).span.getStart() <= list.at(i).span.getEnd());
            QVERIFY(i == 0 || list.at(i - 1).span.getStart() <= list.at(i).span.getStart());
        }
        if (history()->index() == entries)
            QCOMPARE(state(), before);
    }
    const int end = history()->count();
    history()->setIndex(end);
    const QString last = state();
    history()->setIndex(0);
    QCOMPARE(state(), first);
    history()->setIndex(end);
    QCOMPARE(state(), last);
    QVERIFY(end > 5);
}

VX_TEST_MAIN(tst_MarkerStrip)
#include "tst_markerstrip.moc"
