// The dialog between reading a motion file and its entry into the scene.

#include "document/importdialog.h"
#include "gltfsample.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

/// A ball with 31 keys at 30 frames a second in one animation and 3 keys, from 1 s on, in another.
GltfSample ball()
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (const int keys : {31, 3}) {
        std::vector<float> times;
        for (int i = 0; i < keys; ++i)
            times.push_back(float(i / 30.0 + (keys == 31 ? 0 : 1)));
        sample.animate(keys == 31 ? 0 : 1, 0, "translation", "LINEAR",
                       sample.floats(times, "SCALAR", 1),
                       sample.floats(std::vector<float>(std::size_t(keys) * 3, 1), "VEC3", 3));
    }
    return sample;
}

bool needsScrolling(const QPlainTextEdit *text)
{
    return text->verticalScrollBar()->maximum() > 0 || text->horizontalScrollBar()->maximum() > 0;
}

} // namespace

class tst_ImportDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void reportIsShown();
    void reportNeedsNoScrolling();
    void longReportFitsTheScreen();
    void reportFitsWithoutScrolling();
    void numbersFollowTheChoices();
    void reportFollowsTheChoices();
    void anotherAnimationIsRead();
    void animationsAreReadByNumber();
    void startAtZeroIsOfferedWhereItMoves();
    void unknownRateIsNotMatched();

private:
    void open(const GltfSample &sample);
    template <class Widget> Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1String(name));
    }
    QPlainTextEdit *report() const { return child<QPlainTextEdit>("importReport"); }
    void choose(int animation);
    QString numbers() const { return child<QLabel>("importNumbers")->text(); }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    QScopedPointer<VxMotionImport> m_import;
    QScopedPointer<ImportDialog> m_dialog;
};

// Beside a scene of 24 frames a second.
void tst_ImportDialog::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_scene->addNode(new VxNode(QStringLiteral("before")));
    m_scene->setTimeStep(200);
    open(ball());
}

/** Shows the dialog for a file. */
void tst_ImportDialog::open(const GltfSample &sample)
{
    m_dialog.reset();
    const QString name = m_dir->filePath(QStringLiteral("ball.gltf"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.text()) > 0);
    file.close();
    m_import.reset(new VxMotionImport(m_scene.data()));
    VxFileError error;
    QVERIFY2(m_import->load(name, &error), qPrintable(error.text()));
    m_dialog.reset(new ImportDialog(m_import.data(), name, nullptr));
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.data()));
}

void tst_ImportDialog::cleanup()
{
    m_dialog.reset();
    m_import.reset();
    m_scene.reset();
    m_undo.reset();
    m_dir.reset();
    m_guard.reset();
}

void tst_ImportDialog::reportIsShown()
{
    const QString text = child<QPlainTextEdit>("importReport")->toPlainText();
    for (const char *part : {"ball.gltf", "sample", "glTF 2.0", "30", "Animation 2"})
        QVERIFY2(text.contains(part), part);
}

void tst_ImportDialog::reportNeedsNoScrolling()
{
    QVERIFY(report()->document()->blockCount() > 15);
    QVERIFY(!needsScrolling(report()));
    choose(2);
    QVERIFY(!needsScrolling(report()));
}

// 40 names that need several lines each.
void tst_ImportDialog::longReportFitsTheScreen()
{
    GltfSample sample = ball();
    for (int i = 0; i < 40; ++i) {
        QJsonObject another = sample.animations.at(0).toObject();
        another.insert("name", QString(100, QLatin1Char(char('a' + i % 26))));
        sample.animations.append(another);
    }
    open(sample);
    QVERIFY(needsScrolling(report()));
    const QSize room = m_dialog->screen()->availableSize();
    QVERIFY(m_dialog->height() <= room.height() && m_dialog->width() <= room.width());
    const QWidget *accept = m_dialog->findChild<QDialogButtonBox *>();
    QVERIFY(accept->geometry().bottom() < m_dialog->height());
}

void tst_ImportDialog::reportFitsWithoutScrolling()
{
    VxImportReport report = m_import->report();
    report.notes = QStringList{QString(40, QLatin1Char('n')), QString(150, QLatin1Char('m'))};
    bool isSeen = false;
    QTimer::singleShot(0, this, [&isSeen] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        const auto *text = dialog->findChild<QPlainTextEdit *>();
        isSeen = text->toPlainText().endsWith(QLatin1String("mmm")) && !needsScrolling(text);
        dialog->reject();
    });
    showImportReport(report, nullptr);
    QVERIFY(isSeen);
}

void tst_ImportDialog::numbersFollowTheChoices()
{
    QVERIFY2(numbers().startsWith("102 keys, 81 of them"), qPrintable(numbers()));
    const auto toggle = [this](const char *name) {
        auto *box = child<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    };
    toggle("importMatchesRate");
    QVERIFY2(numbers().startsWith("102 keys, 0 of them"), qPrintable(numbers()));
    QVERIFY(m_dialog->choices().matchesRate);
    toggle("importMatchesRate");
    toggle("importSnapsToFrames");
    QVERIFY2(numbers().contains(", 0 of them") && numbers().contains("80 ticks"),
             qPrintable(numbers()));
    toggle("importRotationsOnly");
    QVERIFY2(numbers().startsWith("0 keys") && numbers().contains("102 keys are left out"),
             qPrintable(numbers()));
    QCOMPARE(m_scene->getNumNodes(), 1);
}

