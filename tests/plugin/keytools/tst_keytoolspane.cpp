#include "keytoolstage.h"

#include "keytools/vxkeytoolspane.h"
#include "testing/vxtestmain.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vxcore/vxsettings.h>

class tst_KeyToolsPane : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void paneRunsWhatIsTyped();
    void paneKeepsItsFields();
};

void tst_KeyToolsPane::paneRunsWhatIsTyped()
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

VX_TEST_MAIN(tst_KeyToolsPane)
#include "tst_keytoolspane.moc"
