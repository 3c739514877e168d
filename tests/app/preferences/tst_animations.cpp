// Animations are off where the desktop's setting is off: over a bus and a portal of the test's own.

#include "preferences/animations.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QProcess>
#include <QtTest>
#include <memory>
#include <vxcore/vxstyle.h>

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

/// The part of a desktop's settings portal that programs read from.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    SettingGroups settings;
    QStringList requested;

public Q_SLOTS:
    Q_SCRIPTABLE void ReadAll(const QStringList &groups, const QDBusMessage &message)
    {
        requested = groups;
        message.setDelayedReply(true);
        QDBusConnection(QStringLiteral("portal"))
            .send(message.createReply(QVariant::fromValue(settings)));
    }

Q_SIGNALS:
    Q_SCRIPTABLE void SettingChanged(const QString &group, const QString &key,
                                     const QDBusVariant &value);
};

} // namespace

class tst_Animations : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void desktopsPreference_data();
    void desktopsPreference();
    void followsTheDesktop();
    void choiceOverridesTheDesktop();
    void noPortal();
    void names();

private:
    void startPortal(const QString &group, const QString &key, const QVariant &value);

    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<Portal> m_portal;
    std::unique_ptr<VxStyle> m_style;
    std::unique_ptr<Animations> m_animations;
};

void tst_Animations::initTestCase()
{
    qDBusRegisterMetaType<SettingGroups>();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address")});
    QVERIFY(m_daemon.waitForStarted());
    QVERIFY(m_daemon.waitForReadyRead());
    m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
}

void tst_Animations::cleanupTestCase()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void tst_Animations::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_style = std::make_unique<VxStyle>();
    m_animations = std::make_unique<Animations>(m_style.get());
}

void tst_Animations::cleanup()
{
    m_animations.reset();
    m_style->setAnimated(true); // the application's effects
    m_style.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    m_portal.reset();
    m_guard.reset();
}

/// A desktop with one setting, which the program reads.
void tst_Animations::startPortal(const QString &group, const QString &key, const QVariant &value)
{
    m_portal = std::make_unique<Portal>();
    m_portal->settings[group][key] = value;
    QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("portal"));
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), m_portal.get(),
                               QDBusConnection::ExportScriptableContents));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    m_animations->followDesktop(
        QDBusConnection::connectToBus(m_address, QStringLiteral("program")));
    QTRY_VERIFY(!m_portal->requested.isEmpty());
}

void tst_Animations::desktopsPreference_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("isAnimated");
    const QString gnome = "org.gnome.desktop.interface";
    const QString common = "org.freedesktop.appearance";
    const QString kde = "org.kde.kdeglobals.KDE";
    QTest::newRow("animations off") << gnome << "enable-animations" << QVariant(false) << false;
    QTest::newRow("animations on") << gnome << "enable-animations" << QVariant(true) << true;
    QTest::newRow("reduced motion") << common << "reduced-motion" << QVariant(1u) << false;
    QTest::newRow("no preference") << common << "reduced-motion" << QVariant(0u) << true;
    QTest::newRow("duration 0") << kde << "AnimationDurationFactor" << QVariant("0") << false;
    QTest::newRow("half duration") << kde << "AnimationDurationFactor" << QVariant("0.5") << true;
    QTest::newRow("another setting") << gnome << "cursor-blink" << QVariant(false) << true;
}

void tst_Animations::desktopsPreference()
{
    QFETCH(QString, group);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, isAnimated);
    startPortal(group, key, value);
    // The next change follows the answer, which may change nothing.
    Q_EMIT m_portal->SettingChanged(QStringLiteral("test"), QStringLiteral("test"),
                                    QDBusVariant(1));
    QTRY_COMPARE(m_style->isAnimated(), isAnimated);
    QVERIFY(m_portal->requested.contains(group));
}

void tst_Animations::followsTheDesktop()
{
    const QString group = "org.gnome.desktop.interface";
    const QString key = "enable-animations";
    startPortal(group, key, true);
    Q_EMIT m_portal->SettingChanged(group, key, QDBusVariant(false));
    QTRY_VERIFY(!m_style->isAnimated());
    QVERIFY(!QApplication::isEffectEnabled(Qt::UI_AnimateMenu));
    Q_EMIT m_portal->SettingChanged(group, key, QDBusVariant(true));
    QTRY_VERIFY(m_style->isAnimated());
}

void tst_Animations::choiceOverridesTheDesktop()
{
    startPortal(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"),
                false);
    QTRY_VERIFY(!m_style->isAnimated());
    m_animations->setChoice(Animations::Choice::On);
    QVERIFY(m_style->isAnimated());
    m_animations->setChoice(Animations::Choice::Off);
    QVERIFY(!m_style->isAnimated());
    Q_EMIT m_portal->SettingChanged(QStringLiteral("org.gnome.desktop.interface"),
                                    QStringLiteral("enable-animations"), QDBusVariant(true));
    QTRY_VERIFY(!m_animations->desktopReducesMotion());
    QVERIFY(!m_style->isAnimated());
    m_animations->setChoice(Animations::Choice::Desktop);
    QVERIFY(m_style->isAnimated());
}

/// A bus without a portal, and no bus at all.
void tst_Animations::noPortal()
{
    m_animations->followDesktop(
        QDBusConnection::connectToBus(m_address, QStringLiteral("program")));
    m_animations->followDesktop(QDBusConnection(QStringLiteral("none")));
    QVERIFY(m_style->isAnimated());
    m_animations->setChoice(Animations::Choice::Off);
    QVERIFY(!m_style->isAnimated());
}

void tst_Animations::names()
{
    using Choice = Animations::Choice;
    for (const Choice choice : {Choice::Desktop, Choice::On, Choice::Off})
        QVERIFY(Animations::choiceOf(Animations::nameOf(choice)) == choice);
    QCOMPARE(Animations::nameOf(Choice::Off), QString("off"));
    QVERIFY(Animations::choiceOf(QStringLiteral("sometimes")) == Choice::Desktop);
}

VX_TEST_MAIN(tst_Animations)
#include "tst_animations.moc"
