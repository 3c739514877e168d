#include <vxcore/vxpanemgr.h>

#include "pane/vxpanesource.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>

namespace {

struct PaneEntry
{
    QString className;
    VxPane *pane;
};

QString classNameOf(const VxPane *pane)
{
    return QString::fromLatin1(pane->metaObject()->className());
}

} // namespace

class VxPaneMgr::Private
{
public:
    QVector<PaneEntry> entries;
    QPointer<const VxPluginMgr> plugins;
    VxSettings *settings = nullptr;
    QStringList inCreation;

    const VxPluginMgr *factorySource() const
    {
        return plugins ? plugins.data() : vxCurrentPluginMgr();
    }
};

VxPaneMgr::VxPaneMgr(QObject *parent)
    : QObject(parent)
    , d(new Private)
{
}

VxPaneMgr::~VxPaneMgr()
{
    const QVector<PaneEntry> entries = d->entries;
    for (const PaneEntry &entry : entries) {
        disconnect(entry.pane, nullptr, this, nullptr);
        if (!entry.pane->parent())
            delete entry.pane;
    }
}

void VxPaneMgr::createPanes(const VxPluginMgr *plugins)
{
    if (!plugins)
        return;
    d->plugins = plugins;
    // Announced when all exist: a receiver may look up another pane.
    QVector<QPointer<VxPane>> made;
    for (const VxClassFactory *factory : plugins->getClassFactories()) {
        if (factory->metaObject()->inherits(&VxPane::staticMetaObject) &&
            !findPane(factory->className()))
            made.append(makePane(factory->className()));
    }
    for (const QPointer<VxPane> &pane : qAsConst(made)) {
        if (pane)
            Q_EMIT paneAdded(pane);
    }
    if (!made.isEmpty())
        Q_EMIT panesAdded();
}

VxPane *VxPaneMgr::findOrCreatePane(const QString &className)
{
    if (VxPane *pane = findPane(className))
        return pane;
    const QPointer<VxPane> pane = makePane(className);
    if (pane) {
        Q_EMIT paneAdded(pane);
        Q_EMIT panesAdded();
    }
    return pane;
}

/** A new pane, listed and restored but not announced; null when no factory makes it. */
VxPane *VxPaneMgr::makePane(const QString &className)
{
    const VxPluginMgr *source = d->factorySource();
    const VxClassFactory *factory = source ? source->findClassFactory(className) : nullptr;
    if (!factory || !factory->metaObject()->inherits(&VxPane::staticMetaObject))
        return nullptr;
    // A pane that looks itself up during its construction gets null.
    if (d->inCreation.contains(className))
        return nullptr;
    d->inCreation.append(className);
    QObject *object = factory->createInstance();
    d->inCreation.removeOne(className);
    VxPane *pane = qobject_cast<VxPane *>(object);
    if (pane) {
        enterPane(pane);
    } else {
        qWarning("VxPaneMgr: the factory of %s created no pane", qUtf8Printable(className));
        delete object;
    }
    return pane;
}

bool VxPaneMgr::addPane(VxPane *pane)
{
    if (!pane || findPane(classNameOf(pane)))
        return false;
    enterPane(pane);
    Q_EMIT paneAdded(pane);
    Q_EMIT panesAdded();
    return true;
}

void VxPaneMgr::enterPane(VxPane *pane)
{
    const QString className = classNameOf(pane);
    if (pane->objectName().isEmpty())
        pane->setObjectName(className);
    d->entries.append({className, pane});
    connect(pane, &QObject::destroyed, this, [this, pane] { removeDestroyed(pane); });
    if (d->settings)
        pane->restoreSettings(d->settings->getSettings(className));
}

void VxPaneMgr::destroyPanes()
{
    // Each one removes itself from the list; destroying a pane may destroy another.
    while (!d->entries.isEmpty())
        delete d->entries.constLast().pane;
}

QVector<VxPane *> VxPaneMgr::getPanes() const
{
    QVector<VxPane *> panes;
    panes.reserve(d->entries.size());
    for (const PaneEntry &entry : qAsConst(d->entries))
        panes.append(entry.pane);
    return panes;
}

void VxPaneMgr::setSettings(VxSettings *settings)
{
    d->settings = settings;
}

void VxPaneMgr::saveSettings() const
{
    if (!d->settings)
        return;
    for (const PaneEntry &entry : qAsConst(d->entries)) {
        VxSettings *group = d->settings->getSettings(entry.className);
        // A pane may write only values that are set, such as one of several choices. Values from an
        // earlier session would reappear beside it.
        group->clear();
        entry.pane->saveSettings(group);
    }
}

VxPane *VxPaneMgr::findPane(const QString &className) const
{
    for (const PaneEntry &entry : qAsConst(d->entries)) {
        if (entry.className == className)
            return entry.pane;
    }
    return nullptr;
}

void VxPaneMgr::showPane(VxPane *pane)
{
    if (pane)
        Q_EMIT showRequested(pane);
}

/** Only the address of the pane is used: it is destroyed down to its QObject base. */
void VxPaneMgr::removeDestroyed(const VxPane *pane)
{
    for (int i = 0; i < d->entries.size(); ++i) {
        if (d->entries.at(i).pane != pane)
            continue;
        const QString className = d->entries.takeAt(i).className;
        Q_EMIT paneRemoved(className);
        return;
    }
}
