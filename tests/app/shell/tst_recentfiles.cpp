#include "document/recentfiles.h"
#include "document/recentfilesmenu.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxsettings.h>

class tst_RecentFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_guard.reset(); }

    void theLatestIsFirst();
    void theOldestIsDropped();
    void pathsAreAbsolute();
    void storedAndRestored();
    void aStoredListThatIsTooLong();
    void menuNumbersTheFiles();
    void missingFilesAreGrey();
    void ampersandsAreShown();
    void emptyMenuIsDisabled();

private:
    QString make(const QString &name) const;
    static void open(RecentFilesMenu *menu) { Q_EMIT menu->aboutToShow(); }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
};

void tst_RecentFiles::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
}

QString tst_RecentFiles::make(const QString &name) const
{
    QFile file(m_dir->filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(name));
    return file.fileName();
}

void tst_RecentFiles::theLatestIsFirst()
{
    RecentFiles files;
    QSignalSpy changed(&files, &RecentFiles::changed);
    files.add(QStringLiteral("/a/one.bvh"));
    files.add(QStringLiteral("/b/two.bvh"));
    QCOMPARE(files.files(), QStringList({"/b/two.bvh", "/a/one.bvh"}));
    files.add(QStringLiteral("/a/one.bvh"));
    QCOMPARE(files.files(), QStringList({"/a/one.bvh", "/b/two.bvh"}));
    QCOMPARE(files.latestFolder(), QString("/a"));
    QCOMPARE(changed.count(), 3);
    files.add(QStringLiteral("/a/one.bvh")); // is listed already
    files.add(QString());                    // a new scene
    QCOMPARE(changed.count(), 3);
}

void tst_RecentFiles::theOldestIsDropped()
{
    RecentFiles files;
    for (int i = 0; i < 15; ++i)
        files.add(QStringLiteral("/f%1.bvh").arg(i));
    QCOMPARE(files.files().size(), int(RecentFiles::Capacity));
    QCOMPARE(files.files().constFirst(), QString("/f14.bvh"));
    QCOMPARE(files.files().constLast(), QString("/f5.bvh"));
}

void tst_RecentFiles::pathsAreAbsolute()
{
    RecentFiles files;
    files.add(QStringLiteral("walk.bvh"));
    QCOMPARE(files.files().constFirst(), QDir::current().absoluteFilePath("walk.bvh"));
}

void tst_RecentFiles::storedAndRestored()
{
    RecentFiles files;
    files.add(QStringLiteral("/a, with a comma/one.bvh"));
    files.add(QStringLiteral("/b/zwölf.vxscene"));
    VxSettings settings;
    files.store(&settings);
    QVERIFY(settings.save(m_dir->filePath("settings.json")));
    VxSettings loaded;
    QVERIFY(loaded.load(m_dir->filePath("settings.json")));
    RecentFiles copy;
    copy.restore(loaded);
    QCOMPARE(copy.files(), files.files());
    files.clear();
    files.store(&settings);
    copy.restore(settings);
    QVERIFY(copy.files().isEmpty());
}

void tst_RecentFiles::aStoredListThatIsTooLong()
{
    QStringList list = {"/a", "/a", QString()};
    for (int i = 0; i < 20; ++i)
        list.append(QStringLiteral("/f%1").arg(i));
    VxSettings settings;
    settings.setStringListValue("Files", list);
    RecentFiles files;
    files.restore(settings);
    QVERIFY(files.files().size() <= RecentFiles::Capacity);
    QCOMPARE(files.files().count("/a"), 1);
    QVERIFY(!files.files().contains(QString()));
}

void tst_RecentFiles::menuNumbersTheFiles()
{
    RecentFiles files;
    for (int i = 1; i <= 10; ++i)
        files.add(make(QStringLiteral("f%1.bvh").arg(i)));
    RecentFilesMenu menu(QStringLiteral("Recent"), &files);
    QSignalSpy requested(&menu, &RecentFilesMenu::openRequested);
    open(&menu);
    const QList<QAction *> entries = menu.actions();
    QVERIFY2(entries.at(0)->text().startsWith("&1  f10.bvh in "),
             qPrintable(entries.at(0)->text()));
    QVERIFY(entries.at(8)->text().startsWith("&9  f2.bvh"));
    QVERIFY(entries.at(9)->text().startsWith("f1.bvh"));
    QCOMPARE(entries.at(1)->toolTip(), m_dir->filePath("f9.bvh"));
    entries.at(1)->trigger();
    QCOMPARE(requested.count(), 1);
    QCOMPARE(requested.first().first().toString(), m_dir->filePath("f9.bvh"));
    QCOMPARE(entries.last()->text(), QString("Clear List"));
    entries.last()->trigger();
    QVERIFY(files.files().isEmpty());
}

void tst_RecentFiles::missingFilesAreGrey()
{
    RecentFiles files;
    files.add(make(QStringLiteral("there.bvh")));
    files.add(m_dir->filePath("gone.bvh"));
    RecentFilesMenu menu(QStringLiteral("Recent"), &files);
    open(&menu);
    QVERIFY(!menu.actions().at(0)->isEnabled());
    QVERIFY(menu.actions().at(0)->text().contains("(missing)"));
    QVERIFY(menu.actions().at(1)->isEnabled());
    QAction *remove = nullptr;
    for (QAction *action : menu.actions()) {
        if (action->text() == QString("Remove Missing Files"))
            remove = action;
    }
    QVERIFY(remove);
    remove->trigger();
    QCOMPARE(files.files(), QStringList{m_dir->filePath("there.bvh")});
    // It may reappear.
    files.add(m_dir->filePath("gone.bvh"));
    make(QStringLiteral("gone.bvh"));
    open(&menu);
    QVERIFY(menu.actions().at(0)->isEnabled());
}

void tst_RecentFiles::ampersandsAreShown()
{
    RecentFiles files;
    files.add(make(QStringLiteral("rock & roll.bvh")));
    RecentFilesMenu menu(QStringLiteral("Recent"), &files);
    open(&menu);
    QVERIFY(menu.actions().at(0)->text().contains("rock && roll.bvh"));
}

void tst_RecentFiles::emptyMenuIsDisabled()
{
    RecentFiles files;
    const RecentFilesMenu menu(QStringLiteral("Recent"), &files);
    QVERIFY(!menu.menuAction()->isEnabled());
    files.add(QStringLiteral("/a.bvh"));
    QVERIFY(menu.menuAction()->isEnabled());
    files.clear();
    QVERIFY(!menu.menuAction()->isEnabled());
}

VX_TEST_MAIN(tst_RecentFiles)
#include "tst_recentfiles.moc"
