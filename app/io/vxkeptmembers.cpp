#include "io/vxkeptmembers.h"

#include <QVariant>
#include <vxcore/vxscene.h>

namespace {

constexpr char Name[] = "vxKeptMembers";

} // namespace

QByteArray VxKeptMembers::of(const QObject *owner)
{
    return owner->property(Name).toByteArray();
}

void VxKeptMembers::set(QObject *owner, const QByteArray &members)
{
    // An invalid value removes the property.
    if (!members.isEmpty() || owner->property(Name).isValid())
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
