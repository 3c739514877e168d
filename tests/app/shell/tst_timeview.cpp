#include "shell/timeview.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QStatusBar>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxundostack.h>

/// Show All, Zoom to Selected Keys and the stored views, as entries of the View menu.
class tst_TimeView : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUpShared(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void showAllIsNoEdit();
    void zoomWithoutKeysShowsAMessage();
    void zoomShowsTheSelectedKeys();
    void viewsAreStoredAndShown();
    void emptyViewShowsAMessage();
    void viewsAreSavedInTheDocument();

private:
    void trigger(const char *name)
    {
        auto *action = window()->findChild<QAction *>(QLatin1String(name));
        QVERIFY2(action, name);
        action->trigger();
    }
    QString status() { return window()->statusBar()->currentMessage(); }
};

void tst_TimeView::showAllIsNoEdit()
{
    vxScene->setAnimRange(VxTimeRange(0, 16000));
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    vxScene->setTime(8000);
    vxApp->getUndoStack()->setClean();
    const int entries = vxApp->getUndoStack()->count();
    trigger("StudioShowAllTime");
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 16000));
    QCOMPARE(vxScene->getTime(), 8000);
    QCOMPARE(vxApp->getUndoStack()->count(), entries);
    QVERIFY(vxApp->getUndoStack()->isClean());
    QVERIFY(!window()->isWindowModified());
}

void tst_TimeView::zoomWithoutKeysShowsAMessage()
{
    const VxTimeRange before = vxScene->getPlayRange();
    trigger("StudioZoomToKeys");
    QCOMPARE(vxScene->getPlayRange(), before);
    QCOMPARE(status(), QStringLiteral("No keys are selected."));
}

void tst_TimeView::zoomShowsTheSelectedKeys()
{
    struct Selected : VxKeySelectionSource
    {
        VxKeySelectionEntries list;
        VxKeySelectionEntries entries() const override { return list; }
        std::vector<VxKeySpan> spansOf(VxProperty *) const override { return {}; }
        void set(const VxKeySelectionEntries &, bool) override {}
    } source;
    auto *node = new VxNode(QStringLiteral("n"));
    vxScene->addNode(node);
    for (const VxTime time : {0, 1600, 4800, 9600, 12800}) {
        node->getXPosControl()->setKey(time, 1.0f, 0);
        node->getYPosControl()->setKey(time + 800, 1.0f, 0);
    }
    VxKeySelection selection;
    selection.addSource(&source);
    source.list = {{node->getXPosControl(), {{1, 2}, {3, 4}}, 0},
                   {node->getYPosControl(), {{2, 3}}, 0}};
    vxScene->setAnimRange(VxTimeRange(0, 16000));
    vxScene->setTime(0);
    QCOMPARE(TimeView::zoomToKeys(vxScene, selection), QString());
    // From 1600 to 9600, and a twentieth of that on each side, in frames of 160.
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1280, 10080));
    QCOMPARE(vxScene->getTime(), 0);
    source.list = {{node->getXPosControl(), {{2, 3}}, 0}};
    QCOMPARE(TimeView::zoomToKeys(vxScene, selection), QString());
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(4800 - 320, 4800 + 320));
    selection.removeSource(&source);
}

void tst_TimeView::viewsAreStoredAndShown()
{
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    trigger("StudioStoreView2");
    QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Store View 2"));
    const int entries = vxApp->getUndoStack()->count();
    vxScene->setPlayRange(VxTimeRange(0, 8000));
    trigger("StudioShowView2");
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 3200));
    QCOMPARE(vxApp->getUndoStack()->count(), entries);
    vxApp->getUndoStack()->undo();
    QVERIFY(!VxSceneViews::of(vxScene)->view(1));
    vxApp->getUndoStack()->redo();
    QCOMPARE(*VxSceneViews::of(vxScene)->view(1), VxTimeRange(1600, 3200));
}

void tst_TimeView::emptyViewShowsAMessage()
{
    const VxTimeRange before = vxScene->getPlayRange();
    trigger("StudioShowView3");
    QCOMPARE(vxScene->getPlayRange(), before);
    QCOMPARE(status(), QStringLiteral("View 3 is empty. Store it first."));
}

void tst_TimeView::viewsAreSavedInTheDocument()
{
    const QTemporaryDir documents;
    const QString file = documents.filePath(QStringLiteral("views.vxscene"));
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    trigger("StudioStoreView1");
    vxScene->setPlayRange(VxTimeRange(-800, 4800));
    trigger("StudioStoreView3");
    QVERIFY(window()->document()->save(file));
    window()->document()->clear();
    QVERIFY(!VxSceneViews::of(vxScene)->view(0));
    QVERIFY(window()->document()->open(file));
    QCOMPARE(*VxSceneViews::of(vxScene)->view(0), VxTimeRange(1600, 3200));
    QVERIFY(!VxSceneViews::of(vxScene)->view(1));
    QCOMPARE(*VxSceneViews::of(vxScene)->view(2), VxTimeRange(-800, 4800));
}

VX_TEST_MAIN(tst_TimeView)
#include "tst_timeview.moc"
