#include "settings/vxsettingstext.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <limits>
#include <vxcore/vxfileexchange.h>
#include <vxcore/vxsettings.h>

namespace {

const QString key = QStringLiteral("Key");

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

} // namespace

class tst_VxSettings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_guard.reset(); }
    void missingKeysGiveTheDefault();
    void valuesAreReturnedAsStored();
    void unreadableTextsGiveTheDefault();
    void boolTexts_data();
    void boolTexts();
    void lists_data();
    void lists();
    void keysAndSubStores();
    void emptySubStoresCountAsNone();
    void oddNamesSurviveTheFile_data();
    void oddNamesSurviveTheFile();
    void oddTextsSurviveTheFile_data();
    void oddTextsSurviveTheFile();
    void nestedStoresSurviveTheFile();
    void fileShowsPlainWords();
    void handWrittenFilesAreRead_data();
    void handWrittenFilesAreRead();
    void loadingReplacesButKeepsSubStores();
    void savingTwiceInTheSameMomentIsDetected();
    void aMissingFileIsEmpty();
    void aDamagedFileChangesNothing_data();
    void aDamagedFileChangesNothing();
    void groupsNestedTooDeeplyAreRefused();
    void groupsNestedTooDeeplyAreNotWritten();
    void anUnreadableFileChangesNothing();
    void aFileThatCannotBeWrittenIsReported();
    void aReadOnlyFileStays();
    void onlyTheOwnerMayReadTheFile();
    void aLinkToTheFileStays();
    void anInterruptedReplacementIsFinished();
    void savingNothingWritesAnEmptyFile();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    QTemporaryDir m_dir;
    QString m_file;
};

void tst_VxSettings::init()
{
    m_guard.reset(new VxWarningGuard);
    QVERIFY(m_dir.isValid());
    m_file = m_dir.filePath(QStringLiteral("settings.json"));
    QFile::remove(m_file);
}

void tst_VxSettings::missingKeysGiveTheDefault()
{
    const VxSettings settings;
    QCOMPARE(settings.getBoolValue(key, true), true);
    QCOMPARE(settings.getBoolValue(key), false);
    QCOMPARE(settings.getIntValue(key, 7), 7);
    QCOMPARE(settings.getStringValue(key, QStringLiteral("d")), QStringLiteral("d"));
    QVERIFY(settings.getStringListValue(key).isEmpty());
    QVERIFY(settings.getBytesValue(key).isEmpty());
    QVERIFY(!settings.getKeys().contains(key));
}

void tst_VxSettings::valuesAreReturnedAsStored()
{
    VxSettings settings;
    settings.setBoolValue(key, true);
    QCOMPARE(settings.getBoolValue(key, false), true);
    settings.setBoolValue(key, false);
    QCOMPARE(settings.getBoolValue(key, true), false);
    settings.setIntValue(key, std::numeric_limits<int>::min());
    QCOMPARE(settings.getIntValue(key), std::numeric_limits<int>::min());
    settings.setStringValue(key, QString());
    QCOMPARE(settings.getStringValue(key, QStringLiteral("d")), QString());
    QVERIFY(settings.getKeys().contains(key));
    const QByteArray bytes("\0\xff\x01,;=", 6);
    settings.setBytesValue(key, bytes);
    QCOMPARE(settings.getBytesValue(key), bytes);
    settings.removeValue(key);
    QVERIFY(!settings.getKeys().contains(key));
    settings.removeValue(key);
}

void tst_VxSettings::unreadableTextsGiveTheDefault()
{
    VxSettings settings;
    settings.setStringValue(key, QStringLiteral("maybe*"));
    QCOMPARE(settings.getBoolValue(key, true), true);
    QCOMPARE(settings.getIntValue(key, 3), 3);
    QVERIFY(settings.getBytesValue(key).isEmpty());
    settings.setStringValue(key, QStringLiteral("99999999999"));
    QCOMPARE(settings.getIntValue(key, 3), 3);
}

