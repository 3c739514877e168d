// The list of markers in the program's window, and markers in CSV files.

#include "dialoganswers.h"
#include "markers/markerfiles.h"
#include "markers/markertablemodel.h"
#include "markers/vxmarkerlistpane.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxscriptengine.h>

namespace {

constexpr int Step = 160;

} // namespace

class tst_MarkerList : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void rowsAreTheMarkers();
    void cellsAreEdited_data();
    void cellsAreEdited();
    void clicksSetTheTime();
    void sortsByAnyColumn();
    void theSelectionFollowsTheMarkers();
    void typingInPlace();
    void anOpenEditorStays();
    void deleteAndAdd();
    void anotherUnit();
    void exportAndImport();
    void importAddsWhatIsMissing();
    void aFaultyFileAddsNothing();
    void aFileThatCannotBeWritten();
    void scripts();

private:
    VxMarkerListPane *pane() const { return window()->findChild<VxMarkerListPane *>(); }
    QTableView *table() const { return pane()->findChild<QTableView *>(); }
    VxUndoStack *history() const { return vxApp->getUndoStack(); }
    VxMarkers *markers() const { return VxMarkers::of(vxScene); }
    int addMarker(const char *name, int start, int end) const
    {
        VxMarker marker;
        marker.name = QLatin1String(name);
        marker.span = VxTimeRange(start * Step, end * Step);
        return markers()->add(marker);
    }
    QModelIndex cell(int row, int column) const { return table()->model()->index(row, column); }
    void click(int row, int column) const
    {
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          table()->visualRect(cell(row, column)).center());
    }
    // As the table shows it: cells separated by blanks, rows by "|".
    QString shown() const
    {
        QStringList rows;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < MarkerTableModel::ColumnCount; ++column)
                cells.append(cell(row, column).data().toString());
            rows.append(cells.join(' '));
        }
        return rows.join('|');
    }
    QString status() const { return window()->statusBar()->currentMessage(); }
};

void tst_MarkerList::init()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    setUpShared();
    openSample();
    window()->getPaneMgr()->showPane(pane());
    QTRY_VERIFY(!table()->viewport()->visibleRegion().isEmpty());
    table()->setFocus();
}

void tst_MarkerList::rowsAreTheMarkers()
{
    const QAbstractItemModelTester tester(table()->model());
    const auto *hint = table()->findChild<QLabel *>();
    QVERIFY(hint->isVisible());
    addMarker("b", 20, 30);
    const int a = addMarker("a", 10, 10);
    QCOMPARE(shown(), QString("a 10  Orange|b 20 30 Orange"));
    QVERIFY(!hint->isVisible());
    VxMarker moved = *markers()->find(a);
    moved.span = VxTimeRange(40 * Step + 40, 40 * Step + 40);
    moved.color = 0xff102030;
    markers()->set(moved);
    QCOMPARE(shown(), QString("b 20 30 Orange|a 40.25  #102030"));
    openSample();
    QCOMPARE(shown(), QString());
    QVERIFY(hint->isVisible());
}

void tst_MarkerList::cellsAreEdited_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("result"); // of "m 10 20 Orange"; unchanged: refused
    const auto row = [](const char *name, int column, const char *typed, const char *result) {
        QTest::newRow(name) << column << QString::fromLatin1(typed) << QString::fromLatin1(result);
    };
    const QString same = "m 10 20 Orange";
    row("a name", 0, "jump", "jump 10 20 Orange");
    row("an empty name", 0, "", " 10 20 Orange");
    row("a start", 1, "12", "m 12 20 Orange");
    row("a later start", 1, "+5", "m 15 20 Orange");
    row("a start behind the end", 1, "25", "m 25  Orange");
    row("a start in seconds", 1, "0.5s", "m 15 20 Orange");
    row("no time", 1, "soon", "m 10 20 Orange");
    row("no start", 1, "", "m 10 20 Orange");
    row("beyond all times", 1, "1e12", "m 10 20 Orange");
    row("an end", 2, "40", "m 10 40 Orange");
    row("no end", 2, "", "m 10  Orange");
    row("an end before the start", 2, "4", "m 4  Orange");
    row("a colour", 3, "#ff0000", "m 10 20 #ff0000");
    row("a colour of the menu", 3, "blue", "m 10 20 Blue");
    row("no colour", 3, "of the sky", "m 10 20 Orange");
}

void tst_MarkerList::cellsAreEdited()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QString, result);
    addMarker("m", 10, 20);
    const QString before = shown();
    const bool isRefused = result == before;
    QCOMPARE(table()->model()->setData(cell(0, column), typed), !isRefused);
    QCOMPARE(shown(), result);
    QCOMPARE(history()->count(), isRefused ? 0 : 1);
    if (isRefused)
        QVERIFY2(status().contains("is not a"), qPrintable(status()));
    history()->undo();
    QCOMPARE(shown(), before);
}

