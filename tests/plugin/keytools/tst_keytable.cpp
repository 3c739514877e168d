#include "keytools/keytablemodel.h"
#include "keytools/vxkeytablepane.h"
#include "keytoolstage.h"
#include "testing/vxtestmain.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QTableView>
#include <cmath>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscenetimedisplay.h>

using Column = KeyTableColumn;
using Unit = VxTimeDisplay::Unit;

/// The rows, columns, edits and texts of the key table.
class tst_KeyTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rowsAreTheSelectedKeys();
    void timesFollowTheScene();
    void germanNumbersHaveACommaAndAreCopiedPlain();
    void typedTextSetsCells_data();
    void typedTextSetsCells();
    void shapesOfTcbKeys();
    void sortsAndFilters();
    void copiedRowsArePasted();
    void pasteNamesTheCell_data();
    void pasteNamesTheCell();
    void randomEdits();
    void typingInThePane();
    void destroyedPropertiesAreEmptyRows();
    void lockedRowsAreReadOnly();
    void onlyChangesAreListedAgain();
};

namespace {

QStringList column(const KeyTableRows &rows, Column which, VxTimeDisplay display = {})
{
    QStringList texts;
    for (int row = 0; row < rows.count(); ++row)
        texts << KeyTableCells::text(rows, row, which, display);
    return texts;
}

KeyTableRows presentRows()
{
    KeyTableRows rows;
    rows.setTargets(KeyTargets::current());
    return rows;
}

std::vector<int> allOf(const KeyTableRows &rows)
{
    std::vector<int> numbers;
    for (int row = 0; row < rows.count(); ++row)
        numbers.push_back(row);
    return numbers;
}

QString state(const VxFloatProperty *property)
{
    QString text;
    for (int i = 0; i < property->getNumKeys(); ++i) {
        float parts[3];
        const int type = property->getKeyInterpolationType(i, parts, parts + 1, parts + 2);
        text += QString("%1 %2 %3 %4 %5 %6;")
                    .arg(property->getKeyTime(i))
                    .arg(double(property->getKeyValue(i)), 0, 'g', 9)
                    .arg(type)
                    .arg(double(parts[0]))
                    .arg(double(parts[1]))
                    .arg(double(parts[2]));
    }
    return text;
}

} // namespace

void tst_KeyTable::rowsAreTheSelectedKeys()
{
    KeyToolStage stage;
    stage.draw("A b C . D e");
    stage.draw(stage.node->getYPosControl(), "f G");
    const KeyTableRows rows = presentRows();
    QCOMPARE(rows.count(), 4);
    QCOMPARE(column(rows, Column::Time), QStringList({"0", "2", "4", "1"}));
    QCOMPARE(column(rows, Column::Value), QStringList({"97", "99", "100", "103"}));
    QCOMPARE(column(rows, Column::Node), QStringList({"node", "node", "node", "node"}));
    const QString x = stage.channel->getLabel();
    QCOMPARE(column(rows, Column::Property),
             QStringList({x, x, x, stage.node->getYPosControl()->getLabel()}));
    QCOMPARE(column(rows, Column::Type), QStringList({"Linear", "Linear", "Linear", "Linear"}));
    QCOMPARE(column(rows, Column::Tension), QStringList({"", "", "", ""}));
}

// In the unit of the scene, or in one of the table's own with the scene's timecodes.
void tst_KeyTable::timesFollowTheScene()
{
    KeyToolStage stage;
    vxScene->setPlayRange(VxTimeRange(0, 20000 * 160));
    stage.channel->setKey(1800 * 160, 0.0f, 0);
    stage.node->select(true);
    KeyTableModel model;
    model.refresh();
    const int last = model.rowCount() - 1;
    const auto shown = [&] {
        return model.index(last, int(KeyTableColumn::Time)).data().toString();
    };
    VxSceneTimeDisplay *scene = VxSceneTimeDisplay::of(vxScene);
    QCOMPARE(shown(), QString("1800"));
    scene->setDisplay({Unit::Seconds, {}, true});
    QCOMPARE(shown(), QString("60s"));
    scene->setDisplay({Unit::Timecode, {30000, 1001}, true});
    QCOMPARE(shown(), QString("00:01:00;02"));
    model.setTimeUnit(Unit::Ticks);
    QCOMPARE(shown(), QString("288000t"));
    scene->setDisplay({Unit::Frames, {30000, 1001}, true});
    model.setTimeUnit(Unit::Timecode);
    QCOMPARE(shown(), QString("00:01:00;02"));
    const KeyTableRows rows = presentRows();
    QVERIFY(KeyTableCells::setColumn(rows, {last}, KeyTableColumn::Time, "00:10:00;00").done);
    QCOMPARE(stage.channel->getKeyTime(stage.channel->getNumKeys() - 1), 17982 * 160);
}

