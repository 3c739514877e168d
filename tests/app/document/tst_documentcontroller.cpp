// Long work on documents: its progress is shown, the window responds, and cancelling leaves the
// scene and the files as they were.

#include "dialoganswers.h"
#include "document/documentcontroller.h"
#include "io/vxscenewriter.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"
#include "widgets/usermessages.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QtTest>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

/// The program's own formats on a machine that is slow: each report of progress takes a while.
VxFileFormats slowFormats(int milliseconds)
{
    const VxFileFormats real = VxFileFormats::standard();
    const auto slow = [milliseconds](const VxFileProgress &progress) -> VxFileProgress {
        return [progress, milliseconds](int percent) {
            QThread::msleep(ulong(milliseconds));
            return progress(percent);
        };
    };
    VxFileFormats formats;
    for (const char *suffix : {"vxscene", "bvh"}) {
        VxFileFormat format = *real.find(QStringLiteral("x.") + QLatin1String(suffix));
        // The controller imports motion files itself; here it shall use the slow reader.
        format.isMotion = false;
        const VxFileFormat::Reader read = format.read;
        format.read = [read, slow](const QString &file, VxScene *scene,
                                   const VxFileProgress &progress, QString *summary,
                                   VxFileError *error) {
            return read(file, scene, slow(progress), summary, error);
        };
        if (const VxFileFormat::Writer write = format.write)
            format.write = [write, slow](const QString &file, const VxScene *scene,
                                         const VxFileProgress &progress, VxFileError *error) {
                return write(file, scene, slow(progress), error);
            };
        formats.add(format);
    }
    return formats;
}

/// Waits for the progress dialog and cancels it once it shows the requested percentage. A timer
/// that runs meanwhile shows whether the window was responsive.
class Canceller : public QObject
{
public:
    explicit Canceller(int percent)
        : m_percent(percent)
    {
        connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
        m_timer.start(5);
    }

    bool hasCancelled() const { return m_cancelled; }
    int turns() const { return m_turns; }

private:
    void look()
    {
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!dialog || m_cancelled)
            return;
        ++m_turns;
        if (dialog->value() < m_percent)
            return;
        m_cancelled = true;
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    }

    QTimer m_timer;
    int m_percent;
    int m_turns = 0;
    bool m_cancelled = false;
};

} // namespace

class tst_DocumentController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void openingCanBeCancelled_data();
    void openingCanBeCancelled();
    void openingShowsItsProgress();
    void savingCanBeCancelled();
    void savingShowsItsProgress();
    void aFailureIsShownWithoutTheProgress();
    void aSecondFileIsQueued();
    void progressEndsBeforeTheSceneChanges_data();
    void progressEndsBeforeTheSceneChanges();

private:
    QByteArray contents(const QString &name) const;
    QString makeMotion() const;
    QString makeScene();

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_stack;
    QScopedPointer<VxScene> m_scene;
    QScopedPointer<VxMainWindow> m_window;
    QScopedPointer<UserMessages> m_messages;
};

void tst_DocumentController::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_stack.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_window.reset(new VxMainWindow);
    m_window->show();
    m_messages.reset(new UserMessages(UserMessages::Mode::Window));
    m_messages->setWindow(m_window.data());
}

void tst_DocumentController::cleanup()
{
    m_messages.reset();
    m_window.reset();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

QByteArray tst_DocumentController::contents(const QString &name) const
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** A motion of some length, whose figure takes a while to build, too. */
QString tst_DocumentController::makeMotion() const
{
    QByteArray bytes("HIERARCHY\nROOT j0\n{\nOFFSET 0 1 0\nCHANNELS 1 Xrotation\n");
    const int joints = 120;
    for (int i = 1; i < joints; ++i)
        bytes += "JOINT j" + QByteArray::number(i) + "\n{\nOFFSET 0 1 0\nCHANNELS 1 Xrotation\n";
    bytes += "End Site\n{\nOFFSET 0 1 0\n}\n" + QByteArray("}\n").repeated(joints);
    bytes += "MOTION\nFrames: 300\nFrame Time: 0.04\n";
    bytes += (QByteArray("1.5 ").repeated(joints) + '\n').repeated(300);
    QFile file(m_dir->filePath(QStringLiteral("long.bvh")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the motion");
    return file.fileName();
}

QString tst_DocumentController::makeScene()
{
    VxScene scene;
    WalkSample::build(&scene);
    const QString name = m_dir->filePath(QStringLiteral("walk.vxscene"));
    VxFileError error;
    if (!VxSceneWriter(&scene).writeFile(name, &error))
        qFatal("cannot write the scene");
    return name;
}

void tst_DocumentController::openingCanBeCancelled_data()
{
    QTest::addColumn<bool>("motion");
    QTest::addColumn<int>("percent");
    QTest::newRow("a motion, while it is read") << true << 30;
    QTest::newRow("a motion, while its figure is built") << true << 80;
    QTest::newRow("a scene") << false << 60;
}

void tst_DocumentController::openingCanBeCancelled()
{
    QFETCH(bool, motion);
    QFETCH(int, percent);
    m_scene->addNode(new VxNode(QStringLiteral("kept")));
    m_scene->setTime(480);
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                slowFormats(15));
    QSignalSpy changed(&document, &DocumentController::documentChanged);
    QSignalSpy cleared(m_scene.data(), &VxScene::sceneClearStarting);
    const Canceller canceller(percent);
    QVERIFY(!document.open(motion ? makeMotion() : makeScene()));
    QVERIFY(canceller.hasCancelled());
    QCOMPARE(cleared.count() + changed.count(), 0);
    QCOMPARE(m_scene->getNumNodes(), 1);
    QVERIFY(m_scene->findNode(QStringLiteral("kept")));
    QCOMPARE(m_scene->getTime(), 480);
    QVERIFY(!m_scene->isLoading());
    QVERIFY(document.fileName().isEmpty());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_DocumentController::openingShowsItsProgress()
{
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                slowFormats(15));
    const Canceller observer(1000); // never
    QVERIFY(document.open(makeMotion()));
    QVERIFY(observer.turns() > 10);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(m_scene->getNumNodes(), 121);
}

void tst_DocumentController::savingCanBeCancelled()
{
    const QString name = makeScene();
    const QByteArray before = contents(name);
    QVERIFY(!before.isEmpty());
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                slowFormats(20));
    QVERIFY(document.open(name));
    m_scene->setTime(4800);
    const Canceller canceller(60);
    QVERIFY(!document.save(name));
    QVERIFY(canceller.hasCancelled());
    QCOMPARE(contents(name), before);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList{"walk.vxscene"});
}

