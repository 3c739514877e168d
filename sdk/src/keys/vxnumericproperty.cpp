#include "keys/vxnumericproperty_p.h"

#include "keys/keystore.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vxcore/vxjournalwriter.h>
#include <vxcore/vxkeyedit.h>
#include <vxcore/vxscene.h>

namespace {

/// A link as one value, for undo.
struct LinkState
{
    QPointer<VxNumericProperty> property;
    bool terminal;
    double factor;
    double offset;

    bool operator==(const LinkState &other) const
    {
        return property == other.property && terminal == other.terminal && factor == other.factor &&
               offset == other.offset;
    }
};

LinkState linkState(const VxNumericProperty *property)
{
    return {property->getLinkedProperty(), property->isLinkTerminal(), property->getLinkFactor(),
            property->getLinkOffset()};
}

bool journalPut(VxJournalWriter &writer, const LinkState &state)
{
    if (!writer.property(state.property))
        return false;
    writer.number(quint8(state.terminal));
    writer.number(state.factor);
    writer.number(state.offset);
    return true;
}

} // namespace

double VxNumericProperty::Private::dependentValue(VxTime time, double ownValue) const
{
    const auto valueOf = [time](VxProperty *property) {
        return static_cast<VxNumericProperty *>(property)->getDoubleValue(time);
    };
    if (overriding)
        return valueOf(overriding.get());
    if (aliased)
        return valueOf(aliased.get());
    if (!link)
        return ownValue;
    return (terminal ? ownValue : 0.0) + valueOf(link.get()) * factor + offset;
}

KeyStoreBase &VxNumericProperty::Private::shownKeys()
{
    return isPlain ? ownKeys() : static_cast<Private *>(of(q->getKeyHolder()))->ownKeys();
}

bool VxNumericProperty::Private::isEditable() const
{
    return !locked && !of(q->getKeyHolder())->locked;
}

bool VxNumericProperty::Private::acceptsKeys() const
{
    return isEditable() && animatable && of(q->getKeyHolder())->animatable;
}

bool VxNumericProperty::Private::makesKeys() const
{
    return animatable && (!vxScene || vxScene->isAnimating());
}

VxNumericProperty::VxNumericProperty(const QString &name, Private *priv)
    : VxProperty(name, priv)
{
}

VxNumericProperty::~VxNumericProperty() = default;

VxNumericProperty::Private *VxNumericProperty::priv() const
{
    return static_cast<Private *>(VxProperty::priv());
}

bool VxNumericProperty::canBeKeyed() const
{
    return isAnimatable();
}

int VxNumericProperty::getNumKeys() const
{
    return priv()->shownKeys().count();
}

const VxTime *VxNumericProperty::getKeyTimes() const
{
    return priv()->shownKeys().times();
}

double VxNumericProperty::getKeyDoubleValue(int index) const
{
    return priv()->shownKeys().keyValue(index);
}

qint64 VxNumericProperty::getKeyMemory() const
{
    return priv()->shownKeys().memoryBytes();
}

int VxNumericProperty::deleteKeys(const VxTimeRange &range)
{
    return priv()->isEditable() ? priv()->shownKeys().removeRange(range) : 0;
}

int VxNumericProperty::deleteKeys(int first, int last)
{
    if (last == std::numeric_limits<int>::max())
        --last;
    return priv()->isEditable() ? priv()->shownKeys().removeIndexRange(first, last + 1) : 0;
}

int VxNumericProperty::deleteKeys(const QVector<int> &indexes)
{
    return priv()->isEditable() ? priv()->shownKeys().removeIndexes(indexes) : 0;
}

bool VxNumericProperty::moveKeys(const QVector<int> &indexes, const QVector<VxTime> &newTimes)
{
    return priv()->isEditable() && priv()->shownKeys().move(indexes, newTimes);
}

bool VxNumericProperty::isLinked() const
{
    return bool(priv()->link);
}

bool VxNumericProperty::isLinkTerminal() const
{
    return priv()->link && priv()->terminal;
}

VxNumericProperty *VxNumericProperty::getLinkedProperty() const
{
    return static_cast<VxNumericProperty *>(priv()->link.get());
}

double VxNumericProperty::getLinkFactor() const
{
    return priv()->factor;
}

double VxNumericProperty::getLinkOffset() const
{
    return priv()->offset;
}

bool VxNumericProperty::setLink(VxNumericProperty *property, bool terminal, double factor,
                                double offset)
{
    const LinkState next{property, terminal, factor, offset};
    if (linkState(this) == next)
        return true;
    if (property && !priv()->canReferTo(property))
        return false;
    if (!std::isfinite(factor) || !std::isfinite(offset))
        return false;
    vxRecordValue<VxNumericProperty, LinkState>(
        this, VxUndoLink, linkState, [](VxNumericProperty *p, const LinkState &state) {
            p->setLink(state.property, state.terminal, state.factor, state.offset);
        });
    priv()->link.set(priv(), property);
    priv()->terminal = terminal;
    priv()->factor = factor;
    priv()->offset = offset;
    priv()->updateDependencies();
    return true;
}

double VxNumericProperty::getDoubleValue() const
{
    return getDoubleValue(vxScene ? vxScene->getTime() : 0);
}

bool VxNumericProperty::setDoubleValue(double value)
{
    return setDoubleValue(vxScene ? vxScene->getTime() : 0, value);
}

bool VxNumericProperty::shiftKeys(const VxTimeRange &range, VxTime offset)
{
    const VxTime *times = getKeyTimes();
    const int first = getFirstKeyFrom(range.getStart());
    const VxTime *end = std::upper_bound(times + first, times + getNumKeys(), range.getEnd());
    QVector<int> indexes(int(end - times) - first);
    if (indexes.isEmpty() || offset == 0)
        return priv()->isEditable();
    std::iota(indexes.begin(), indexes.end(), first);
    const auto newTimes = vxShiftedKeyTimes(times + first, indexes.size(), offset);
    return moveKeys(indexes, QVector<VxTime>(newTimes.begin(), newTimes.end()));
}

bool VxNumericProperty::isPercentage() const
{
    return priv()->percentage;
}

void VxNumericProperty::setPercentage(bool percentage)
{
    if (priv()->percentage == percentage)
        return;
    priv()->percentage = percentage;
    priv()->noteUnrecordable();
    priv()->emitTraits();
}