void tst_KeyTable::germanNumbersHaveACommaAndAreCopiedPlain()
{
    const QLocale former;
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    KeyToolStage stage;
    stage.node->setLabel(QStringLiteral("left.leg"));
    stage.channel->setKey(80, 0.0f, 0);
    stage.node->select(true);
    KeyTableModel model;
    model.refresh();
    const KeyTableRows rows = presentRows();
    QVERIFY(KeyTableCells::setColumn(rows, {0}, Column::Value, "1,25").done);
    QCOMPARE(stage.channel->getKeyValue(0), 1.25F);
    QVERIFY(KeyTableCells::setColumn(rows, {0}, Column::Value, "1.5").done);
    model.refresh();
    const auto shown = [&](Column column) { return model.index(0, int(column)).data().toString(); };
    QCOMPARE(shown(Column::Node), QString("left.leg"));
    QCOMPARE(shown(Column::Time), QString("0,5"));
    QCOMPARE(shown(Column::Value), QString("1,5"));
    QVERIFY(KeyTableCells::copied(presentRows(), {0}, {}).contains("\t0.5\t1.5\t"));
    QLocale::setDefault(former);
}

void tst_KeyTable::typedTextSetsCells_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after"); // keys before: B at 0, c at 1, D at 2, F at 3
    QTest::newRow("a value in one row") << QVector<int>{0} << int(Column::Value) << "97"
                                        << "A c D F . .";
    QTest::newRow("arithmetic in all rows") << QVector<int>{0, 1, 2} << int(Column::Value) << "+2*1"
                                            << "D c F H . .";
    QTest::newRow("a percentage") << QVector<int>{0} << int(Column::Value) << "=98+1"
                                  << "C c D F . .";
    QTest::newRow("times keep the other keys selected")
        << QVector<int>{1} << int(Column::Time) << "+3"
        << "B c . F . D";
    QTest::newRow("a time replaces a key that is not selected")
        << QVector<int>{0} << int(Column::Time) << "1"
        << ". B D F . .";
    QTest::newRow("not readable") << QVector<int>{0} << int(Column::Value) << "1+"
                                  << "B c D F . .";
    QTest::newRow("not a number") << QVector<int>{0} << int(Column::Value) << "nan"
                                  << "B c D F . .";
    QTest::newRow("names cannot be set") << QVector<int>{0} << int(Column::Node) << "5"
                                         << "B c D F . .";
}

void tst_KeyTable::typedTextSetsCells()
{
    QFETCH(QVector<int>, rows);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QString, after);
    KeyToolStage stage;
    stage.draw("B c D F . .");
    vxApp->getUndoStack()->clear();
    const KeyToolResult result = KeyTableCells::setColumn(
        presentRows(), {rows.cbegin(), rows.cend()}, Column(column), typed);
    QCOMPARE(stage.drawing(6), after);
    const bool changes = after != "B c D F . .";
    QCOMPARE(vxApp->getUndoStack()->count(), changes ? 1 : 0);
    if (result.isArgumentError)
        QVERIFY2(result.message.contains(typed), qPrintable(result.message));
    vxApp->getUndoStack()->undo();
    QCOMPARE(stage.drawing(6), QString("B c D F . ."));
}

