// The former versions of a file: names, order, and what failures leave.

#include "io/vxbackups.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// As a save does it: a new file replaces the former one.
void put(const QString &name, const QByteArray &text)
{
    QFile file(name + ".written");
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write");
    file.close();
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(name).constData()) != 0)
        qFatal("cannot rename");
}

} // namespace

class tst_VxBackups : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void names_data();
    void names();
    void versionsMoveUp_data();
    void versionsMoveUp();
    void aCountOfNoneTouchesNothing();
    void aGapIsFilled();
    void aSaveThatFailsMakesNoBackup();
    void whatAnInterruptedSaveLeft();
    void permissionsAreKept();
    void backupsAreBesideTheTargetOfALink();
    void originals_data();
    void originals();

private:
    QString file(const char *name = "walk.vxscene") const { return m_folder->filePath(name); }
    bool save(const QByteArray &text, int count) const;

    const VxWarningGuard m_guard;
    std::unique_ptr<QTemporaryDir> m_folder;
};

bool tst_VxBackups::save(const QByteArray &text, int count) const
{
    VxBackups backups(file(), count);
    QString reason;
    if (!backups.preserve(&reason))
        return false;
    put(file(), text);
    return backups.rotate(&reason);
}

void tst_VxBackups::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("backup");
    QTest::newRow("a scene") << "walk.vxscene"
                             << "walk.bak1.vxscene";
    QTest::newRow("a dot in the name") << "take 1.5.vxscene"
                                       << "take 1.5.bak1.vxscene";
    QTest::newRow("no suffix") << "walk"
                               << "walk.bak1";
    QTest::newRow("percent signs") << "%1 %2.vxscene"
                                   << "%1 %2.bak1.vxscene";
}

void tst_VxBackups::names()
{
    QFETCH(QString, name);
    QFETCH(QString, backup);
    QCOMPARE(VxBackups(m_folder->filePath(name), 1).name(1), m_folder->filePath(backup));
}

void tst_VxBackups::versionsMoveUp_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 3, 12})
        QTest::addRow("%d", count) << count;
}

void tst_VxBackups::versionsMoveUp()
{
    QFETCH(int, count);
    for (int i = 0; i < 15; ++i) {
        QVERIFY(save(QByteArray::number(i), count));
        QCOMPARE(contents(file()), QByteArray::number(i));
        for (int number = 1; number <= qMin(i, count); ++number)
            QCOMPARE(contents(VxBackups(file(), count).name(number)),
                     QByteArray::number(i - number));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1 + qMin(i, count));
    }
}

void tst_VxBackups::aCountOfNoneTouchesNothing()
{
    for (int i = 0; i < 4; ++i)
        QVERIFY(save(QByteArray::number(i), 3));
    QFile left(file("walk.bak0.vxscene")); // by an interrupted save
    QVERIFY(left.open(QIODevice::WriteOnly));
    left.close();
    QVERIFY(save("4", 0));
    for (int number = 1; number <= 3; ++number)
        QCOMPARE(contents(VxBackups(file(), 3).name(number)), QByteArray::number(3 - number));
    QVERIFY(left.exists());
}

/// A version that the user removed costs none of the others.
void tst_VxBackups::aGapIsFilled()
{
    for (int i = 0; i < 5; ++i)
        QVERIFY(save(QByteArray::number(i), 3)); // 3, 2, 1
    QVERIFY(QFile::remove(file("walk.bak2.vxscene")));
    QVERIFY(save("5", 3));
    QCOMPARE(contents(file("walk.bak1.vxscene")), QByteArray("4"));
    QCOMPARE(contents(file("walk.bak2.vxscene")), QByteArray("3"));
    QCOMPARE(contents(file("walk.bak3.vxscene")), QByteArray("1"));
}