void tst_VxSettings::boolTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("withTrue");
    QTest::addColumn<bool>("withFalse");
    QTest::newRow("true") << "true" << true << true;
    QTest::newRow("false") << "false" << false << false;
    QTest::newRow("other case") << "True" << true << true;
    QTest::newRow("one") << "1" << true << true;
    QTest::newRow("zero") << "0" << false << false;
    QTest::newRow("nothing") << "" << true << false;
    QTest::newRow("another number") << "2" << true << false;
}

void tst_VxSettings::boolTexts()
{
    QFETCH(QString, text);
    QTEST(VxSettingsText::toBool(text, true), "withTrue");
    QTEST(VxSettingsText::toBool(text, false), "withFalse");
}

void tst_VxSettings::lists_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QStringList() << "";
    QTest::newRow("one empty entry") << QStringList(QString()) << ",";
    QTest::newRow("two entries") << QStringList{"a", "b"} << "a,b,";
    QTest::newRow("commas and backslashes")
        << QStringList{"a,b", "\\", "\\,"} << "a\\,b,\\\\,\\\\\\,,";
    QTest::newRow("blanks") << QStringList{" a ", ""} << " a ,,";
}

void tst_VxSettings::lists()
{
    QFETCH(QStringList, list);
    QFETCH(QString, text);
    QCOMPARE(VxSettingsText::fromList(list), text);
    QCOMPARE(VxSettingsText::toList(text), list);
}

void tst_VxSettings::keysAndSubStores()
{
    VxSettings settings;
    settings.setIntValue(QStringLiteral("b"), 1);
    settings.setIntValue(QStringLiteral("a"), 2);
    VxSettings *sub = settings.getSettings(QStringLiteral("a"));
    sub->setIntValue(QStringLiteral("c"), 3);
    QCOMPARE(settings.getSettings(QStringLiteral("a")), sub);
    QCOMPARE(settings.findSettings(QStringLiteral("a")), sub);
    QCOMPARE(settings.getKeys(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(settings.getSettingsNames(), QStringList{QStringLiteral("a")});
    QCOMPARE(settings.getIntValue(QStringLiteral("a")), 2);
}

void tst_VxSettings::emptySubStoresCountAsNone()
{
    VxSettings settings;
    VxSettings *sub = settings.getSettings(QStringLiteral("Sub"));
    QVERIFY(!settings.findSettings(QStringLiteral("Sub")));
    QVERIFY(settings.getSettingsNames().isEmpty());
    sub->getSettings(QStringLiteral("Deeper"))->setBoolValue(key, true);
    QCOMPARE(settings.findSettings(QStringLiteral("Sub")), sub);
    settings.clear();
    QVERIFY(!settings.findSettings(QStringLiteral("Sub")));
    QCOMPARE(settings.getSettings(QStringLiteral("Sub")), sub);
}

void tst_VxSettings::oddNamesSurviveTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "ControlsTop";
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "  a  b  ";
    QTest::newRow("a slash") << "a/b";
    QTest::newRow("only slashes") << "//";
    QTest::newRow("a backslash") << "a\\b";
    QTest::newRow("a percent sign") << "%";
    QTest::newRow("a percent code") << "%2F%25";
    QTest::newRow("brackets and equals") << "[a]=b;c";
    QTest::newRow("a line end") << "a\nb";
    QTest::newRow("the file's default group") << "General";
    QTest::newRow("umlauts and others") << QString::fromUtf8("Grö\u00dfe \u6642\u9593 \U0001F3AC");
    QTest::newRow("case counts, upper") << "KEY";
    QTest::newRow("case counts, lower") << "key";
}

void tst_VxSettings::oddNamesSurviveTheFile()
{
    QFETCH(QString, name);
    VxSettings written;
    written.setStringValue(name, QStringLiteral("at the top"));
    written.setStringValue(QStringLiteral("Other"), QStringLiteral("other"));
    written.getSettings(name)->setStringValue(name, QStringLiteral("below"));
    QVERIFY(written.save(m_file));
    VxSettings read;
    QVERIFY(read.load(m_file));
    QCOMPARE(read.getKeys(), written.getKeys());
    QCOMPARE(read.getStringValue(name), QStringLiteral("at the top"));
    QCOMPARE(read.getSettingsNames(), QStringList{name});
    QCOMPARE(read.getSettings(name)->getStringValue(name), QStringLiteral("below"));
}

void tst_VxSettings::oddTextsSurviveTheFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks around") << "  a  ";
    QTest::newRow("commas") << "a,b, c,";
    QTest::newRow("semicolon and hash") << "a;b#c";
    QTest::newRow("quotes") << "\"a\" 'b'";
    QTest::newRow("backslashes") << "C:\\path\\\\file\\";
    QTest::newRow("line ends") << "a\nb\r\n\tc";
    QTest::newRow("an at sign in front") << "@Invalid()";
    QTest::newRow("a hex escape beside a digit") << QString::fromUtf8("\u00011\u00e9a");
    QTest::newRow("umlauts and others") << QString::fromUtf8("Grö\u00dfe \u6642\u9593 \U0001F3AC");
    QTest::newRow("a zero character") << QString(QChar(0)) + QStringLiteral("x");
    QTest::newRow("half a character") << QString(QChar(0xd83c)) + QStringLiteral("x");
}

