// The unit and rate of times in the program's window: menu, status bar, tips and the document.

#include "markers/markerstrip.h"
#include "shell/timelabel.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <vxcore/vxscenetimedisplay.h>

class tst_TimeDisplay : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void theStatusBarFollowsTheChoice();
    void aChoiceIsAnEditOfTheDocument();
    void theMenuShowsTheDocument();
    void theLabelKeepsItsWidth();

private:
    QAction *choice(const char *name) const
    {
        auto *found = window()->findChild<QAction *>(QLatin1String(name));
        if (!found)
            qFatal("no entry %s", name);
        return found;
    }
    QString shown() const { return window()->findChild<TimeLabel *>()->text(); }
    VxTimeDisplay display() const { return VxSceneTimeDisplay::displayOf(vxScene); }
};

void tst_TimeDisplay::init()
{
    setUp();
    start();
    openSample();
}

void tst_TimeDisplay::theStatusBarFollowsTheChoice()
{
    vxScene->setTime(1800 * 160);
    QCOMPARE(shown(), QString("Frame 1800"));
    choice("StudioTimeInSeconds")->trigger();
    QCOMPARE(shown(), QString("60s"));
    choice("StudioTimeInTicks")->trigger();
    QCOMPARE(shown(), QString("288000t"));
    choice("StudioTimecode")->trigger();
    QCOMPARE(shown(), QString("00:01:00:00"));
    choice("StudioRate2997Drop")->trigger();
    QCOMPARE(shown(), QString("00:01:00;02"));
    choice("StudioRate2997")->trigger();
    QCOMPARE(shown(), QString("00:01:00:00"));
    choice("StudioRate23976")->trigger();
    QCOMPARE(shown(), QString("00:01:15:00")); // 1800 frames, 24 a second
    choice("StudioRateOfStep")->trigger();
    vxScene->setTimeStep(80);
    QCOMPARE(shown(), QString("00:01:00:00"));
    choice("StudioRate5994Drop")->trigger();
    QCOMPARE(shown(), QString("00:01:00;04"));
    VxMarker marker;
    marker.name = "m";
    marker.span = VxTimeRange(1800 * 160, 1800 * 160);
    auto *strip = window()->findChild<MarkerStrip *>();
    strip->selectMarker(VxMarkers::of(vxScene)->add(marker));
    QCOMPARE(strip->accessibleDescription(), QString("m, 00:01:00;04"));
}

void tst_TimeDisplay::aChoiceIsAnEditOfTheDocument()
{
    VxUndoStack *history = vxApp->getUndoStack();
    choice("StudioTimeInFrames")->trigger(); // as it is
    QVERIFY(history->isClean());
    choice("StudioTimecode")->trigger();
    QVERIFY(!history->isClean());
    QCOMPARE(history->undoText(), QString("Set Time Display"));
    choice("StudioRate2997Drop")->trigger();
    QCOMPARE(history->count(), 2);
    history->undo();
    QVERIFY(!display().rate.isValid());
    history->undo();
    QVERIFY(display() == VxTimeDisplay());
    history->redo();
    history->redo();
    const VxTimeDisplay chosen = display();
    QCOMPARE(chosen.rate.frames, 30000);
    const QString file = folder->filePath("times.vxscene");
    QVERIFY(window()->document()->save(file));
    entry("File", "New")->trigger();
    QVERIFY(display() == VxTimeDisplay());
    QCOMPARE(shown(), QString("Frame 0"));
    QVERIFY(window()->document()->open(file));
    QVERIFY(display() == chosen);
}

void tst_TimeDisplay::theMenuShowsTheDocument()
{
    QVERIFY(choice("StudioTimeInFrames")->isChecked());
    QVERIFY(choice("StudioRateOfStep")->isChecked());
    choice("StudioTimecode")->trigger();
    choice("StudioRate2997")->trigger();
    vxApp->getUndoStack()->undo();
    QVERIFY(choice("StudioRateOfStep")->isChecked());
    QVERIFY(!choice("StudioRate2997")->isChecked());
    QVERIFY(choice("StudioTimecode")->isChecked());
    // A script may set another rate: none of the menu.
    VxSceneTimeDisplay::of(vxScene)->setDisplay({VxTimeDisplay::Seconds, {100, 1}, true});
    QVERIFY(choice("StudioTimeInSeconds")->isChecked());
    for (const char *name : {"StudioRateOfStep", "StudioRate24", "StudioRate2997"})
        QVERIFY2(!choice(name)->isChecked(), name);
}

void tst_TimeDisplay::theLabelKeepsItsWidth()
{
    const auto *label = window()->findChild<TimeLabel *>();
    vxScene->setTime(1000 * 160);
    QCoreApplication::processEvents();
    const int width = label->width();
    vxScene->setTime(0);
    QCoreApplication::processEvents();
    QCOMPARE(label->width(), width);
}

VX_TEST_MAIN(tst_TimeDisplay)
#include "tst_timedisplay.moc"
