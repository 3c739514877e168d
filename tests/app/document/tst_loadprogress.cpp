#include "document/loadprogress.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "widgets/usermessages.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>
#include <vxcore/vxmainwindow.h>

class tst_LoadProgress : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void aQuickLoadShowsNothing();
    void aLongLoadCanBeCancelled();
    void nothingOnTheConsole();

private:
    static QProgressDialog *dialog()
    {
        return qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
    }

    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_LoadProgress::aQuickLoadShowsNothing()
{
    const UserMessages messages(UserMessages::Mode::Window);
    LoadProgress progress(messages, QStringLiteral("Opening a.bvh..."));
    const VxFileProgress report = progress.function();
    for (int percent = 0; percent <= 100; ++percent) {
        QVERIFY(report(percent));
        QVERIFY(!dialog());
    }
}

void tst_LoadProgress::aLongLoadCanBeCancelled()
{
    VxMainWindow window;
    window.show();
    UserMessages messages(UserMessages::Mode::Window);
    messages.setWindow(&window);
    LoadProgress progress(messages, QStringLiteral("Opening a.bvh..."));
    const VxFileProgress report = progress.function();
    QElapsedTimer timer;
    timer.start();
    int percent = 0;
    while (!dialog() && timer.elapsed() < 5000) {
        QVERIFY(report(qMin(90, ++percent / 50)));
        QThread::msleep(2);
    }
    QVERIFY(dialog());
    QCOMPARE(dialog()->labelText(), QString("Opening a.bvh..."));
    QVERIFY(report(91));
    QCOMPARE(dialog()->value(), 91);
    QTest::mouseClick(dialog()->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(!report(92));
}

void tst_LoadProgress::nothingOnTheConsole()
{
    const UserMessages messages(UserMessages::Mode::Console);
    LoadProgress progress(messages, QStringLiteral("Opening a.bvh..."));
    QVERIFY(!progress.function()); // no progress dialog
}

VX_TEST_MAIN(tst_LoadProgress)
#include "tst_loadprogress.moc"
