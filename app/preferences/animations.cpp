#include "preferences/animations.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>
#include <QMetaEnum>
#include <vxcore/vxstyle.h>

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");

// The settings in which desktops have their preference.
const QString CommonGroup = QStringLiteral("org.freedesktop.appearance");
const QString CommonKey = QStringLiteral("reduced-motion"); // 1: reduced
const QString GnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString GnomeKey = QStringLiteral("enable-animations"); // a truth value
const QString KdeGroup = QStringLiteral("org.kde.kdeglobals.KDE");
const QString KdeKey = QStringLiteral("AnimationDurationFactor"); // 0: none

bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

Animations::Animations(VxStyle *style, QObject *parent)
    : QObject(parent)
    , m_style(style)
{
}

void Animations::followSessionBus()
{
    // The library would try to start a bus.
    if (hasSessionBus())
        followDesktop(QDBusConnection::sessionBus());
}

void Animations::followDesktop(const QDBusConnection &bus)
{
    if (!bus.isConnected())
        return;
    QDBusConnection(bus).connect(Service, Path, Interface, QStringLiteral("SettingChanged"), this,
                                 SLOT(handleSetting(QString, QString, QDBusVariant)));
    QDBusMessage request =
        QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("ReadAll"));
    request << QStringList{CommonGroup, GnomeGroup, KdeGroup};
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
            return; // a desktop without a portal
        const auto groups = qdbus_cast<SettingGroups>(reply.arguments().constFirst());
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            for (auto setting = group->cbegin(); setting != group->cend(); ++setting)
                read(group.key(), setting.key(), setting.value());
        }
        apply();
    });
}

void Animations::handleSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    read(group, key, value.variant());
    apply();
}

void Animations::read(const QString &group, const QString &key, const QVariant &value)
{
    if (group == CommonGroup && key == CommonKey)
        m_reduces[group] = value.toInt() == 1;
    else if (group == GnomeGroup && key == GnomeKey)
        m_reduces[group] = !value.toBool();
    else if (group == KdeGroup && key == KdeKey)
        m_reduces[group] = value.toString().toDouble() == 0;
}

bool Animations::desktopReducesMotion() const
{
    const QList<bool> wishes = m_reduces.values();
    return wishes.contains(true);
}

void Animations::apply()
{
    m_style->setAnimated(m_choice == Choice::On ||
                         (m_choice == Choice::Desktop && !desktopReducesMotion()));
}

void Animations::setChoice(Choice choice)
{
    if (choice == m_choice)
        return;
    m_choice = choice;
    apply();
    Q_EMIT choiceChanged();
}

QString Animations::nameOf(Choice choice)
{
    return QString::fromLatin1(QMetaEnum::fromType<Choice>().valueToKey(static_cast<int>(choice)))
        .toLower();
}

Animations::Choice Animations::choiceOf(const QString &name)
{
    for (const Choice choice : {Choice::On, Choice::Off}) {
        if (name == nameOf(choice))
            return choice;
    }
    return Choice::Desktop;
}
