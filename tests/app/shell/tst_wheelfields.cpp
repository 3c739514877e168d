// The wheel over number fields, sliders and combo boxes, in every pane and dialog of the program.

#include "document/importdialog.h"
#include "gltfsample.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDial>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

namespace {

// The time range slider zooms and shifts time under the wheel.
bool isField(const QWidget *widget)
{
    return widget->inherits("QAbstractSpinBox") || widget->inherits("QComboBox") ||
           widget->inherits("QSlider") || widget->inherits("QDial");
}

QString valueOf(const QWidget *field)
{
    if (const auto *box = qobject_cast<const QAbstractSpinBox *>(field))
        return box->text();
    if (const auto *choice = qobject_cast<const QComboBox *>(field))
        return choice->currentText();
    return QString::number(qobject_cast<const QAbstractSlider *>(field)->value());
}

// As from the window system, which gives the focus before it sends the event.
void wheel(QWidget *target, int steps)
{
    const QPoint place = target->rect().center();
    QWheelEvent event(place, target->mapToGlobal(place), QPoint(), QPoint(0, 120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(target, &event);
}

} // namespace

class tst_WheelFields : public QObject, protected StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUpShared(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void fieldsOfAllPanes();
    void fieldsOfAllKeyTools();
    void fieldOfTheParametersPane();
    void fieldOfTheImportDialog();
    void anyField_data();
    void anyField();
    void theListAroundScrolls();

private:
    // Turns the wheel over each field below the widget and returns how many there are.
    int turnOverAll(QWidget *widget);
};

int tst_WheelFields::turnOverAll(QWidget *widget)
{
    int count = 0;
    for (QWidget *field : widget->findChildren<QWidget *>()) {
        if (!isField(field))
            continue;
        ++count;
        field->ensurePolished();
        field->setEnabled(true);
        const QString before = valueOf(field);
        const QWidget *const focus = QApplication::focusWidget();
        for (const int steps : {1, -1, -1}) {
            wheel(field, steps);
            if (valueOf(field) != before || QApplication::focusWidget() != focus)
                qWarning("%s %s follows the wheel", field->metaObject()->className(),
                         qPrintable(field->objectName()));
        }
    }
    return count;
}

void tst_WheelFields::fieldsOfAllPanes()
{
    openSample();
    inTimePane<QAbstractItemView>("TimelineDopeSheetTView")->setFocus();
    for (PaneDock *dock : window()->docks()->docks()) {
        dock->show();
        dock->raise();
        QCoreApplication::processEvents();
        const int count = turnOverAll(dock);
        if (dock->paneClassName() == "VxTimePane")
            QCOMPARE(count, 8);
    }
}

void tst_WheelFields::fieldsOfAllKeyTools()
{
    PaneDock *dock = window()->docks()->find("VxKeyToolsPane");
    QVERIFY(dock);
    dock->show();
    dock->raise();
    auto *tools = dock->findChild<QComboBox *>("tools");
    QVERIFY(tools->count() > 3);
    window()->setFocus();
    int most = 0;
    for (int i = 0; i < tools->count(); ++i) {
        tools->setCurrentIndex(i);
        QCoreApplication::processEvents();
        most = qMax(most, turnOverAll(dock));
    }
    QVERIFY(most > 1); // a tool has choices of its own
}

void tst_WheelFields::fieldOfTheParametersPane()
{
    openSample();
    vxScene->nodeListIterator().next()->select();
    PaneDock *dock = window()->docks()->find("VxParametersPane");
    dock->raise();
    auto *list = dock->findChild<QAbstractItemView *>("ParametersPropertyList");
    QTRY_VERIFY(list->model()->rowCount() > 0);
    QModelIndex value;
    for (int row = 0; row < list->model()->rowCount() && !value.isValid(); ++row) {
        const QModelIndex index = list->model()->index(row, 1);
        if (index.flags() & Qt::ItemIsEditable)
            value = index;
    }
    QVERIFY(value.isValid());
    window()->setFocus();
    std::unique_ptr<QWidget> editor(
        list->itemDelegate(value)->createEditor(list->viewport(), QStyleOptionViewItem(), value));
    QVERIFY(editor && isField(editor.get()));
    editor->show();
    QCOMPARE(turnOverAll(list->viewport()), 1);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    editor->setFocus();
    const QString before = valueOf(editor.get());
    wheel(editor.get(), 1);
    QVERIFY(valueOf(editor.get()) != before);
}

void tst_WheelFields::fieldOfTheImportDialog()
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (int i = 0; i < 3; ++i)
        sample.animate(i, 0, "translation", "LINEAR", sample.floats({0, 1}, "SCALAR", 1),
                       sample.floats({0, 0, 0, 1, 1, 1}, "VEC3", 3));
    const QString name = folder->filePath("ball.gltf");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.text()) > 0);
    file.close();
    VxMotionImport import(vxScene);
    VxFileError error;
    QVERIFY2(import.load(name, &error), qPrintable(error.text()));
    ImportDialog dialog(&import, name, window());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.findChild<QPlainTextEdit *>("importReport")->setFocus();
    QCOMPARE(turnOverAll(&dialog), 1);
}

void tst_WheelFields::anyField_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("number field") << 0;
    QTest::newRow("fraction field") << 1;
    QTest::newRow("combo box") << 2;
    QTest::newRow("combo box that takes text") << 3;
    QTest::newRow("slider") << 4;
    QTest::newRow("dial") << 5;
}

QWidget *makeField(int kind)
{
    switch (kind) {
    case 0:
        return new QSpinBox;
    case 1:
        return new QDoubleSpinBox;
    case 2:
    case 3: {
        auto *choice = new QComboBox;
        choice->addItems({"a", "b", "c"});
        choice->setCurrentIndex(1);
        choice->setEditable(kind == 3);
        return choice;
    }
    case 4:
        return new QSlider(Qt::Horizontal);
    default:
        return new QDial;
    }
}

// Fields that some plug-in brings along, in a window of their own.
void tst_WheelFields::anyField()
{
    QFETCH(int, kind);
    QWidget box;
    auto *layout = new QVBoxLayout(&box);
    auto *other = new QLineEdit;
    layout->addWidget(other);
    QWidget *field = makeField(kind);
    layout->addWidget(field);
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    other->setFocus();
    QCOMPARE(turnOverAll(&box), 1);
    QVERIFY(other->hasFocus());
    field->setFocus();
    const QString before = valueOf(field);
    wheel(field, 1);
    QVERIFY(valueOf(field) != before);
}

void tst_WheelFields::theListAroundScrolls()
{
    QScrollArea area;
    auto *content = new QWidget;
    auto *field = new QSpinBox(content);
    content->setMinimumSize(200, 2000);
    area.setWidget(content);
    area.resize(250, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    area.setFocus();
    QVERIFY(!field->hasFocus());
    wheel(field, -1);
    QVERIFY(area.verticalScrollBar()->value() > 0);
    QCOMPARE(field->value(), 0);
}

VX_TEST_MAIN(tst_WheelFields)
#include "tst_wheelfields.moc"
