#include "action/vxshortcuttable.h"
#include "actionclasses.h"
#include "testing/vxtestmain.h"

#include <QtTest>

namespace {

const QString copy = QStringLiteral("Copy");
const QString cut = QStringLiteral("Cut");
const QString play = QStringLiteral("Play");

/** Copy Ctrl+C, Cut Ctrl+X, Play without one. */
VxShortcutTable makeTable()
{
    VxShortcutTable table;
    table.add(copy, keys("Ctrl+C"));
    table.add(cut, keys("Ctrl+X"));
    table.add(play, QKeySequence());
    return table;
}

} // namespace

class tst_VxShortcutTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void defaultsAreInForce();
    void firstOfTwoEqualDefaultsKeepsIt();
    void settingRemovesFromTheFormerOwner();
    void settingTheSameChangesNothing();
    void unknownNamesAreIgnored();
    void emptySequencesAreUnassigned();
    void removingFreesTheSequence();
    void onlyDifferencesAreChanges();
    void restoringChangesGivesTheSameState();
    void restoringNothingGivesTheDefaults();
    void restoredSequencesTakePrecedenceOverDefaults();
    void firstOfTwoEqualRestoredSequencesGetsIt();
};

void tst_VxShortcutTable::defaultsAreInForce()
{
    const VxShortcutTable table = makeTable();
    QCOMPARE(table.shortcut(copy), keys("Ctrl+C"));
    QCOMPARE(table.find(keys("Ctrl+X")), cut);
    QVERIFY(table.shortcut(play).isEmpty());
    QVERIFY(table.changes().isEmpty());
}

void tst_VxShortcutTable::firstOfTwoEqualDefaultsKeepsIt()
{
    VxShortcutTable table = makeTable();
    QString holder;
    QVERIFY(!table.add(QStringLiteral("Clear"), keys("Ctrl+C"), &holder));
    QCOMPARE(holder, copy);
    QVERIFY(table.shortcut(QStringLiteral("Clear")).isEmpty());
    QCOMPARE(table.find(keys("Ctrl+C")), copy);
    QVERIFY(table.changes().isEmpty());
}

void tst_VxShortcutTable::settingRemovesFromTheFormerOwner()
{
    VxShortcutTable table = makeTable();
    QCOMPARE(table.set(play, keys("Ctrl+C")), (QStringList{copy, play}));
    QVERIFY(table.shortcut(copy).isEmpty());
    QCOMPARE(table.find(keys("Ctrl+C")), play);
    QCOMPARE(table.set(play, keys("Space")), QStringList{play});
    QVERIFY(table.find(keys("Ctrl+C")).isEmpty());
}

void tst_VxShortcutTable::settingTheSameChangesNothing()
{
    VxShortcutTable table = makeTable();
    QVERIFY(table.set(copy, keys("Ctrl+C")).isEmpty());
}

void tst_VxShortcutTable::unknownNamesAreIgnored()
{
    VxShortcutTable table = makeTable();
    QVERIFY(table.set(QStringLiteral("Unknown"), keys("Ctrl+C")).isEmpty());
    QCOMPARE(table.find(keys("Ctrl+C")), copy);
}

void tst_VxShortcutTable::emptySequencesAreUnassigned()
{
    VxShortcutTable table = makeTable();
    QCOMPARE(table.set(copy, QKeySequence()), QStringList{copy});
    QCOMPARE(table.set(cut, QKeySequence()), QStringList{cut});
    QVERIFY(table.find(QKeySequence()).isEmpty());
}

void tst_VxShortcutTable::removingFreesTheSequence()
{
    VxShortcutTable table = makeTable();
    table.remove(copy);
    QVERIFY(!table.contains(copy));
    QVERIFY(table.find(keys("Ctrl+C")).isEmpty());
    QVERIFY(table.add(QStringLiteral("Clear"), keys("Ctrl+C")));
}

void tst_VxShortcutTable::onlyDifferencesAreChanges()
{
    VxShortcutTable table = makeTable();
    table.set(play, keys("Ctrl+C"));
    const QHash<QString, QKeySequence> expected{{copy, QKeySequence()}, {play, keys("Ctrl+C")}};
    QCOMPARE(table.changes(), expected);
}

void tst_VxShortcutTable::restoringChangesGivesTheSameState()
{
    VxShortcutTable before = makeTable();
    before.set(play, keys("Ctrl+C"));
    before.set(cut, keys("F2"));
    VxShortcutTable after = makeTable();
    QCOMPARE(after.restore(before.changes()), (QStringList{copy, cut, play}));
    QCOMPARE(after.changes(), before.changes());
    QCOMPARE(after.find(keys("Ctrl+C")), play);
    QVERIFY(after.restore(before.changes()).isEmpty());
}

void tst_VxShortcutTable::restoringNothingGivesTheDefaults()
{
    VxShortcutTable table = makeTable();
    table.set(play, keys("Ctrl+C"));
    table.restore({});
    QCOMPARE(table.shortcut(copy), keys("Ctrl+C"));
    QVERIFY(table.shortcut(play).isEmpty());
}

void tst_VxShortcutTable::restoredSequencesTakePrecedenceOverDefaults()
{
    VxShortcutTable table = makeTable();
    // Stored when Copy had another default: Play had this one and was never reset.
    table.restore({{play, keys("Ctrl+C")}});
    QCOMPARE(table.find(keys("Ctrl+C")), play);
    QVERIFY(table.shortcut(copy).isEmpty());
}

void tst_VxShortcutTable::firstOfTwoEqualRestoredSequencesGetsIt()
{
    VxShortcutTable table = makeTable();
    table.restore(
        {{play, keys("F5")}, {copy, keys("F5")}, {QStringLiteral("Removed"), keys("F5")}});
    QCOMPARE(table.find(keys("F5")), copy);
    QVERIFY(table.shortcut(play).isEmpty());
}

VX_TEST_MAIN(tst_VxShortcutTable)
#include "tst_vxshortcuttable.moc"
