#include "pane/vxpropertyhints.h"

#include "pane/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxpropertyhelper.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VxPropertyHints", text);
}

/// With its node, where there is one.
QString fullName(const VxProperty *property)
{
    const VxNode *node = VxPropertyHelper::getNode(property);
    return node ? QStringLiteral("%1: %2").arg(node->getLabel(), property->getLabel())
                : property->getLabel();
}

void addRelations(const VxProperty *property, QStringList *lines)
{
    if (const VxProperty *target = property->getAliasedProperty())
        lines->append(tr("Alias of %1").arg(fullName(target)));
    if (const VxProperty *control = property->getOverridingControl())
        lines->append(tr("Controlled by %1").arg(fullName(control)));
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (!number || !number->isLinked())
        return;
    const QString source = fullName(number->getLinkedProperty());
    lines->append(number->isLinkTerminal() ? tr("%1 is added").arg(source)
                                           : tr("Follows %1").arg(source));
}

} // namespace

QString VxPropertyHints::keyHint(VxPropertyListItemModel::KeyState state, bool editable)
{
    switch (state) {
    case VxPropertyListItemModel::NoKeys:
        return editable ? tr("No keys. Click to set one here.") : tr("No keys.");
    case VxPropertyListItemModel::Keyed:
        return editable ? tr("Keyed, but not at this time. Click to set a key here.")
                        : tr("Keyed, but not at this time.");
    case VxPropertyListItemModel::OnKey:
        return editable ? tr("On a key. Click to delete it.") : tr("On a key.");
    case VxPropertyListItemModel::NotKeyable:
        break;
    }
    return {};
}

QString VxPropertyHints::propertyHint(const QVector<VxProperty *> &properties)
{
    const VxProperty *property = properties.first();
    QStringList lines = {property->getPath().isEmpty()
                             ? property->getLabel()
                             : property->getPath() + QLatin1Char('/') + property->getLabel()};
    addRelations(property, &lines);
    if (property->isLocked() || property->getKeyHolder()->isLocked())
        lines.append(tr("Locked"));
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (number && !number->isAnimatable())
        lines.append(tr("Takes no keys"));
    if (properties.size() > 1)
        lines.append(tr("Changes are made to %1 nodes.").arg(properties.size()));
    return lines.join(QLatin1Char('\n'));
}