void tst_KeyTable::shapesOfTcbKeys()
{
    KeyToolStage stage;
    stage.draw("A B C");
    KeyTableRows rows = presentRows();
    QVERIFY(KeyTableCells::setColumn(rows, {0, 2}, Column::Type, "TCB").done);
    rows = presentRows();
    QVERIFY(KeyTableCells::isEditable(rows, 0, Column::Bias));
    QVERIFY(!KeyTableCells::isEditable(rows, 1, Column::Bias));
    QVERIFY(KeyTableCells::setColumn(rows, {0, 1, 2}, Column::Bias, "0.5").done);
    QVERIFY(KeyTableCells::setColumn(rows, {2}, Column::Bias, "+0.25").done);
    rows = presentRows();
    QCOMPARE(column(rows, Column::Type), QStringList({"TCB", "Linear", "TCB"}));
    QCOMPARE(column(rows, Column::Bias), QStringList({"0.5", "", "0.75"}));
    QCOMPARE(column(rows, Column::Tension), QStringList({"0", "", "0"}));
    QCOMPARE(stage.drawing(3), QString("A B C"));
}

void tst_KeyTable::sortsAndFilters()
{
    KeyToolStage stage;
    stage.draw("D A . C");
    stage.draw(stage.node->getYPosControl(), ". B");
    KeyTableRows rows = presentRows();
    rows.sort(Column::Value, Qt::AscendingOrder);
    QCOMPARE(column(rows, Column::Value), QStringList({"97", "98", "99", "100"}));
    QCOMPARE(column(rows, Column::Time), QStringList({"1", "1", "3", "0"}));
    rows.sort(Column::Time, Qt::DescendingOrder);
    QCOMPARE(column(rows, Column::Time), QStringList({"3", "1", "1", "0"}));
    rows.setFilter(stage.node->getYPosControl()->getLabel().toUpper());
    QCOMPARE(column(rows, Column::Value), QStringList({"98"}));
    // An edit of a filtered row reaches its key alone.
    KeyTableCells::setColumn(rows, {0}, Column::Value, "101");
    QCOMPARE(stage.drawing(stage.node->getYPosControl(), 2), QString(". E"));
    QCOMPARE(stage.drawing(4), QString("D A . C"));
    rows.setFilter("nothing of that name");
    QCOMPARE(rows.count(), 0);
    rows.setFilter(QString());
    rows.unsort();
    QCOMPARE(column(rows, Column::Time), QStringList({"0", "1", "3", "1"}));
}

