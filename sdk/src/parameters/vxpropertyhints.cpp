#include "parameters/vxpropertyhints.h"

#include "parameters/vxpropertyvalue.h"

#include <QtCore/QStringList>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertyhelper.h>

namespace {

QString shown(const VxNumericProperty *property, double value)
{
    const QString digits = vxLocalNumber(VxPropertyValue::numberText(value, 4));
    return property->isPercentage() ? digits + QLatin1Char('%') : digits;
}

/// With its node's name, if any.
QString fullName(const VxProperty *property)
{
    const VxNode *node = VxPropertyHelper::getNode(property);
    return node ? QStringLiteral("%1: %2").arg(node->getLabel(), property->getLabel())
                : property->getLabel();
}

void addRelations(const VxProperty *property, QStringList *lines)
{
    if (const VxProperty *target = property->getAliasedProperty())
        lines->append(VxParametersPane::tr("Alias of %1").arg(fullName(target)));
    if (const VxProperty *control = property->getOverridingControl())
        lines->append(VxParametersPane::tr("Controlled by %1").arg(fullName(control)));
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (!number || !number->isLinked())
        return;
    const QString source = fullName(number->getLinkedProperty());
    lines->append(number->isLinkTerminal() ? VxParametersPane::tr("Adds %1").arg(source)
                                           : VxParametersPane::tr("Follows %1").arg(source));
}

} // namespace

QString VxPropertyHints::keyHint(VxPropertyListItemModel::KeyState state, bool editable)
{
    switch (state) {
    case VxPropertyListItemModel::NoKeys:
        return editable ? VxParametersPane::tr("No keys. Click to set one here.")
                        : VxParametersPane::tr("No keys.");
    case VxPropertyListItemModel::Keyed:
        return editable
                   ? VxParametersPane::tr("Keyed, but not at this time. Click to set a key here.")
                   : VxParametersPane::tr("Keyed, but not at this time.");
    case VxPropertyListItemModel::OnKey:
        return editable ? VxParametersPane::tr("On a key. Click to delete it.")
                        : VxParametersPane::tr("On a key.");
    case VxPropertyListItemModel::MixedKeys:
        return editable ? VxParametersPane::tr(
                              "Keyed on some of the nodes. Click to set the missing keys here.")
                        : VxParametersPane::tr("Keyed on some of the nodes.");
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
        lines.append(VxParametersPane::tr("Locked"));
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (number && !number->isAnimatable())
        lines.append(VxParametersPane::tr("Cannot be keyed"));
    if (properties.size() > 1)
        lines.append(
            VxParametersPane::tr("Changes apply to %n nodes.", nullptr, properties.size()));
    return lines.join(QLatin1Char('\n'));
}

QString VxPropertyHints::valueHint(const QVector<VxProperty *> &properties, VxTime time)
{
    const auto *first = qobject_cast<const VxNumericProperty *>(properties.value(0));
    if (!first)
        return {};
    double lowest = VxPropertyValue::shownValue(first, time), highest = lowest;
    for (const VxProperty *property : properties) {
        if (const auto *number = qobject_cast<const VxNumericProperty *>(property)) {
            const double value = VxPropertyValue::shownValue(number, time);
            lowest = qMin(lowest, value);
            highest = qMax(highest, value);
        }
    }
    if (lowest < highest)
        return VxParametersPane::tr("Values from %1 to %2")
            .arg(shown(first, lowest), shown(first, highest));
    return VxParametersPane::tr("Value %1")
        .arg(vxLocalNumber(VxPropertyValue::fullText(first, time)));
}

QString VxPropertyHints::offset(const VxNumericProperty *property, double steps)
{
    const QString text = shown(property, steps * VxPropertyValue::step(property));
    return steps > 0 ? QLatin1Char('+') + text : text;
}

QString VxPropertyHints::refusal(const QString &label, int refused, int locked, int count)
{
    if (refused <= 0)
        return {};
    if (locked > 0 && locked < count)
        return VxParametersPane::tr(
                   "%1 was not changed on %2 of %3 nodes, where it is locked or follows another "
                   "value.")
            .arg(label, QString::number(locked), QString::number(count));
    if (locked > 0)
        return VxParametersPane::tr("%1 cannot be changed: it is locked or follows another value.")
            .arg(label);
    return VxParametersPane::tr(
               "%1 cannot be set: it has no key at this time, and creating keys automatically is "
               "off.")
        .arg(label);
}

QString VxPropertyHints::limits(const VxNumericProperty *property, double value)
{
    const double lowest = VxPropertyValue::lowest(property);
    const double highest = VxPropertyValue::highest(property);
    if (value >= lowest && value <= highest)
        return VxParametersPane::tr("%1 must be a whole number. The nearest one was set.")
            .arg(property->getLabel());
    return VxParametersPane::tr("%1 must be from %2 to %3. The nearest value was set.")
        .arg(property->getLabel(), shown(property, lowest), shown(property, highest));
}

QString VxPropertyHints::unreadable(const QString &text)
{
    return VxParametersPane::tr("\u201c%1\u201d is not a valid value.").arg(text);
}
