// Files are replaced whole or not at all, also when the disk is full: the system's limit for
// the size of files simulates a full disk, and is reached at every byte of a file in turn.

#include "io/bvh/vxbvhwriter.h"
#include "io/vxscenewriter.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"

#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <vxcore/vxsafefile.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>

namespace {

/// While it lives no file grows beyond a size; a write that would fails as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_former{};
    void (*m_handler)(int) = nullptr;
};

using Save = std::function<bool(const QString &fileName, QString *reason)>;

bool saveScene(const QString &fileName, QString *reason)
{
    VxScene scene;
    WalkSample::build(&scene);
    VxFileError error;
    const bool done = VxSceneWriter(&scene).writeFile(fileName, &error);
    *reason = error.text();
    return done;
}

bool saveSmallScene(const QString &fileName, QString *reason)
{
    VxFileError error;
    const VxScene scene;
    const bool done = VxSceneWriter(&scene).writeFile(fileName, &error);
    *reason = error.text();
    return done;
}

bool saveMotion(const QString &fileName, QString *reason)
{
    VxFileError error;
    const bool done = VxBvhWriter::writeFile(WalkSample::motion(), fileName, &error);
    *reason = error.text();
    return done;
}

bool savePlain(const QString &fileName, QString *reason)
{
    VxSafeFile file(fileName);
    bool done = file.start();
    for (int i = 0; done && i < 100; ++i)
        done = file.write(QByteArray(9000, 'x')) == 9000;
    done = done && file.commit();
    *reason = fileName + file.failure();
    return done;
}

QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const QByteArray formerText = "what was there before";

} // namespace

Q_DECLARE_METATYPE(Save)

class tst_VxSafeFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fullDiskKeepsTheFormerFile_data();
    void fullDiskKeepsTheFormerFile();
    void fullDiskKeepsTheSettings();
    void placesThatCannotBeWritten_data();
    void placesThatCannotBeWritten();
    void unusualNames_data();
    void unusualNames();
    void withoutCommitTheFormerFileStays();
    void largePiecesAreWrittenInOrder();
};

void tst_VxSafeFile::fullDiskKeepsTheFormerFile_data()
{
    QTest::addColumn<Save>("save");
    QTest::newRow("a scene") << Save(saveScene);
    QTest::newRow("a scene smaller than any buffer") << Save(saveSmallScene);
    QTest::newRow("a motion") << Save(saveMotion);
    QTest::newRow("a plain file") << Save(savePlain);
}

void tst_VxSafeFile::fullDiskKeepsTheFormerFile()
{
    QFETCH(Save, save);
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString name = folder.filePath("file.any");
    QString reason;
    QVERIFY(save(name, &reason));
    const QByteArray whole = contents(name);
    QVERIFY(whole.size() > 50);
    const int size = whole.size();
    for (const int limit : {30, size / 3, size / 2, size - 4097, size - 100, size - 1}) {
        if (limit < formerText.size())
            continue;
        QFile former(name);
        QVERIFY(former.open(QIODevice::WriteOnly) && former.write(formerText) == formerText.size());
        former.close();
        {
            const FullDisk full{rlim_t(limit)};
            QVERIFY2(!save(name, &reason), qPrintable(QString::number(limit)));
        }
        QVERIFY2(reason.contains(name), qPrintable(reason));
        QVERIFY2(reason.contains("File too large"), qPrintable(reason));
        QCOMPARE(contents(name), formerText);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"file.any"});
    }
    const FullDisk enough{rlim_t(size)};
    QVERIFY2(save(name, &reason), qPrintable(reason));
    QCOMPARE(contents(name), whole);
}

void tst_VxSafeFile::fullDiskKeepsTheSettings()
{
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString name = folder.filePath("settings.ini");
    VxSettings settings;
    settings.setStringValue("Text", "short");
    QString error;
    QVERIFY(settings.save(name, &error));
    const QByteArray former = contents(name);
    settings.setStringValue("Text", QString(500, 'x'));
    {
        const FullDisk full(200);
        QVERIFY(!settings.save(name, &error));
    }
    QVERIFY2(error.contains(name) && error.contains("File too large"), qPrintable(error));
    QCOMPARE(contents(name), former);
}

void tst_VxSafeFile::placesThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a folder that is not there") << "gone/file"
                                                << "No such file or directory";
    QTest::newRow("a folder that is a file") << "file.txt/file"
                                             << "Not a directory";
    QTest::newRow("a folder") << "folder"
                              << "refers to a directory";
    QTest::newRow("a folder that cannot be written") << "/proc/file"
                                                     << "";
    QTest::newRow("a name that is too long") << QString(300, 'n') << "File name too long";
}

void tst_VxSafeFile::placesThatCannotBeWritten()
{
    QFETCH(QString, place);
    QFETCH(QString, reason);
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("folder"));
    QFile plain(folder.filePath("file.txt"));
    QVERIFY(plain.open(QIODevice::WriteOnly));
    const QString name = QDir(folder.path()).absoluteFilePath(place);
    for (const Save &save : {Save(saveScene), Save(saveMotion)}) {
        QString text;
        QVERIFY(!save(name, &text));
        QVERIFY2(text.startsWith(name), qPrintable(text));
        QVERIFY2(text.contains(reason, Qt::CaseInsensitive), qPrintable(text));
        QVERIFY2(!text.contains("Unknown"), qPrintable(text));
    }
}

void tst_VxSafeFile::unusualNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << " a  walk .any";
    QTest::newRow("other scripts") << QString::fromUtf8("gång 歩く \U0001F6B6.any");
    QTest::newRow("percent signs and braces") << "%1 {0} %%.any";
    QTest::newRow("as long as the system takes, with room for a name meanwhile")
        << QString(240, 'n') + ".any";
}

void tst_VxSafeFile::unusualNames()
{
    QFETCH(QString, name);
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QString reason;
    QVERIFY2(saveScene(path, &reason), qPrintable(reason));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{name});
    QVERIFY(!saveScene(folder.filePath("gone/" + name), &reason));
    QVERIFY2(reason.contains(name), qPrintable(reason));
}

void tst_VxSafeFile::withoutCommitTheFormerFileStays()
{
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString name = folder.filePath("file.any");
    QFile former(name);
    QVERIFY(former.open(QIODevice::WriteOnly) && former.write(formerText) == formerText.size());
    former.close();
    {
        VxSafeFile file(name);
        QVERIFY(file.start());
        QCOMPARE(file.write(QByteArray(1 << 20, 'x')), qint64(1 << 20));
    }
    QCOMPARE(contents(name), formerText);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"file.any"});
}

void tst_VxSafeFile::largePiecesAreWrittenInOrder()
{
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString name = folder.filePath("file.any");
    QByteArray expected;
    VxSafeFile file(name);
    QVERIFY(file.start());
    char letter = 'a';
    for (const int size : {1, 300000, 262143, 1, 1, 262144, 262145, 5, 1000000}) {
        const QByteArray piece(size, letter++);
        QCOMPARE(file.write(piece), qint64(size));
        expected += piece;
    }
    QVERIFY(file.commit());
    QVERIFY(contents(name) == expected);
}

VX_TEST_GUILESS_MAIN(tst_VxSafeFile)
#include "tst_vxsafefile.moc"