void tst_KeyTable::copiedRowsArePasted()
{
    KeyToolStage stage;
    stage.draw("A . B");
    stage.channel->setKeyInterpolation(1, VxKeyInterp::Tcb, 0.5f, 0, -1);
    vxApp->getUndoStack()->clear();
    const KeyTableRows rows = presentRows();
    const QString before = state(stage.channel);
    const QString text = KeyTableCells::copied(rows, allOf(rows), {Unit::Timecode, {}, true});
    const QString x = stage.channel->getLabel();
    QCOMPARE(text, "node\t" + x + "\t00:00:00:00\t97\tLinear\t\t\t\nnode\t" + x +
                       "\t00:00:00:02\t98\tTCB\t0.5\t0\t-1\n");
    QVERIFY(KeyTableCells::paste(rows, 0, Column::Node, text).done);
    QCOMPARE(state(stage.channel), before);
    QVERIFY(KeyTableCells::paste(rows, 0, Column::Time, "5\t-3.5\r\n3\t1e3\tConstant").done);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QCOMPARE(column(presentRows(), Column::Time), QStringList({"3", "5"}));
    QCOMPARE(column(presentRows(), Column::Value), QStringList({"1000", "-3.5"}));
    QCOMPARE(column(presentRows(), Column::Type), QStringList({"Constant", "Linear"}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(state(stage.channel), before);
}

void tst_KeyTable::pasteNamesTheCell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("message");
    QTest::newRow("no number") << "5\n6\nseven" << int(Column::Value) << "Row 3, Value: \"seven\"";
    QTest::newRow("empty cell") << "5\n\n7" << int(Column::Value) << "Row 2, Value: \"\"";
    QTest::newRow("unknown type") << "Smooth" << int(Column::Type) << "Row 1, Type: \"Smooth\"";
    QTest::newRow("bias of a linear key") << "1" << int(Column::Bias) << "Row 1, Bias: ";
    QTest::newRow("another name") << "other" << int(Column::Node) << "Row 1, Node: \"other\"";
    QTest::newRow("too many rows") << "1\n2\n3\n4" << int(Column::Value) << "more rows";
    QTest::newRow("too many columns") << "1\t2" << int(Column::Bias) << "Row 1";
}

// One cell that cannot be used leaves all keys as they are.
void tst_KeyTable::pasteNamesTheCell()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    QFETCH(QString, message);
    KeyToolStage stage;
    stage.draw("A B C");
    vxApp->getUndoStack()->clear();
    const KeyToolResult result = KeyTableCells::paste(presentRows(), 0, Column(column), text);
    QVERIFY(!result.done);
    QVERIFY2(result.message.contains(message), qPrintable(result.message));
    QCOMPARE(stage.drawing(3), QString("A B C"));
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

// Edits of random cells, sorted and filtered at random. Keys stay sorted and finite, the selected
// ones exist, and undo and redo restore every bit.
void tst_KeyTable::randomEdits()
{
    KeyToolStage stage;
    QRandomGenerator random(7);
    const auto below = [&random](int count) { return int(random.bounded(count)); };
    stage.draw("A b C D . e F . G H i J");
    stage.draw(stage.node->getYPosControl(), "A B . c D . E");
    vxApp->getUndoStack()->clear();
    const std::vector<VxFloatProperty *> channels = {stage.channel, stage.node->getYPosControl()};
    const auto states = [&channels] { return state(channels[0]) + "|" + state(channels[1]); };
    QStringList history{states()};
    const QStringList typed = {"+1", "-2", "150%", "7", "0", "*=3", "1e30", "TCB", "Constant", "x"};
    for (int step = 0; step < 300; ++step) {
        KeyTableRows rows = presentRows();
        QVERIFY(rows.count() > 0);
        if (below(2) == 0)
            rows.sort(Column(below(KeyTableColumns)), Qt::SortOrder(below(2)));
        if (below(4) == 0)
            rows.setFilter(channels[1]->getLabel());
        std::vector<int> chosen;
        for (int row = 0; row < rows.count(); ++row) {
            if (below(3) == 0)
                chosen.push_back(row);
        }
        const int before = vxApp->getUndoStack()->count();
        if (below(5) == 0 && rows.count() > 0)
            KeyTableCells::paste(rows, 0, Column::Time, QString("%1\t%2").arg(below(40)).arg(step));
        else
            KeyTableCells::setColumn(rows, chosen, Column(below(KeyTableColumns)),
                                     typed[below(typed.size())]);
        if (vxApp->getUndoStack()->count() > before)
            history << states();
        QCOMPARE(states(), history.last());
        for (const VxFloatProperty *channel : channels) {
            for (int i = 0; i < channel->getNumKeys(); ++i) {
                QVERIFY(std::isfinite(channel->getKeyValue(i)));
                QVERIFY(i == 0 || channel->getKeyTime(i - 1) < channel->getKeyTime(i));
            }
            for (const VxKeySpan &span :
                 stage.app.getKeySelection()->spansOf(const_cast<VxFloatProperty *>(channel)))
                QVERIFY(span.first >= 0 && span.last <= channel->getNumKeys());
        }
    }
    QVERIFY(history.size() > 50);
    for (int i = history.size() - 1; i > 0; --i) {
        vxApp->getUndoStack()->undo();
        QCOMPARE(states(), history[i - 1]);
    }
    for (int i = 1; i < history.size(); ++i) {
        vxApp->getUndoStack()->redo();
        QCOMPARE(states(), history[i]);
    }
}

void tst_KeyTable::typingInThePane()
{
    KeyToolStage stage;
    stage.draw("A B c D");
    VxKeyTablePane pane;
    pane.resize(700, 300);
    pane.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane));
    auto *table = pane.findChild<QTableView *>("table");
    QCOMPARE(table->model()->rowCount(), 3);
    const auto cell = [table](int row, Column column) {
        return table->visualRect(table->model()->index(row, int(column))).center();
    };
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell(0, Column::Value));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      cell(2, Column::Value));
    QTest::keyClick(table, Qt::Key_F2);
    auto *editor = table->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, "+4");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(stage.drawing(4), QString("E B c H"));
    // Copied rows go back to other values of the same keys.
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text().count('\n'), 2);
    QGuiApplication::clipboard()->setText("97\n98\n100\n");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell(0, Column::Value));
    QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(stage.drawing(4), QString("A B c D"));
    // The table follows the selection and does not list deleted keys.
    stage.app.getKeySelection()->clear();
    QTRY_COMPARE(table->model()->rowCount(), 0);
}

