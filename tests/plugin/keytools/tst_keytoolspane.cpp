#include "keytools/vxkeytoolspane.h"
#include "keytoolstage.h"
#include "testing/vxtestmain.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vxcore/vxsettings.h>
#include <vxcore/vxundostack.h>

class tst_KeyToolsPane : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void paneRunsTheTypedParameters();
    void toolsNameWhatTheyWorkOn();
    void theResultIsScrolledIntoView();
    void returnInAChoiceApplies();
    void typingShowsAPreview();
    void previewEnds_data();
    void previewEnds();
    void paneKeepsItsFields();
    void fieldsAreNotSqueezed();
};

void tst_KeyToolsPane::paneRunsTheTypedParameters()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.show();
    stage.draw("A B . . c");
    pane.setTool("move");
    QCOMPARE(pane.findChild<QLabel *>("targets")->text(),
             QString("Works on 2 selected keys on 1 channel."));
    auto *field = pane.findChild<QLineEdit *>("move.by");
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, "1 + 1");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    QCOMPARE(pane.findChild<QLabel *>("result")->text(),
             QString("Move Keys: 2 selected keys on 1 channel"));
    field->setText("nonsense");
    QTest::mouseClick(pane.findChild<QPushButton *>("apply"), Qt::LeftButton);
    QVERIFY(pane.findChild<QLabel *>("result")->text().contains("nonsense"));
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    // The line about the keys follows the selection.
    stage.app.getKeySelection()->clear();
    QTRY_COMPARE(
        pane.findChild<QLabel *>("targets")->text(),
        QString("Works on 0 keys of the selected nodes in the play range, on 0 channels."));
}

void tst_KeyToolsPane::toolsNameWhatTheyWorkOn()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.show();
    stage.draw("A B . . c");
    const auto *targets = pane.findChild<QLabel *>("targets");
    pane.setTool("reduce");
    QCOMPARE(targets->text(), QString("Works on 2 selected keys on 1 channel."));
    stage.node->select(true);
    auto *scope = pane.findChild<QComboBox *>("reduce.scope");
    QTest::keyClick(scope, Qt::Key_Down);
    QCOMPARE(targets->text(),
             QString("Works on 3 keys of the figure in the play range, on 1 channel."));
    QTest::keyClick(scope, Qt::Key_Down);
    QCOMPARE(targets->text(), QString("Works on 3 keys of the scene, on 1 channel."));
    pane.setTool("pin");
    QCOMPARE(targets->text(), QString("Works on the keys of the two bones above node."));
    pane.setTool("paste");
    QCOMPARE(targets->text(), QString("Works on the copied keys."));
}

void tst_KeyToolsPane::theResultIsScrolledIntoView()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.resize(260, 200);
    pane.show();
    stage.draw("A B . . c");
    pane.setTool("reduce");
    const auto *result = pane.findChild<QLabel *>("result");
    QVERIFY(result->visibleRegion().isEmpty());
    QTest::keyClick(pane.findChild<QLineEdit *>("reduce.error"), Qt::Key_Return);
    QVERIFY(!result->text().isEmpty());
    QCOMPARE(result->visibleRegion().boundingRect(), result->rect());
}

void tst_KeyToolsPane::returnInAChoiceApplies()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.show();
    stage.draw("A B . . c");
    vxApp->getUndoStack()->clear();
    pane.setTool("move");
    QTest::keyClicks(pane.findChild<QLineEdit *>("move.by"), "1"); // replaces the default
    auto *ripple = pane.findChild<QComboBox *>("move.ripple");
    QTest::keyClicks(ripple, "Later");
    QCOMPARE(stage.drawing(6), QString(". A B . . c"));
    QTest::keyClick(ripple, Qt::Key_Return);
    QCOMPARE(stage.drawing(6), QString(". A B . . c"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

// Each preview starts from the keys before the first one; Return makes a single undo entry.
void tst_KeyToolsPane::typingShowsAPreview()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.show();
    stage.draw("A B . . c");
    vxApp->getUndoStack()->clear();
    pane.setTool("move");
    auto *field = pane.findChild<QLineEdit *>("move.by");
    field->selectAll();
    QTest::keyClicks(field, "1");
    QCOMPARE(stage.drawing(5), QString(". A B . c"));
    QTest::keyClicks(field, "+");
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
    QVERIFY(pane.findChild<QLabel *>("result")->text().contains("1+"));
    QTest::keyClicks(field, "1");
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
}

void tst_KeyToolsPane::previewEnds_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("Escape") << "escape";
    QTest::newRow("the focus leaves the field") << "focus";
    QTest::newRow("another tool is chosen") << "tool";
    QTest::newRow("a command runs by its shortcut") << "shortcut";
    QTest::newRow("the pane is hidden") << "hide";
    QTest::newRow("the pane is destroyed") << "destroy";
}