void tst_VxSettings::oddTextsSurviveTheFile()
{
    QFETCH(QString, text);
    VxSettings written;
    written.setStringValue(key, text);
    written.setStringListValue(QStringLiteral("List"), {text, text});
    QVERIFY(written.save(m_file));
    VxSettings read;
    QVERIFY(read.load(m_file));
    QCOMPARE(read.getStringValue(key), text);
    QCOMPARE(read.getStringListValue(QStringLiteral("List")), (QStringList{text, text}));
}

void tst_VxSettings::nestedStoresSurviveTheFile()
{
    VxSettings written;
    VxSettings *pane =
        written.getSettings(QStringLiteral("Panes"))->getSettings(QStringLiteral("VxTimePane"));
    pane->setBoolValue(QStringLiteral("ControlsTop"), true);
    pane->setBytesValue(QStringLiteral("State"), QByteArray("\0\1\2", 3));
    written.setIntValue(QStringLiteral("Zoom"), 7);
    QVERIFY(written.save(m_file));
    VxSettings read;
    QVERIFY(read.load(m_file));
    const VxSettings *panes = read.findSettings(QStringLiteral("Panes"));
    QVERIFY(panes);
    const VxSettings *same = panes->findSettings(QStringLiteral("VxTimePane"));
    QVERIFY(same);
    QVERIFY(same->getBoolValue(QStringLiteral("ControlsTop")));
    QCOMPARE(same->getBytesValue(QStringLiteral("State")), QByteArray("\0\1\2", 3));
    QCOMPARE(read.getIntValue(QStringLiteral("Zoom")), 7);
}

void tst_VxSettings::fileShowsPlainWords()
{
    VxSettings settings;
    VxSettings *pane = settings.getSettings(QStringLiteral("Panes"));
    pane->setBoolValue(QStringLiteral("ControlsTop"), true);
    pane->setBoolValue(QStringLiteral("GraphOpen"), false);
    QVERIFY(settings.save(m_file));
    QCOMPARE(contentsOf(m_file), QByteArray("{\n    \"Panes/ControlsTop\": \"true\",\n"
                                            "    \"Panes/GraphOpen\": \"false\"\n}\n"));
}

void tst_VxSettings::handWrittenFilesAreRead_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("of former versions")
        << QByteArray("Top=1\n[Group]\nText=one, two\nFlag=TRUE\n; a comment\n");
    QTest::newRow("with values of their own kinds") << QByteArray(
        "{ \"Top\": 1, \"Group/Text\": \"one, two\", \"Group/Flag\": true, \"Group/List\": [1], "
        "\"Group/Store\": { \"Key\": 1 }, \"Group/Null\": null }");
}

