#ifndef ANIMATIONS_H
#define ANIMATIONS_H

#include <QHash>
#include <QObject>
#include <QString>

class QDBusConnection;
class QDBusVariant;
class VxStyle;

/// Whether the program animates: as the desktop asks for, or as the user has chosen.
///
/// The desktop's preference is read through the settings portal on the session bus (XDG Desktop
/// Portal, interface org.freedesktop.portal.Settings), without waiting for it, and followed while
/// the program runs. Until the desktop has answered, and without a portal, it is to animate.
class Animations : public QObject
{
    Q_OBJECT
public:
    enum class Choice { Desktop, On, Off };
    Q_ENUM(Choice)

    /// style: outlives the object.
    explicit Animations(VxStyle *style, QObject *parent = nullptr);

    /// Asks the portal on a bus, and follows its changes.
    void followDesktop(const QDBusConnection &bus);
    /// The session's bus if there is one; a bus is never started.
    void followSessionBus();
    /// Whether the desktop asks for less motion.
    bool desktopReducesMotion() const;

    Choice choice() const { return m_choice; }
    void setChoice(Choice choice);

    /// "desktop", "on" and "off", as stored in the settings; Desktop for an unknown name.
    static QString nameOf(Choice choice);
    static Choice choiceOf(const QString &name);

Q_SIGNALS:
    void choiceChanged();

private Q_SLOTS:
    void handleSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void apply();
    void read(const QString &group, const QString &key, const QVariant &value);

    VxStyle *const m_style;
    Choice m_choice = Choice::Desktop;
    QHash<QString, bool> m_reduces; // by the name of the desktop's setting
};

#endif
