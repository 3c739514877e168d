#include "io/vxkeptmembers.h"

#include <QVariant>
#include <vxcore/vxscene.h>

namespace {

constexpr char Name[] = "vxKeptMembers";

/// Without a search by name, since hardly any object has one.
bool hasAny(const QObject *owner)
{
    return !owner->dynamicPropertyNames().isEmpty();
}

} // namespace

QByteArray VxKeptMembers::of(const QObject *owner)
{
    return hasAny(owner) ? owner->property(Name).toByteArray() : QByteArray();
}

void VxKeptMembers::set(QObject *owner, const QByteArray &members)
{
    // An invalid value removes the property.
    if (!members.isEmpty() || hasAny(owner))
        owner->setProperty(Name, members.isEmpty() ? QVariant() : QVariant(members));
}

void VxKeptMembers::setForScene(VxScene *scene, const QByteArray &members)
{
    set(scene, members);
    if (members.isEmpty())
        return;
    auto *dropper = new QObject(scene);
    QObject::connect(scene, &VxScene::sceneCleared, dropper, [scene, dropper] {
        set(scene, {});
        dropper->deleteLater();
    });
}