void tst_VxSettings::handWrittenFilesAreRead()
{
    QFETCH(QByteArray, contents);
    writeFile(m_file, contents);
    VxSettings settings;
    QVERIFY(settings.load(m_file));
    QVERIFY(settings.getBoolValue(QStringLiteral("Top")));
    const VxSettings *group = settings.findSettings(QStringLiteral("Group"));
    QVERIFY(group);
    QCOMPARE(group->getStringValue(QStringLiteral("Text")), QStringLiteral("one, two"));
    QVERIFY(group->getBoolValue(QStringLiteral("Flag")));
    QCOMPARE(group->getKeys(), QStringList({QStringLiteral("Flag"), QStringLiteral("Text")}));
}

void tst_VxSettings::loadingReplacesButKeepsSubStores()
{
    VxSettings written;
    written.getSettings(QStringLiteral("Sub"))->setIntValue(QStringLiteral("New"), 1);
    QVERIFY(written.save(m_file));
    VxSettings settings;
    settings.setIntValue(QStringLiteral("Old"), 1);
    VxSettings *sub = settings.getSettings(QStringLiteral("Sub"));
    sub->setIntValue(QStringLiteral("Old"), 1);
    QVERIFY(settings.load(m_file));
    QVERIFY(settings.getKeys().isEmpty());
    QCOMPARE(settings.getSettings(QStringLiteral("Sub")), sub);
    QCOMPARE(sub->getKeys(), QStringList{QStringLiteral("New")});
}

void tst_VxSettings::savingTwiceInTheSameMomentIsDetected()
{
    VxSettings settings;
    for (int i = 0; i < 10; ++i) {
        settings.setIntValue(key, i);
        QVERIFY(settings.save(m_file));
        VxSettings read;
        QVERIFY(read.load(m_file));
        QCOMPARE(read.getIntValue(key, -1), i);
    }
}

void tst_VxSettings::aMissingFileIsEmpty()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QString error = QStringLiteral("untouched");
    QVERIFY(settings.load(m_dir.filePath(QStringLiteral("absent.json")), &error));
    QVERIFY(error.isEmpty());
    QVERIFY(!settings.getKeys().contains(key));
}

void tst_VxSettings::aDamagedFileChangesNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("what");
    QTest::newRow("of a former version")
        << QByteArray("[Group\nthis is no setting\n") << " is damaged";
    QTest::newRow("cut off") << QByteArray("{ \"Top\": \"1\",") << " is damaged at byte 13";
    QTest::newRow("with a line between") << QByteArray("{\n<<<<\n}") << " is damaged at byte 3";
}

void tst_VxSettings::aDamagedFileChangesNothing()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, what);
    writeFile(m_file, contents);
    VxSettings settings;
    settings.setIntValue(key, 1);
    QString error;
    QVERIFY(!settings.load(m_file, &error));
    QVERIFY2(error.contains(m_file + what), qPrintable(error));
    QCOMPARE(settings.getIntValue(key), 1);
    QVERIFY(!settings.load(m_file));
}

/** A store contains the one of each of its groups: thousands would exhaust the stack. */
void tst_VxSettings::groupsNestedTooDeeplyAreRefused()
{
    VxSettings settings;
    QString error;
    writeFile(m_file, "{\"Group/" + QByteArray("a/").repeated(63) + "Key\": \"1\"}");
    QVERIFY2(settings.load(m_file, &error), qPrintable(error));
    for (const int groups : {64, 100000}) {
        writeFile(m_file, "{\"Group/" + QByteArray("a/").repeated(groups) + "Key\": \"1\"}");
        QVERIFY(!settings.load(m_file, &error));
        QVERIFY2(error.contains(m_file) && error.contains("more than 64 groups"),
                 qPrintable(error));
        QCOMPARE(settings.getSettingsNames(), QStringList{QStringLiteral("Group")});
    }
}