void tst_DocumentController::savingShowsItsProgress()
{
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                slowFormats(20));
    WalkSample::build(m_scene.data());
    const Canceller observer(1000);
    const QString name = m_dir->filePath(QStringLiteral("new.vxscene"));
    QVERIFY(document.save(name));
    QVERIFY(observer.turns() > 10);
    QCOMPARE(document.fileName(), name);
}

/// The disk becomes full at the end.
void tst_DocumentController::aFailureIsShownWithoutTheProgress()
{
    VxFileFormat format = *VxFileFormats::standard().find(QStringLiteral("x.vxscene"));
    format.write = [](const QString &, const VxScene *, const VxFileProgress &progress,
                      VxFileError *error) {
        for (int percent = 0; percent < 100; ++percent) {
            QThread::msleep(10);
            progress(percent);
        }
        error->message = QStringLiteral("The disk is full.");
        return false;
    };
    VxFileFormats formats;
    formats.add(format);
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                formats);
    const Canceller observer(1000);
    bool isProgressShown = false;
    const DialogAnswer<QMessageBox> answer([&isProgressShown](QMessageBox *box) {
        for (const QWidget *window : QApplication::topLevelWidgets())
            isProgressShown |= qobject_cast<const QProgressDialog *>(window) && window->isVisible();
        box->button(QMessageBox::Ok)->click();
        return true;
    });
    QVERIFY(!document.save(m_dir->filePath(QStringLiteral("new.vxscene"))));
    QVERIFY(observer.turns() > 10 && answer.met());
    QVERIFY(!isProgressShown);
}

void tst_DocumentController::aSecondFileIsQueued()
{
    const QString scene = makeScene();
    const QString motion = makeMotion();
    DocumentController document(m_scene.data(), m_stack.data(), m_messages.data(), nullptr,
                                slowFormats(15));
    int refused = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (!QApplication::activeModalWidget())
            return;
        timer.stop();
        refused += !document.open(motion);
        refused += !document.save(scene);
    });
    timer.start(5);
    QVERIFY(document.open(scene));
    QCOMPARE(refused, 2);
    QCOMPARE(document.fileName(), scene);
}

void tst_DocumentController::progressEndsBeforeTheSceneChanges_data()
{
    QTest::addColumn<bool>("motion");
    QTest::newRow("a motion") << true;
    QTest::newRow("a scene") << false;
}

/// Whatever is reported, from reading to building, is reported while there is a way back.
void tst_DocumentController::progressEndsBeforeTheSceneChanges()
{
    QFETCH(bool, motion);
    bool changed = false;
    connect(m_scene.data(), &VxScene::sceneLoadStarting, this, [&] { changed = true; });
    QVector<int> reports;
    QString summary;
    VxFileError error;
    const bool opened = VxFileFormats::standard().read(
        motion ? makeMotion() : makeScene(), m_scene.data(),
        [&](int percent) {
            reports.append(percent);
            return !changed;
        },
        &summary, &error);
    QVERIFY2(opened, qPrintable(error.text()));
    QVERIFY(changed);
    QVERIFY(std::is_sorted(reports.begin(), reports.end()));
    QVERIFY2(reports.last() > 90 && reports.last() <= 100,
             qPrintable(QString::number(reports.last())));
    if (motion) // the building is a part of it
        QVERIFY(std::count_if(reports.begin(), reports.end(), [](int p) { return p > 71; }) > 10);
}

VX_TEST_MAIN(tst_DocumentController)
#include "tst_documentcontroller.moc"
