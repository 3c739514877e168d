#include <vxcore/vxaccessible.h>

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char *RoleProperty = "vxAccessibleRole";

// Asked for every class of a widget, from the derived ones to QObject; the first answer counts.
QAccessibleInterface *makeObjectWithRole(const QString &className, QObject *object)
{
    Q_UNUSED(className)
    auto *widget = qobject_cast<QWidget *>(object);
    const QVariant role = widget ? widget->property(RoleProperty) : QVariant();
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(widget, QAccessible::Role(role.toInt()));
}

} // namespace

void vxSetAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    widget->setProperty(RoleProperty, int(role));
    // Without effect from the second time on.
    QAccessible::installFactory(makeObjectWithRole);
}