void tst_KeyTable::destroyedPropertiesAreEmptyRows()
{
    KeyToolStage stage;
    KeyTableModel model;
    auto *extra = new VxFloatProperty("extra");
    stage.node->addProperty(extra, QString());
    stage.draw(extra, "A B");
    model.refresh();
    QCOMPARE(model.rowCount(), 2);
    stage.app.getKeySelection()->clear();
    stage.node->removeProperty(extra);
    QVERIFY(model.isStale());
    QCOMPARE(model.data(model.index(1, int(Column::Value)), Qt::DisplayRole).toString(), QString());
    model.sort(int(Column::Value), Qt::AscendingOrder);
    model.refresh();
    QCOMPARE(model.rowCount(), 0);
}

/// They are listed, and no edit or paste reaches them.
void tst_KeyTable::lockedRowsAreReadOnly()
{
    KeyToolStage stage;
    VxFloatProperty *locked = stage.node->getYPosControl();
    stage.draw("A B");
    stage.draw(locked, "C D");
    locked->setLocked(true);
    KeyTableModel model;
    model.refresh();
    QCOMPARE(model.rowCount(), 4);
    const int value = int(Column::Value);
    QVERIFY(model.flags(model.index(0, value)) & Qt::ItemIsEditable);
    QVERIFY(!(model.flags(model.index(2, value)) & Qt::ItemIsEditable));
    QVERIFY(model.index(0, value).data(Qt::ForegroundRole).isNull());
    QVERIFY(!model.index(2, value).data(Qt::ForegroundRole).isNull());
    QVERIFY2(model.rows().targets().description().contains("1 locked or linked, read-only"),
             qPrintable(model.rows().targets().description()));
    // Of several rows the others are set.
    KeyTableCells::setColumn(model.rows(), allOf(model.rows()), Column::Value, "+2");
    QCOMPARE(stage.drawing(2), QString("C D"));
    QCOMPARE(stage.drawing(locked, 2), QString("C D"));
    const KeyToolResult result =
        KeyTableCells::paste(model.rows(), 1, Column::Value, "97\n97\n97\n");
    QVERIFY(!result.done);
    QCOMPARE(result.message, QString("Row 3, Value: the property is locked or linked"));
    QCOMPARE(stage.drawing(2), QString("C D"));
    // Locked while it is listed.
    stage.channel->setLocked(true);
    QVERIFY(!(model.flags(model.index(0, value)) & Qt::ItemIsEditable));
    KeyTableCells::setColumn(model.rows(), {0}, Column::Value, "+2");
    QCOMPARE(stage.drawing(2), QString("C D"));
}

void tst_KeyTable::onlyChangesAreListedAgain()
{
    KeyToolStage stage;
    stage.draw("A B C");
    KeyTableModel model;
    model.refresh();
    model.sort(int(Column::Value), Qt::DescendingOrder);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.refresh();
    vxScene->setPlayRange({0, 5 * KeyToolStage::Frame});
    model.refresh();
    QCOMPARE(changed.count(), 0);
    stage.channel->setKeyValue(0, 150);
    model.refresh();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(model.index(0, int(Column::Value)).data().toString(), QString("150"));
    stage.node->setLabel("renamed");
    model.refresh();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(model.index(0, int(Column::Node)).data().toString(), QString("renamed"));
    stage.draw("A B c");
    model.refresh();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(model.rowCount(), 2);
}

VX_TEST_MAIN(tst_KeyTable)
#include "tst_keytable.moc"
