// The file of the user's settings.

#include "shell/studiosettings.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "widgets/usermessages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxsettings.h>

class tst_StudioSettings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void formerSettingsAreKept();

private:
    const VxWarningGuard m_guard;
};

/// Settings of a version that wrote INI files are read until there are present ones, and stay.
void tst_StudioSettings::formerSettingsAreKept()
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    const QString present = StudioSettings::defaultFileName();
    QVERIFY(present.startsWith(folder.path()) && present.endsWith(".json"));
    QVERIFY(QDir().mkpath(QFileInfo(present).path()));
    QFile former(QFileInfo(present).dir().filePath("vxstudio.ini"));
    const QByteArray contents = "[Saving]\nBackups=7\n";
    QVERIFY(former.open(QIODevice::WriteOnly) && former.write(contents) == contents.size());
    former.close();

    const UserMessages messages(UserMessages::Mode::Console);
    StudioSettings store(present);
    VxSettings settings;
    store.load(&settings, messages);
    QCOMPARE(settings.getSettings("Saving")->getIntValue("Backups"), 7);
    settings.getSettings("Saving")->setIntValue("Backups", 5);
    store.save(settings, messages);

    VxSettings again;
    store.load(&again, messages);
    QCOMPARE(again.getSettings("Saving")->getIntValue("Backups"), 5);
    QVERIFY(former.open(QIODevice::ReadOnly));
    QCOMPARE(former.readAll(), contents);
    // A file of another name has no former one.
    VxSettings other;
    StudioSettings(QFileInfo(present).dir().filePath("other.json")).load(&other, messages);
    QVERIFY(!other.findSettings("Saving"));
}

VX_TEST_MAIN(tst_StudioSettings)
#include "tst_studiosettings.moc"