void tst_MarkerList::clicksSetTheTime()
{
    addMarker("a", 10, 20);
    addMarker("b", 30, 30);
    click(1, MarkerTableModel::Name);
    QCOMPARE(frame(), 30);
    click(0, MarkerTableModel::Start);
    QCOMPARE(frame(), 10);
    click(0, MarkerTableModel::End);
    QCOMPARE(frame(), 20);
    QTest::keyClick(table(), Qt::Key_Down);
    QTest::keyClick(table(), Qt::Key_Return);
    QCOMPARE(frame(), 30);
    QCOMPARE(history()->count(), 0);
}

void tst_MarkerList::sortsByAnyColumn()
{
    addMarker("b", 2, 90);
    addMarker("C", 10, 10);
    addMarker("a", 100, 100);
    table()->sortByColumn(MarkerTableModel::Name, Qt::AscendingOrder);
    QCOMPARE(shown(), QString("a 100  Orange|b 2 90 Orange|C 10  Orange"));
    table()->sortByColumn(MarkerTableModel::Start, Qt::DescendingOrder);
    QCOMPARE(shown(), QString("a 100  Orange|C 10  Orange|b 2 90 Orange")); // by number
    click(2, MarkerTableModel::Name);
    QCOMPARE(frame(), 2);
    table()->sortByColumn(MarkerTableModel::End, Qt::AscendingOrder);
    QCOMPARE(shown(), QString("C 10  Orange|b 2 90 Orange|a 100  Orange"));
}

void tst_MarkerList::theSelectionFollowsTheMarkers()
{
    addMarker("a", 10, 10);
    addMarker("b", 20, 20);
    click(1, 0);
    addMarker("first", 0, 0);
    const QModelIndexList rows = table()->selectionModel()->selectedRows();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().data().toString(), QString("b"));
}

void tst_MarkerList::typingInPlace()
{
    addMarker("a", 10, 10);
    click(0, MarkerTableModel::Name);
    QTest::keyClick(table(), Qt::Key_F2);
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), "jump, m");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(shown(), QString("jump, m 10  Orange"));
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Rename Marker"));
}

// While other markers change, as by a script.
void tst_MarkerList::anOpenEditorStays()
{
    addMarker("a", 10, 10);
    const int other = addMarker("b", 20, 20);
    click(0, MarkerTableModel::Name);
    QTest::keyClick(table(), Qt::Key_F2);
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), "jum");
    VxMarker moved = *markers()->find(other);
    moved.span = VxTimeRange(30 * Step, 40 * Step);
    markers()->set(moved);
    QCoreApplication::processEvents();
    QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), "p");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(shown(), QString("jump 10  Orange|b 30 40 Orange"));
    // The same text again is no edit.
    const int entries = history()->count();
    QVERIFY(table()->model()->setData(cell(0, 0), "jump"));
    QVERIFY(table()->model()->setData(cell(1, 1), "30"));
    QCOMPARE(history()->count(), entries);
}

void tst_MarkerList::deleteAndAdd()
{
    for (int i = 0; i < 4; ++i)
        addMarker("m", i, i);
    click(1, 0);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      table()->visualRect(cell(2, 0)).center());
    type(Qt::Key_Delete);
    QCOMPARE(shown(), QString("m 0  Orange|m 3  Orange"));
    QCOMPARE(history()->count(), 1);
    type(Qt::Key_Delete); // nothing is selected
    QCOMPARE(history()->count(), 1);
    vxScene->setTime(50 * Step);
    pane()->findChild<QPushButton *>("addMarker")->click();
    QCOMPARE(shown(), QString("m 0  Orange|m 3  Orange|Marker 1 50  Orange"));
    history()->undo();
    history()->undo();
    QCOMPARE(markers()->count(), 4);
}

void tst_MarkerList::anotherUnit()
{
    addMarker("a", 1800, 1800);
    const QSignalSpy changes(table()->model(), &QAbstractItemModel::dataChanged);
    VxSceneTimeDisplay::of(vxScene)->setDisplay({VxTimeDisplay::Timecode, {30000, 1001}, true});
    QCOMPARE(changes.size(), 1);
    QCOMPARE(shown(), QString("a 00:01:00;02  Orange"));
    QVERIFY(table()->model()->setData(cell(0, 2), "00:10:00;00"));
    QCOMPARE(markers()->list().first().span.getEnd(), 17982 * Step);
    VxSceneTimeDisplay::of(vxScene)->setDisplay({});
    const int before = changes.size();
    vxScene->setTimeStep(2 * Step);
    QCOMPARE(changes.size(), before + 1);
    QCOMPARE(shown(), QString("a 900 8991 Orange"));
}

