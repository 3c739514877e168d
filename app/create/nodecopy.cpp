#include "create/nodecopy.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

std::unique_ptr<VxNode> nodeLike(const VxNode *source, const QString &name)
{
    if (qobject_cast<const VxSkeleton *>(source))
        return std::make_unique<VxSkeleton>(name);
    if (qobject_cast<const VxBone *>(source))
        return std::make_unique<VxBone>(name);
    return std::make_unique<VxNode>(name);
}

VxProperty *propertyLike(const VxProperty *source)
{
    const QString name = source->getName();
    if (const auto *number = qobject_cast<const VxFloatProperty *>(source))
        return new VxFloatProperty(name, number->getDefaultValue());
    if (const auto *flag = qobject_cast<const VxBoolProperty *>(source))
        return new VxBoolProperty(name, flag->getDefaultValue() != 0);
    if (const auto *whole = qobject_cast<const VxIntProperty *>(source))
        return new VxIntProperty(name, whole->getDefaultValue());
    if (const auto *text = qobject_cast<const VxStringProperty *>(source))
        return new VxStringProperty(name, vxOwnText(text));
    return nullptr;
}

/** What a reference hides as well: the copy shows it when its reference is removed. */
template <class Property> void copyOwnContents(const Property *from, Property *to)
{
    const auto own = vxOwnContents(from);
    to->setStoredValue(own.stored);
    to->setKeys(own.keys);
}

void copyNumber(const VxFloatProperty *from, VxFloatProperty *to)
{
    to->setAxis(from->getAxis());
    to->setSensitivity(from->getSensitivity());
    to->setDefaultInterpolation(from->getDefaultInterpolation());
    copyOwnContents(from, to);
    to->setMinMax(from->getMin(), from->getMax(), from->isClamped());
}

void copyNumber(const VxIntProperty *from, VxIntProperty *to)
{
    copyOwnContents(from, to);
    to->setMinMax(from->getMin(), from->getMax(), from->isClamped());
}

/** Everything but references. Limits and locks last, as they restrict what can be set. */
void copyProperty(const VxProperty *from, VxProperty *to)
{
    to->setLabel(from->getLabel());
    to->setHidden(from->isHidden());
    to->setDynamicallyHidden(from->isDynamicallyHidden());
    to->setExcluded(from->isExcluded());
    if (const auto *number = qobject_cast<const VxFloatProperty *>(from))
        copyNumber(number, static_cast<VxFloatProperty *>(to));
    else if (const auto *whole = qobject_cast<const VxIntProperty *>(from))
        copyNumber(whole, static_cast<VxIntProperty *>(to));
    else if (const auto *text = qobject_cast<const VxStringProperty *>(from))
        static_cast<VxStringProperty *>(to)->setValue(vxOwnText(text));
    if (const auto *number = qobject_cast<const VxNumericProperty *>(from))
        static_cast<VxNumericProperty *>(to)->setPercentage(number->isPercentage());
    to->setAnimatable(from->isAnimatable());
}

void copyTraits(const VxNode *from, VxNode *to)
{
    to->setVisible(from->isVisible());
    to->setSelectable(from->isSelectable());
    to->setIkNode(from->isIkNode());
    to->setPinned(from->isPinned());
    to->setRotationOrder(from->getRotationOrder());
    to->setOrigin(from->getOrigin());
    to->setEndPoint(from->getEndPoint());
    to->setRestPose(from->getRestPose());
}

} // namespace

NodeCopy::NodeCopy(const QVector<VxNode *> &sources, const QStringList &names)
{
    QHash<const VxNode *, VxNode *> copies;
    for (int i = 0; i < sources.size(); ++i) {
        const VxNode *source = sources.at(i);
        std::unique_ptr<VxNode> copy = nodeLike(source, names.at(i));
        VxNode *made = copy.get();
        copyTraits(source, made);
        copyElement(source, made);
        if (source->getLabel() != source->getName())
            made->setLabel(source->getLabel());
        if (source->getObject())
            copyObject(source->getObject(), made);
        copies.insert(source, made);
        if (VxNode *parent = copies.value(source->getNodeParent())) {
            parent->addNodeChild(copy.release());
        } else {
            m_sources.insert(made, sources.at(i));
            m_tops.push_back(std::move(copy));
        }
    }
    copyReferences();
}

void NodeCopy::copyElement(const VxElement *from, VxElement *to)
{
    for (const VxProperty *source : from->getMadeProperties()) {
        VxProperty *copy = to->findProperty(source->getName());
        if (!copy) {
            copy = propertyLike(source);
            if (!copy)
                continue; // a kind of a plug-in's own, which it alone can make
            to->addProperty(copy, source->getPath());
        }
        copyProperty(source, copy);
        m_properties.insert(source, copy);
        m_order.push_back(source);
    }
}

void NodeCopy::copyObject(const VxObject *from, VxNode *to)
{
    auto *object = new VxObject(from->getName());
    object->setLabel(from->getLabel());
    copyElement(from, object);
    for (int i = 0; i < from->getNumSubElements(); ++i) {
        const VxElement *source = from->getSubElement(i);
        const auto *morph = qobject_cast<const VxMorph *>(source);
        VxElement *copy = morph ? new VxMorph(morph->getName(), morph->getValueControl()->getPath())
                                : new VxElement(source->getName());
        copy->setLabel(source->getLabel());
        copyElement(source, copy);
        object->addSubElement(copy);
    }
    to->setObject(object);
}

void NodeCopy::copyReferences() const
{
    const auto target = [this](VxProperty *property) {
        return property ? m_properties.value(property, property) : nullptr;
    };
    for (const VxProperty *source : m_order) {
        VxProperty *copy = m_properties.value(source);
        if (VxProperty *aliased = source->getAliasedProperty())
            copy->setAliasedProperty(target(aliased));
        if (VxProperty *control = source->getOverridingControl())
            copy->setOverridingControl(target(control));
        const auto *number = qobject_cast<const VxNumericProperty *>(source);
        if (number && number->isLinked()) {
            auto *linked = static_cast<VxNumericProperty *>(target(number->getLinkedProperty()));
            static_cast<VxNumericProperty *>(copy)->setLink(
                linked, number->isLinkTerminal(), number->getLinkFactor(), number->getLinkOffset());
        }
    }
    // A lock refuses all of the above.
    for (const VxProperty *source : m_order)
        m_properties.value(source)->setLocked(source->isLocked());
}