void tst_ImportDialog::reportFollowsTheChoices()
{
    const auto has = [this](const char *line) {
        return report()->toPlainText().split('\n').contains(QLatin1String(line));
    };
    const auto toggle = [this](const char *name) {
        auto *box = child<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    };
    QVERIFY(has("Frame rate of the file: 30 (by its keys)"));
    QVERIFY(has("Frame rate of the scene: 24 (200 ticks per frame)"));
    QVERIFY(has("Keys between frames: 81"));
    toggle("importMatchesRate");
    QVERIFY(has("Frame rate of the scene: 30 (160 ticks per frame)"));
    QVERIFY(has("Keys between frames: 0"));
    toggle("importMatchesRate");
    toggle("importSnapsToFrames");
    QVERIFY(has("Keys between frames: 0"));
    QVERIFY(report()->toPlainText().contains("Keys were snapped to frames: moved by up to 80"));

    // Then as what was done.
    VxFileError error;
    QVERIFY(m_import->enter(m_dialog->choices(), &error));
    const VxImportReport done = m_import->report();
    QCOMPARE(done.sceneStep, m_scene->getTimeStep());
    qint64 keys = 0;
    const VxNode *node = m_import->getRoots().constFirst();
    for (const VxFloatProperty *property :
         {node->getXPosControl(), node->getYPosControl(), node->getZPosControl()})
        keys += property->getNumKeys();
    QCOMPARE(done.keysAfter, keys);
    const QJsonObject json = done.toJson();
    QCOMPARE(json.value("offFrameKeys").toInt(-1), 0);
    QCOMPARE(json.value("sceneRate").toDouble(), 24.0);
    QVERIFY(json.value("notes").toArray().last().toString().contains("snapped"));
    QVERIFY2(m_import->getSummary().contains("The file has 30 frames per second, the scene 24."),
             qPrintable(m_import->getSummary()));
}

/** By keys; 0: all. */
void tst_ImportDialog::choose(int animation)
{
    auto *animations = child<QComboBox>("importAnimation");
    animations->setFocus();
    QTest::keyClick(animations, Qt::Key_Home);
    for (int i = 0; i < animation; ++i)
        QTest::keyClick(animations, Qt::Key_Down);
}

void tst_ImportDialog::anotherAnimationIsRead()
{
    QCOMPARE(child<QComboBox>("importAnimation")->count(), 3);
    choose(2);
    QVERIFY2(numbers().startsWith("9 keys"), qPrintable(numbers()));
    QVERIFY(report()->toPlainText().contains("1 of 2: Animation 2"));
}

// The first animation is named "2", the second "1".
void tst_ImportDialog::animationsAreReadByNumber()
{
    GltfSample sample = ball();
    for (int i = 0; i < 2; ++i) {
        QJsonObject named = sample.animations.at(i).toObject();
        named.insert("name", QString::number(2 - i));
        sample.animations.replace(i, named);
    }
    open(sample);
    choose(2);
    QVERIFY2(numbers().startsWith("9 keys"), qPrintable(numbers()));
    QVERIFY(report()->toPlainText().contains("1 of 2: 1 ("));
}

void tst_ImportDialog::startAtZeroIsOfferedWhereItMoves()
{
    auto *box = child<QCheckBox>("importStartsAtZero");
    QVERIFY(!box->isEnabled() && box->toolTip().contains("Several animations"));
    choose(1);
    QVERIFY(!box->isEnabled() && box->toolTip().contains("at time 0 already"));
    choose(2);
    QVERIFY(box->isEnabled() && box->toolTip().isEmpty());
    QVERIFY(report()->toPlainText().contains("1 s, kept"));
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QVERIFY(report()->toPlainText().contains("1 s, moved to 0"));
    QVERIFY(box->isEnabled()); // it can be undone
}

void tst_ImportDialog::unknownRateIsNotMatched()
{
    const auto *box = child<QCheckBox>("importMatchesRate");
    QVERIFY(box->isEnabled() && box->toolTip().isEmpty());
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    sample.animate(0, 0, "translation", "LINEAR", sample.floats({0, 0.0123f, 0.777f}, "SCALAR", 1),
                   sample.floats(std::vector<float>(9, 1), "VEC3", 3));
    open(sample);
    box = child<QCheckBox>("importMatchesRate");
    QVERIFY(!box->isEnabled() && box->toolTip().contains("unknown"));
    VxImportChoices choices; // of a script
    choices.matchesRate = true;
    VxFileError error;
    QVERIFY(m_import->enter(choices, &error));
    QCOMPARE(m_scene->getTimeStep(), 200);
    QCOMPARE(m_import->report().sceneStep, 200);
}

VX_TEST_MAIN(tst_ImportDialog)
#include "tst_importdialog.moc"