void tst_KeyToolsPane::previewEnds()
{
    QFETCH(QString, how);
    KeyToolStage stage;
    auto pane = std::make_unique<VxKeyToolsPane>();
    QAction command;
    command.setShortcut(QKeySequence("Ctrl+J"));
    pane->addAction(&command);
    QString seen;
    connect(&command, &QAction::triggered, this, [&] { seen = stage.drawing(5); });
    pane->show();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
    stage.draw("A B . . c");
    vxApp->getUndoStack()->clear();
    pane->setTool("move");
    auto *field = pane->findChild<QLineEdit *>("move.by");
    QTRY_VERIFY(field->isVisible());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "2");
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    if (how == "escape")
        QTest::keyClick(field, Qt::Key_Escape);
    else if (how == "focus")
        pane->findChild<QComboBox *>("tools")->setFocus();
    else if (how == "tool")
        pane->setTool("snap");
    else if (how == "shortcut")
        QTest::keyClick(field, Qt::Key_J, Qt::ControlModifier);
    else if (how == "hide")
        pane->hide();
    else
        pane.reset();
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    if (how == "shortcut")
        QCOMPARE(seen, QString("A B . . c"));
}

void tst_KeyToolsPane::paneKeepsItsFields()
{
    KeyToolStage stage;
    VxSettings *settings = stage.app.getSettings()->getSettings("KeyToolsTest");
    {
        VxKeyToolsPane pane;
        pane.setTool("move");
        QVERIFY(pane.setField("by", "7"));
        QVERIFY(!pane.setField("none", "7"));
        pane.setTool("reduce");
        QVERIFY(pane.setField("type", "TCB"));
        pane.setTool("move");
        QCOMPARE(pane.findChild<QLineEdit *>("move.by")->text(), QString("7"));
        pane.setTool("reduce");
        pane.saveSettings(settings);
    }
    VxKeyToolsPane pane;
    pane.restoreSettings(settings);
    QCOMPARE(pane.getTool(), QString("reduce"));
    QCOMPARE(pane.findChild<QComboBox *>("reduce.type")->currentText(), QString("TCB"));
    pane.setTool("move");
    QCOMPARE(pane.findChild<QLineEdit *>("move.by")->text(), QString("7"));
}

/// In a low and narrow pane every field of every tool has the height of its size hint, and room for
/// a number.
void tst_KeyToolsPane::fieldsAreNotSqueezed()
{
    KeyToolStage stage;
    VxKeyToolsPane pane;
    pane.resize(240, 160);
    pane.show();
    for (const KeyTool &tool : KeyTool::all()) {
        pane.setTool(tool.name);
        for (int i = 0; i < 4; ++i) // a scroll bar may change the width
            QCoreApplication::processEvents();
        for (const KeyToolParameter &parameter : tool.parameters) {
            const auto *field = pane.findChild<QWidget *>(tool.name + '.' + parameter.name);
            QVERIFY(field);
            QVERIFY2(field->height() >= field->minimumSizeHint().height() && field->width() >= 60,
                     qPrintable(QString("%1: %2 x %3")
                                    .arg(field->objectName())
                                    .arg(field->width())
                                    .arg(field->height())));
        }
        for (const char *name : {"description", "targets"}) {
            const auto *label = pane.findChild<QLabel *>(name);
            QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                     qPrintable(tool.name + ' ' + name));
        }
    }
}

VX_TEST_MAIN(tst_KeyToolsPane)
#include "tst_keytoolspane.moc"