void tst_MarkerList::exportAndImport()
{
    addMarker("a, \"b\"", 10, 20);
    addMarker("c", 30, 30);
    const QString all = shown();
    const QString file = folder->filePath("markers.csv");
    {
        const DialogAnswer<QFileDialog> answer(typeName(file));
        pane()->findChild<QPushButton *>("exportMarkers")->click();
        QVERIFY(answer.met());
    }
    QVERIFY2(status().contains("saved"), qPrintable(status()));
    markers()->replaceAll({});
    {
        const DialogAnswer<QFileDialog> answer(typeName(file));
        pane()->findChild<QPushButton *>("importMarkers")->click();
        QVERIFY(answer.met());
    }
    QCOMPARE(shown(), all);
    QCOMPARE(status(), QString("Markers imported: 2"));
    QCOMPARE(history()->count(), 1);
    history()->undo();
    QCOMPARE(shown(), QString());
    history()->redo();
    QCOMPARE(shown(), all);
}

void tst_MarkerList::importAddsWhatIsMissing()
{
    addMarker("a", 10, 20);
    VxFileError error;
    const QString name = folder->filePath("m.csv");
    QVERIFY(MarkerFiles::exportFile(vxScene, name, &error));
    markers()->replaceAll({});
    addMarker("b", 5, 5);
    QCOMPARE(MarkerFiles::importFile(vxScene, name, &error), QString("Markers imported: 1"));
    QCOMPARE(shown(), QString("b 5  Orange|a 10 20 Orange"));
    QCOMPARE(MarkerFiles::importFile(vxScene, name, &error),
             QString("Markers imported: 0; already there: 1"));
    QCOMPARE(history()->count(), 1);
    // Others of the same name, time or colour are not the same marker.
    VxMarker other = markers()->list().last();
    const VxMarker same = other;
    for (const auto change : {0, 1, 2, 3}) {
        other = same;
        if (change == 0)
            other.name = "A";
        else if (change == 1)
            other.span = VxTimeRange(same.span.getStart() + 1, same.span.getEnd());
        else if (change == 2)
            other.span = VxTimeRange(same.span.getStart(), same.span.getEnd() + 1);
        else
            other.color = 0xff0000ff;
        markers()->replaceAll({other});
        QCOMPARE(MarkerFiles::importFile(vxScene, name, &error), QString("Markers imported: 1"));
        QCOMPARE(markers()->count(), 2);
    }
}

void tst_MarkerList::aFaultyFileAddsNothing()
{
    addMarker("a", 10, 20);
    const QString name = folder->filePath("m.csv");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,start\nb,1\nc,soon\n");
    file.close();
    VxFileError error;
    QCOMPARE(MarkerFiles::importFile(vxScene, name, &error), QString());
    QVERIFY2(error.text().contains("m.csv, line 3, column 2"), qPrintable(error.text()));
    QCOMPARE(shown(), QString("a 10 20 Orange"));
    QCOMPARE(history()->count(), 0);
    error = VxFileError();
    QCOMPARE(MarkerFiles::importFile(vxScene, folder->filePath("none.csv"), &error), QString());
    QVERIFY2(error.text().contains("cannot be read"), qPrintable(error.text()));
}

void tst_MarkerList::aFileThatCannotBeWritten()
{
    addMarker("a", 10, 20);
    VxFileError error;
    QVERIFY(!MarkerFiles::exportFile(vxScene, folder->filePath("no/folder/m.csv"), &error));
    QVERIFY2(error.text().contains("cannot be written"), qPrintable(error.text()));
}

void tst_MarkerList::scripts()
{
    VxScriptEngine *engine = vxApp->getScriptEngine();
    const auto run = [engine](const QString &program) {
        VxScriptError error;
        const QString value = engine->evaluate(program, QString(), &error);
        return error.isNull() ? value : error.message;
    };
    const QString name = folder->filePath("m.csv");
    run("Scene.markers.add({ name: 'a', start: 1600, end: 3200 })");
    QCOMPARE(run(QString("Scene.markers.exportFile('%1')").arg(name)), QString("true"));
    run("Scene.markers.clear()");
    QCOMPARE(run(QString("Scene.markers.importFile('%1')").arg(name)),
             QString("Markers imported: 1"));
    QCOMPARE(shown(), QString("a 10 20 Orange"));
    QVERIFY(run("Scene.markers.importFile('none.csv')").contains("cannot be read"));
    QVERIFY(run("Scene.markers.importFile()").contains("name of a file"));
}

VX_TEST_MAIN(tst_MarkerList)
#include "tst_markerlist.moc"
