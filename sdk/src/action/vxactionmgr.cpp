#include <vxcore/vxactionmgr.h>

#include "action/focuskeys.h"
#include "action/keyrepeatfilter.h"
#include "action/vxmenubarfiller.h"
#include "action/vxshortcuttable.h"

#include <vxcore/vxaction.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>

namespace {

QString classNameOf(const VxAction *action)
{
    return QString::fromLatin1(action->metaObject()->className());
}

/** Reads a shortcut's portable text; false for a text that is no shortcut. Empty is one. */
bool readShortcut(const QString &text, QKeySequence &shortcut)
{
    shortcut = QKeySequence::fromString(text, QKeySequence::PortableText);
    if (text.trimmed().isEmpty())
        return true;
    for (int i = 0; i < shortcut.count(); ++i) {
        if ((shortcut[uint(i)] & ~int(Qt::KeyboardModifierMask)) == Qt::Key_unknown)
            return false;
    }
    return !shortcut.isEmpty();
}

} // namespace

class VxActionMgr::Private
{
public:
    QVector<VxAction *> actions;
    QHash<QString, VxAction *> actionsByName;
    QHash<QString, QAction *> commandsByName;
    VxShortcutTable shortcuts;

    QAction *find(const QString &name) const
    {
        VxAction *action = actionsByName.value(name);
        return action ? action : commandsByName.value(name);
    }

    /** Whether a name's shortcut is the default of a command that has not been given another. */
    bool isKeptByCommand(const QString &name, const QHash<QString, QKeySequence> &changes) const
    {
        const QKeySequence requested = changes.value(name);
        for (auto it = commandsByName.begin(); !requested.isEmpty() && it != commandsByName.end();
             ++it) {
            if (it.key() != name && !changes.contains(it.key()) &&
                shortcuts.defaultShortcut(it.key()) == requested)
                return true;
        }
        return false;
    }

    void addShortcut(const QString &className, const VxAction *action)
    {
        const QString text = action->getDefaultAccel();
        QKeySequence requested;
        if (!readShortcut(text, requested)) {
            qWarning("VxActionMgr: the default shortcut \"%s\" of %s is not valid",
                     qUtf8Printable(text), qUtf8Printable(className));
            requested = QKeySequence();
        }
        QString holder;
        if (!shortcuts.add(className, requested, &holder))
            qWarning("VxActionMgr: the shortcut %s of %s is already assigned to %s",
                     qUtf8Printable(text), qUtf8Printable(className), qUtf8Printable(holder));
    }

    void applyShortcut(const QString &className) const
    {
        find(className)->setShortcut(shortcuts.shortcut(className));
        if (VxAction *action = actionsByName.value(className))
            action->updateInlineHelp();
    }

    void removeDestroyed(VxAction *action)
    {
        actions.removeOne(action);
        // The class name is no longer available: the action is destroyed down to its QObject base.
        const QString className = actionsByName.key(action);
        actionsByName.remove(className);
        shortcuts.remove(className);
    }

    void removeCommand(const QString &name)
    {
        commandsByName.remove(name);
        shortcuts.remove(name);
    }
};

VxActionMgr::VxActionMgr(QObject *parent)
    : QObject(parent)
    , d(new Private)
{
    new FocusKeyFilter(this);
    new KeyRepeatFilter(this); // the last one installed sees an event first
}

VxActionMgr::~VxActionMgr()
{
    // Here, and not by QObject, which would let them report to a destroyed manager.
    const QVector<VxAction *> actions = d->actions;
    qDeleteAll(actions.rbegin(), actions.rend());
}

void VxActionMgr::createActions(const VxPluginMgr *plugins)
{
    if (!plugins)
        return;
    for (const VxClassFactory *factory : plugins->getClassFactories()) {
        if (!factory->metaObject()->inherits(&VxAction::staticMetaObject) ||
            findAction(factory->className()))
            continue;
        QObject *object = factory->createInstance();
        if (VxAction *action = qobject_cast<VxAction *>(object)) {
            addAction(action);
            continue;
        }
        qWarning("VxActionMgr: the factory of %s created no action",
                 qUtf8Printable(factory->className()));
        delete object;
    }
}

bool VxActionMgr::addAction(VxAction *action)
{
    if (!action || findAction(classNameOf(action)))
        return false;
    const QString className = classNameOf(action);
    action->setParent(this);
    d->actions.append(action);
    d->actionsByName.insert(className, action);
    d->addShortcut(className, action);
    d->applyShortcut(className);
    connect(action, &QObject::destroyed, this, [this, action] { d->removeDestroyed(action); });
    Q_EMIT actionAdded(action);
    return true;
}