/// Saves that fail again and again push out no version.
void tst_VxBackups::aSaveThatFailsMakesNoBackup()
{
    for (int i = 0; i < 4; ++i)
        QVERIFY(save(QByteArray::number(i), 3));
    const QStringList before = QDir(m_folder->path()).entryList(QDir::Files);
    for (int i = 0; i < 5; ++i) {
        VxBackups backups(file(), 3);
        QString reason;
        QVERIFY(backups.preserve(&reason));
        backups.drop();
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), before);
    QCOMPARE(contents(file()), QByteArray("3"));
    QCOMPARE(contents(file("walk.bak3.vxscene")), QByteArray("0"));
}

void tst_VxBackups::whatAnInterruptedSaveLeft()
{
    QVERIFY(save("0", 3) && save("1", 3));
    QString reason;
    {
        VxBackups before(file(), 3); // interrupted before the new file was in place
        QVERIFY(before.preserve(&reason));
    }
    QVERIFY(save("2", 3));
    QCOMPARE(contents(file("walk.bak1.vxscene")), QByteArray("1"));
    QCOMPARE(contents(file("walk.bak2.vxscene")), QByteArray("0"));
    {
        VxBackups after(file(), 3); // interrupted afterwards
        QVERIFY(after.preserve(&reason));
        put(file(), "3");
    }
    QVERIFY(save("4", 3));
    QCOMPARE(contents(file()), QByteArray("4"));
    QCOMPARE(contents(file("walk.bak1.vxscene")), QByteArray("3"));
    QCOMPARE(contents(file("walk.bak2.vxscene")), QByteArray("2"));
    QCOMPARE(contents(file("walk.bak3.vxscene")), QByteArray("1"));
    QVERIFY(!QFile::exists(file("walk.bak0.vxscene")));
}

void tst_VxBackups::permissionsAreKept()
{
    QVERIFY(save("0", 3));
    QVERIFY(::chmod(QFile::encodeName(file()).constData(), 0640) == 0);
    QVERIFY(save("1", 3));
    struct stat status = {};
    QVERIFY(::stat(QFile::encodeName(file("walk.bak1.vxscene")).constData(), &status) == 0);
    QCOMPARE(int(status.st_mode & 0777), 0640);
}

void tst_VxBackups::backupsAreBesideTheTargetOfALink()
{
    QVERIFY(QDir(m_folder->path()).mkdir("real"));
    put(file("real/scene.vxscene"), "0");
    QVERIFY(QFile::link(file("real/scene.vxscene"), file()));
    VxBackups backups(file(), 3);
    QString reason;
    QVERIFY(backups.preserve(&reason));
    put(file("real/scene.vxscene"), "1");
    QVERIFY(backups.rotate(&reason));
    QCOMPARE(contents(file("real/scene.bak1.vxscene")), QByteArray("0"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"walk.vxscene"});
}

void tst_VxBackups::originals_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("original");
    QTest::newRow("the latest") << "walk.bak1.vxscene"
                                << "walk.vxscene";
    QTest::newRow("of an interrupted save") << "walk.bak0.vxscene"
                                            << "walk.vxscene";
    QTest::newRow("two digits") << "walk.bak12.vxscene"
                                << "walk.vxscene";
    QTest::newRow("no suffix") << "plain.bak1"
                               << "plain";
    QTest::newRow("the file itself") << "walk.vxscene"
                                     << "";
    QTest::newRow("of no file") << "run.bak1.vxscene"
                                << "";
    QTest::newRow("no number") << "walk.bak.vxscene"
                               << "";
    QTest::newRow("a word") << "walk.bak1a.vxscene"
                            << "";
}

void tst_VxBackups::originals()
{
    QFETCH(QString, name);
    QFETCH(QString, original);
    put(file(), "0");
    put(file("plain"), "0");
    QCOMPARE(VxBackups::originalOf(m_folder->filePath(name)),
             original.isEmpty() ? QString() : m_folder->filePath(original));
}

VX_TEST_GUILESS_MAIN(tst_VxBackups)
#include "tst_vxbackups.moc"
