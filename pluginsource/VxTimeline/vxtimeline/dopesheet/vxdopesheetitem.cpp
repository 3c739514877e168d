#include "vxtimeline/dopesheet/vxdopesheetitem.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <algorithm>
#include <utility>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>

namespace {

constexpr int MostLinks = 100;

// The property from which the value shown comes: aliases and open links followed. Null never comes
// out; a chain that breaks off or is too long gives where it began.
VxProperty *valueSource(VxProperty *property)
{
    VxProperty *start = property->getAliasedProperty();
    if (!start)
        start = property;
    auto *source = qobject_cast<VxNumericProperty *>(start);
    for (int i = 0; source && i < MostLinks && source->isLinked() && !source->isLinkTerminal(); ++i)
        source = source->getLinkedProperty();
    return source ? source : start;
}

} // namespace

class VxDopeSheetItem::Private
{
public:
    QString label;
    int row = -1;
    VxDopeSheetItem *parent = nullptr;
    QVector<VxDopeSheetItem *> children;
    VxNode *node = nullptr;
    QPointer<VxProperty> property;

    void renumber()
    {
        for (int i = 0; i < children.size(); ++i)
            children.at(i)->d->row = i;
    }
};

VxDopeSheetItem::VxDopeSheetItem()
    : d(std::make_unique<Private>())
{
}

VxDopeSheetItem::~VxDopeSheetItem()
{
    setParent(nullptr);
    while (!d->children.isEmpty())
        delete d->children.last();
}

QString VxDopeSheetItem::label() const
{
    if (!d->label.isEmpty())
        return d->label;
    if (d->property)
        return d->property->getLabel();
    return d->node ? d->node->getLabel() : QString();
}

void VxDopeSheetItem::setLabel(const QString &label)
{
    d->label = label;
}

VxNode *VxDopeSheetItem::node() const
{
    return d->node;
}

void VxDopeSheetItem::setNode(VxNode *node)
{
    d->node = node;
}

VxProperty *VxDopeSheetItem::property() const
{
    return d->property;
}

// A property that is its own source is listened to twice, as those that have another are.
void VxDopeSheetItem::setProperty(VxProperty *property)
{
    d->property = property;
    if (!property)
        return;
    connect(property, &VxProperty::valueChanged, this, &VxDopeSheetItem::handleValueChanged);
    connect(valueSource(property), &VxProperty::valueChanged, this,
            &VxDopeSheetItem::handleValueChanged);
}

VxDopeSheetItem *VxDopeSheetItem::parentItem() const
{
    return d->parent;
}

void VxDopeSheetItem::setParent(VxDopeSheetItem *newParent)
{
    if (d->parent) {
        d->parent->d->children.removeAt(d->row);
        d->parent->d->renumber();
    }
    d->parent = newParent;
    d->row = newParent ? newParent->d->children.size() : -1;
    if (newParent)
        newParent->d->children.append(this);
}

int VxDopeSheetItem::row() const
{
    return d->row;
}

int VxDopeSheetItem::childCount() const
{
    return d->children.size();
}

VxDopeSheetItem *VxDopeSheetItem::child(int index) const
{
    return d->children.value(index, nullptr);
}

void VxDopeSheetItem::moveChild(int from, int to)
{
    if (!child(from) || !child(to))
        return;
    d->children.move(from, to);
    d->renumber();
}

void VxDopeSheetItem::swapChildren(int a, int b)
{
    if (!child(a) || !child(b))
        return;
    std::swap(d->children[a], d->children[b]);
    d->children.at(a)->d->row = a;
    d->children.at(b)->d->row = b;
}

void VxDopeSheetItem::pruneEmpty()
{
    for (int i = d->children.size() - 1; i >= 0; --i) {
        VxDopeSheetItem *item = d->children.at(i);
        item->pruneEmpty();
        if (item->childCount() == 0 && !item->property())
            delete item;
    }
}

bool VxDopeSheetItem::hasKeys() const
{
    if (d->property)
        return d->property->getNumKeys() > 0;
    return std::any_of(d->children.cbegin(), d->children.cend(),
                       [](const VxDopeSheetItem *item) { return item->hasKeys(); });
}

void VxDopeSheetItem::handleValueChanged(VxTimeRange range)
{
    Q_UNUSED(range)
    Q_EMIT keysChanged();
}