bool VxActionMgr::addCommand(const QString &name, QAction *command)
{
    if (!command || name.isEmpty() || findCommand(name) || !getCommandName(command).isEmpty())
        return false;
    QString holder;
    if (!d->shortcuts.add(name, command->shortcut(), &holder))
        qWarning("VxActionMgr: the shortcut %s of %s is already assigned to %s",
                 qUtf8Printable(command->shortcut().toString(QKeySequence::PortableText)),
                 qUtf8Printable(name), qUtf8Printable(holder));
    d->commandsByName.insert(name, command);
    d->applyShortcut(name);
    connect(command, &QObject::destroyed, this, [this, name] { d->removeCommand(name); });
    return true;
}

void VxActionMgr::initActions()
{
    const QVector<VxAction *> actions = d->actions;
    for (VxAction *action : actions)
        action->init();
}

VxAction *VxActionMgr::findAction(const QString &className) const
{
    return d->actionsByName.value(className, nullptr);
}

QVector<VxAction *> VxActionMgr::getActions() const
{
    return d->actions;
}

QAction *VxActionMgr::findCommand(const QString &name) const
{
    return d->find(name);
}

QString VxActionMgr::getCommandName(const QAction *command) const
{
    if (!command)
        return QString();
    if (const auto *action = qobject_cast<const VxAction *>(command)) {
        const QString className = classNameOf(action);
        return findAction(className) == action ? className : QString();
    }
    return d->commandsByName.key(const_cast<QAction *>(command));
}

QKeySequence VxActionMgr::getShortcut(const QString &className) const
{
    return d->shortcuts.shortcut(className);
}

QKeySequence VxActionMgr::getDefaultShortcut(const QString &className) const
{
    return d->shortcuts.defaultShortcut(className);
}

bool VxActionMgr::setShortcut(const QString &className, const QKeySequence &shortcut)
{
    if (!findCommand(className))
        return false;
    applyShortcuts(d->shortcuts.set(className, shortcut));
    return true;
}

QString VxActionMgr::findShortcut(const QKeySequence &shortcut) const
{
    return d->shortcuts.find(shortcut);
}

void VxActionMgr::saveShortcuts(VxSettings *settings) const
{
    if (!settings)
        return;
    const QHash<QString, QKeySequence> changes = d->shortcuts.changes();
    // Entries of classes without a plug-in at present are kept for its return.
    const QStringList names = d->actionsByName.keys() + d->commandsByName.keys();
    for (const QString &name : names) {
        if (changes.contains(name))
            settings->setStringValue(name,
                                     changes.value(name).toString(QKeySequence::PortableText));
        else
            settings->removeValue(name);
    }
}

QStringList VxActionMgr::restoreShortcuts(const VxSettings *settings)
{
    if (!settings)
        return {};
    QHash<QString, QKeySequence> changes;
    for (const QString &className : settings->getKeys()) {
        const QString text = settings->getStringValue(className);
        QKeySequence shortcut;
        if (readShortcut(text, shortcut))
            changes.insert(className, shortcut);
        else
            qWarning("VxActionMgr: the stored shortcut \"%s\" of %s is not valid",
                     qUtf8Printable(text), qUtf8Printable(className));
    }
    QStringList refused;
    for (auto it = changes.begin(); it != changes.end(); ++it) {
        if (findCommand(it.key()) && d->isKeptByCommand(it.key(), changes))
            refused.append(it.key());
    }
    QHash<QString, QKeySequence> granted = changes;
    for (const QString &name : qAsConst(refused))
        granted.remove(name);
    applyShortcuts(d->shortcuts.restore(granted));
    for (auto it = granted.begin(); it != granted.end(); ++it) {
        if (findCommand(it.key()) && getShortcut(it.key()) != it.value())
            refused.append(it.key());
    }
    refused.sort();
    return refused;
}

void VxActionMgr::populateMenuBar(QMenuBar *menuBar) const
{
    if (menuBar)
        VxMenuBarFiller(menuBar).addActions(d->actions);
}

void VxActionMgr::applyShortcuts(const QStringList &classNames)
{
    for (const QString &className : classNames)
        d->applyShortcut(className);
    for (const QString &className : classNames)
        Q_EMIT shortcutChanged(className);
}
