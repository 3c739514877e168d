// The dialog between reading a motion file and its entry into the scene.

#include "document/importdialog.h"
#include "gltfsample.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

class tst_ImportDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void reportIsShown();
    void numbersFollowTheChoices();
    void anotherAnimationIsRead();

private:
    template <class Widget> Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1String(name));
    }
    QString numbers() const { return child<QLabel>("importNumbers")->text(); }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    QScopedPointer<VxMotionImport> m_import;
    QScopedPointer<ImportDialog> m_dialog;
};

// A ball with 31 keys at 30 frames a second in one animation and 3 keys in another, beside a scene
// of 24 frames a second.
void tst_ImportDialog::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_scene->addNode(new VxNode(QStringLiteral("before")));
    m_scene->setTimeStep(200);
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (const int keys : {31, 3}) {
        std::vector<float> times;
        for (int i = 0; i < keys; ++i)
            times.push_back(float(i / 30.0));
        sample.animate(keys == 31 ? 0 : 1, 0, "translation", "LINEAR",
                       sample.floats(times, "SCALAR", 1),
                       sample.floats(std::vector<float>(std::size_t(keys) * 3, 1), "VEC3", 3));
    }
    const QString name = m_dir->filePath(QStringLiteral("ball.gltf"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.text()) > 0);
    file.close();
    m_import.reset(new VxMotionImport(m_scene.data()));
    VxFileError error;
    QVERIFY2(m_import->load(name, &error), qPrintable(error.text()));
    m_dialog.reset(new ImportDialog(m_import.data(), name, nullptr));
    m_dialog->show();
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

void tst_ImportDialog::anotherAnimationIsRead()
{
    auto *animations = child<QComboBox>("importAnimation");
    QCOMPARE(animations->count(), 3);
    animations->setFocus();
    QTest::keyClick(animations, Qt::Key_Down);
    QTest::keyClick(animations, Qt::Key_Down);
    QVERIFY2(numbers().startsWith("9 keys"), qPrintable(numbers()));
    QVERIFY(child<QPlainTextEdit>("importReport")->toPlainText().contains("1 of 2: Animation 2"));
}

VX_TEST_MAIN(tst_ImportDialog)
#include "tst_importdialog.moc"