/// No file is written that load() would refuse.
void tst_VxSettings::groupsNestedTooDeeplyAreNotWritten()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QVERIFY(settings.save(m_file));
    const QByteArray former = contentsOf(m_file);
    VxSettings *group = &settings;
    for (int i = 0; i < 65; ++i)
        group = group->getSettings(QStringLiteral("Group"));
    group->setIntValue(key, 2);
    QString error;
    QVERIFY(!settings.save(m_file, &error));
    QVERIFY2(error.contains(m_file) && error.contains("more than 64 groups"), qPrintable(error));
    QCOMPARE(contentsOf(m_file), former);
    group->clear();
    QVERIFY2(settings.save(m_file, &error), qPrintable(error));
}

void tst_VxSettings::anUnreadableFileChangesNothing()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QString error;
    // A folder exists, but is no file, even for those who may read everything.
    QVERIFY(!settings.load(m_dir.path(), &error));
    QVERIFY2(error.contains(m_dir.path()), qPrintable(error));
    QCOMPARE(settings.getIntValue(key), 1);
}

void tst_VxSettings::aFileThatCannotBeWrittenIsReported()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QString error;
    const QString file = m_dir.filePath(QStringLiteral("absent/settings.json"));
    QVERIFY(!settings.save(file, &error));
    QVERIFY2(error.startsWith(file), qPrintable(error));
    QVERIFY(settings.save(m_file, &error));
    QVERIFY(error.isEmpty());
}

void tst_VxSettings::aReadOnlyFileStays()
{
    writeFile(m_file, "{}");
    QVERIFY(QFile::setPermissions(m_file, QFile::ReadOwner));
    VxSettings settings;
    settings.setIntValue(key, 1);
    QString error;
    QVERIFY(!settings.save(m_file, &error));
    QVERIFY2(error.contains(m_file) && error.contains("it is read-only"), qPrintable(error));
    QCOMPARE(contentsOf(m_file), QByteArray("{}"));
}

void tst_VxSettings::onlyTheOwnerMayReadTheFile()
{
    writeFile(m_file, "{}");
    QVERIFY(QFile::setPermissions(m_file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    QVERIFY(VxSettings().save(m_file));
    constexpr auto Others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(int(QFile::permissions(m_file) & Others), 0);
}

void tst_VxSettings::aLinkToTheFileStays()
{
    const QString link = m_dir.filePath(QStringLiteral("link.json"));
    writeFile(m_file, "{}");
    QVERIFY(QFile::link(m_file, link));
    VxSettings settings;
    settings.setIntValue(key, 1);
    QVERIFY(settings.save(link));
    QCOMPARE(QFile::symLinkTarget(link), m_file);
    VxSettings read;
    QVERIFY(read.load(m_file));
    QCOMPARE(read.getIntValue(key), 1);
}

/** In a folder where no file can be renamed over another one, the former file is moved aside. */
void tst_VxSettings::anInterruptedReplacementIsFinished()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QVERIFY(settings.save(m_file));
    QVERIFY(QFile::rename(m_file, VxFileExchange::oldName(m_file)));
    VxSettings read;
    QVERIFY(read.load(m_file));
    QCOMPARE(read.getIntValue(key), 1);
}

void tst_VxSettings::savingNothingWritesAnEmptyFile()
{
    VxSettings settings;
    settings.setIntValue(key, 1);
    QVERIFY(settings.save(m_file));
    settings.clear();
    QVERIFY(settings.save(m_file));
    QVERIFY(QFile::exists(m_file));
    VxSettings read;
    read.setIntValue(key, 2);
    QVERIFY(read.load(m_file));
    QVERIFY(!read.getKeys().contains(key));
}

VX_TEST_MAIN(tst_VxSettings)
#include "tst_vxsettings.moc"
