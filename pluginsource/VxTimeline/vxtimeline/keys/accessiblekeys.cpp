#include "vxtimeline/keys/accessiblekeys.h"

#include "vxtimeline/keys/accessiblekey.h"
#include "vxtimeline/keys/accessiblepool.h"
#include "vxtimeline/keys/keyspans.h"

#include <vxcore/vxkeyselection.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

// Keys that are examined on both sides of a place: as many marks may share a column's pixels.
constexpr int MarksAround = 16;

// The object of the list itself, among the places of its keys.
constexpr int ListIndex = -1;

QString timeText(VxTime time)
{
    return VxSceneTimeDisplay::labelOf(vxScene, time);
}

bool hasKey(const std::vector<VxKeySpan> &spans, int index)
{
    for (const VxKeySpan &span : spans) {
        if (index >= span.first && index < span.last)
            return true;
    }
    return false;
}

// The spans with or without one key.
std::vector<VxKeySpan> changed(const std::vector<VxKeySpan> &spans, int index, bool selected)
{
    if (selected)
        return KeySpans::united(spans, {{index, index + 1}});
    std::vector<VxKeySpan> result;
    for (const VxKeySpan &span : spans) {
        const VxKeySpan before{span.first, std::min(span.last, index)};
        const VxKeySpan after{std::max(span.first, index + 1), span.last};
        for (const VxKeySpan &left : {before, after}) {
            if (left.first < left.last)
                result.push_back(left);
        }
    }
    return result;
}

QVector<VxProperty *> holdersOf(const QVector<VxProperty *> &properties)
{
    QVector<VxProperty *> holders;
    for (VxProperty *property : properties)
        holders += property->getKeyHolder();
    std::sort(holders.begin(), holders.end());
    holders.erase(std::unique(holders.begin(), holders.end()), holders.end());
    return holders;
}

void applySelection(const VxKeySelectionEntries &entries, AccessibleKeys::Change change)
{
    VxKeySelection *selection = VxKeySelection::current();
    if (!selection)
        return;
    if (change == AccessibleKeys::Change::SelectOnly)
        selection->set(entries);
    else
        selection->setForHolders(entries);
}

} // namespace

void AccessibleKeys::report(QAccessibleInterface *object, QAccessible::Event type)
{
    if (!object)
        return;
    QAccessibleEvent event(object, type);
    QAccessible::updateAccessibility(&event);
}

QAccessibleInterface *AccessibleKeys::listOf(const Source &source)
{
    if (!source->isValid())
        return nullptr;
    return AccessiblePool::ofContainers().get({source->owner(), ListIndex},
                                              [&] { return new AccessibleKeyList(source); });
}

int AccessibleKeys::indexAt(const AccessibleKeySource &source, const QPoint &position)
{
    if (!source.isValid() || source.count() == 0)
        return -1;
    const int near = source.firstFrom(source.timeAt(position.x()));
    int best = -1;
    int least = 0;
    const int last = std::min(source.count(), near + MarksAround);
    for (int index = std::max(0, near - MarksAround); index < last; ++index) {
        const QRect mark = source.keyRect(index);
        if (!mark.contains(position))
            continue;
        const int distance = (mark.center() - position).manhattanLength();
        if (best < 0 || distance < least) {
            best = index;
            least = distance;
        }
    }
    return best;
}

QAccessibleInterface *AccessibleKeys::keyOf(const Source &source, int index)
{
    if (!source->isValid() || index < 0 || index >= source->count())
        return nullptr;
    return AccessiblePool::ofKeys().get({source->owner(), index},
                                        [&] { return new AccessibleKey(source, index); });
}

QString AccessibleKeys::description(const AccessibleKeySource &source)
{
    const int count = source.count();
    QStringList parts(tr("%n keys", nullptr, count));
    if (const int selected = source.selectedCount())
        parts += tr("%n selected", nullptr, selected);
    const VxTime now = vxScene->getTime();
    const int next = source.firstFrom(now);
    const bool isAtKey = next < count && source.time(next) == now;
    if (isAtKey)
        parts += tr("key at the current time");
    if (next > 0)
        parts += tr("previous key at %1").arg(timeText(source.time(next - 1)));
    const int after = isAtKey ? next + 1 : next;
    if (after < count)
        parts += tr("next key at %1").arg(timeText(source.time(after)));
    return parts.join(QStringLiteral(", "));
}

QString AccessibleKeys::valueText(const AccessibleKeySource &source, int index)
{
    const auto *number = qobject_cast<const VxNumericProperty *>(source.property());
    if (!number)
        return QString();
    const double value = number->getKeyDoubleValue(index);
    return number->isPercentage() ? tr("%1 %").arg(value * 100) : QString::number(value);
}

QString AccessibleKeys::typeText(const AccessibleKeySource &source, int index)
{
    const VxProperty *property = source.property();
    if (!property)
        return QString();
    const QString types[] = {tr("Linear"), tr("Constant"), tr("TCB")};
    return types[qBound(0, property->getKeyInterpolationType(index), 2)];
}

void AccessibleKeys::changeKey(const AccessibleKeySource &source, int index, Change change)
{
    const VxTime time = source.time(index);
    const bool selects =
        change == Change::Toggle ? !source.isSelected(index) : change != Change::Deselect;
    const VxKeySelection *selection = VxKeySelection::current();
    VxKeySelectionEntries entries;
    for (VxProperty *holder : holdersOf(source.properties())) {
        const int key = holder->findKey(time);
        if (key < 0 || !selection)
            continue;
        const std::vector<VxKeySpan> former =
            change == Change::SelectOnly ? std::vector<VxKeySpan>() : selection->spansOf(holder);
        if (hasKey(former, key) != selects)
            entries.push_back({holder, changed(former, key, selects), 0});
    }
    applySelection(entries, change);
}

void AccessibleKeys::changeAll(const AccessibleKeySource &source, Change change)
{
    VxKeySelectionEntries entries;
    for (VxProperty *holder : holdersOf(source.properties())) {
        const int count = holder->getNumKeys();
        if (change == Change::Deselect)
            entries.push_back({holder, {}, 0});
        else if (count > 0)
            entries.push_back({holder, {VxKeySpan{0, count}}, 0});
    }
    applySelection(entries, change);
}

void AccessibleKeys::selectBetween(const std::vector<Source> &sources, VxTime first, VxTime last)
{
    QVector<VxProperty *> properties;
    for (const Source &source : sources)
        properties += source->properties();
    VxKeySelectionEntries entries;
    for (VxProperty *holder : holdersOf(properties)) {
        const int from = holder->getFirstKeyFrom(first);
        const int to = last == VxTimeMax ? holder->getNumKeys() : holder->getFirstKeyFrom(last + 1);
        if (from < to)
            entries.push_back({holder, {VxKeySpan{from, to}}, 0});
    }
    applySelection(entries, Change::SelectOnly);
}
