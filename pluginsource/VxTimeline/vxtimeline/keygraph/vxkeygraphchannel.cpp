#include "vxtimeline/keygraph/vxkeygraphchannel.h"

#include "vxtimeline/keys/keyspans.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <algorithm>
#include <vxcore/vxproperty.h>

class VxKeyGraphChannel::Private
{
public:
    bool isKey(int index) const { return index >= 0 && index < keyCache.size(); }
    bool hasTimesOf(const KeyGraphKeys &keys) const;
    void rebuild(const KeyGraphKeys &keys);
    void setSelected(const QVector<qint32> &indexes, bool selected);

    VxKeyCommunication *keyBus = nullptr;
    bool cacheValid = false;
    quint64 cachedRevision = 0; // of the property's keys
    QVector<VxKeyGraphKey> keyCache;
};

bool VxKeyGraphChannel::Private::hasTimesOf(const KeyGraphKeys &keys) const
{
    return keyCache.size() == keys.count &&
           std::equal(keyCache.constBegin(), keyCache.constEnd(), keys.times,
                      [](const VxKeyGraphKey &key, VxTime time) { return key.time == time; });
}

// Both lists are in order of time, so one pass finds the former record of each key. Usually only
// values changed, or the channel has moved the keys itself.
void VxKeyGraphChannel::Private::rebuild(const KeyGraphKeys &keys)
{
    if (hasTimesOf(keys))
        return;
    QVector<VxKeyGraphKey> fresh(keys.count);
    const VxKeyGraphKey *former = keyCache.constBegin();
    const VxKeyGraphKey *const end = keyCache.constEnd();
    VxKeyGraphKey *record = fresh.data();
    for (int i = 0; i < keys.count; ++i, ++record) {
        const VxTime time = keys.times[i];
        while (former != end && former->time < time)
            ++former;
        if (former != end && former->time == time) {
            *record = *former;
            continue;
        }
        record->time = record->dragStartTime = time;
        record->dragStartValue = keys.value(i);
    }
    keyCache.swap(fresh);
}

void VxKeyGraphChannel::Private::setSelected(const QVector<qint32> &indexes, bool selected)
{
    for (const qint32 index : indexes) {
        if (isKey(index))
            keyCache[index].selected = selected;
    }
}

VxKeyGraphChannel::VxKeyGraphChannel(VxKeyCommunication *keyBus)
    : d(std::make_unique<Private>())
{
    d->keyBus = keyBus;
}

VxKeyGraphChannel::~VxKeyGraphChannel() = default;

void VxKeyGraphChannel::setKeyCommunication(VxKeyCommunication *keyBus)
{
    d->keyBus = keyBus;
}

int VxKeyGraphChannel::getKeyInterpolation(int index, float *tension, float *continuity,
                                           float *bias) const
{
    Q_UNUSED(index)
    for (float *part : {tension, continuity, bias}) {
        if (part)
            *part = 0.0f;
    }
    return 0;
}

double VxKeyGraphChannel::getKeyTension(int index) const
{
    float value = 0;
    getKeyInterpolation(index, &value, nullptr, nullptr);
    return double(value);
}

double VxKeyGraphChannel::getKeyContinuity(int index) const
{
    float value = 0;
    getKeyInterpolation(index, nullptr, &value, nullptr);
    return double(value);
}

double VxKeyGraphChannel::getKeyBias(int index) const
{
    float value = 0;
    getKeyInterpolation(index, nullptr, nullptr, &value);
    return double(value);
}

void VxKeyGraphChannel::setKeyInterpolation(int, int) {}

void VxKeyGraphChannel::setKeyTension(int, double) {}

void VxKeyGraphChannel::setKeyContinuity(int, double) {}

void VxKeyGraphChannel::setKeyBias(int, double) {}

void VxKeyGraphChannel::removeKey(int) {}

void VxKeyGraphChannel::getValues(const VxTime *times, int count, double *values) const
{
    for (int i = 0; i < count; ++i)
        values[i] = getValue(times[i]);
}

QString VxKeyGraphChannel::getUnit() const
{
    return QString();
}

const QVector<VxKeyGraphKey> &VxKeyGraphChannel::getKeyCache() const
{
    const quint64 revision = getProperty()->keyRevision();
    if (!d->cacheValid || d->cachedRevision != revision) {
        d->rebuild(getKeys());
        d->cacheValid = true;
        d->cachedRevision = revision;
    }
    return d->keyCache;
}

void VxKeyGraphChannel::setKeyCache(QVector<VxKeyGraphKey> keys)
{
    d->keyCache.swap(keys);
    d->cacheValid = true;
    d->cachedRevision = getProperty()->keyRevision();
}

bool VxKeyGraphChannel::isKeySelected(int index) const
{
    getKeyCache();
    return d->isKey(index) && d->keyCache.at(index).selected;
}

void VxKeyGraphChannel::invalidateKeyCache()
{
    d->cacheValid = false;
}

void VxKeyGraphChannel::restoreKeyCache(const QVector<VxKeyGraphKey> &keys)
{
    d->keyCache = keys;
    d->cacheValid = false;
}

void VxKeyGraphChannel::setKeySelected(int index, bool selected)
{
    selectKey(index, selected);
    if (!d->keyBus || !d->isKey(index))
        return;
    VxKeyMessage message;
    (selected ? message.selectedKeys : message.deselectedKeys)[getProperty()].append(index);
    d->keyBus->send(message);
}

void VxKeyGraphChannel::selectKey(int index, bool selected)
{
    getKeyCache();
    if (!d->isKey(index))
        return;
    VxKeyGraphKey &key = d->keyCache[index];
    key.selected = selected;
    key.dragStartTime = key.time;
    key.dragStartValue = getKeyValue(index);
}

void VxKeyGraphChannel::deselectAllKeys()
{
    getKeyCache();
    for (VxKeyGraphKey &key : d->keyCache)
        key.selected = false;
}

void VxKeyGraphChannel::selectOnlySpans(const std::vector<VxKeySpan> &spans)
{
    getKeyCache();
    const KeyGraphKeys keys = getKeys();
    for (VxKeyGraphKey &key : d->keyCache)
        key.selected = false;
    for (const VxKeySpan &span : spans) {
        for (int i = qMax(span.first, 0); i < qMin(span.last, d->keyCache.size()); ++i) {
            VxKeyGraphKey &key = d->keyCache[i];
            key.selected = true;
            key.dragStartTime = key.time;
            key.dragStartValue = keys.value(i);
        }
    }
}

std::vector<VxKeySpan> VxKeyGraphChannel::getSelectedSpans() const
{
    const QVector<VxKeyGraphKey> &keys = getKeyCache();
    return KeySpans::ofFlags(keys.size(), [&keys](int i) { return int(keys[i].selected); });
}

void VxKeyGraphChannel::publishSelection() const
{
    if (!d->keyBus)
        return;
    const QVector<VxKeyGraphKey> &keys = getKeyCache();
    QVector<qint32> selected;
    selected.reserve(keys.size());
    for (int i = 0; i < keys.size(); ++i) {
        if (keys.at(i).selected)
            selected.append(i);
    }
    VxKeyMessage message;
    message.selectedKeys.insert(getProperty(), selected);
    d->keyBus->send(message);
}

void VxKeyGraphChannel::applyKeyMessage(const VxKeyMessage &message)
{
    getKeyCache();
    if (message.clearSelection)
        deselectAllKeys();
    d->setSelected(message.selectedKeys.value(getProperty()), true);
    d->setSelected(message.deselectedKeys.value(getProperty()), false);
}

void VxKeyGraphChannel::refreshDragStart()
{
    getKeyCache();
    const KeyGraphKeys keys = getKeys();
    for (int i = 0; i < d->keyCache.size(); ++i) {
        VxKeyGraphKey &key = d->keyCache[i];
        key.selectedAtPress = key.selected;
        if (!key.selected)
            continue;
        key.dragStartTime = key.time;
        key.dragStartValue = keys.value(i);
    }
}

void VxKeyGraphChannel::selectInBox(const KeyGraphBox &box, bool selected)
{
    getKeyCache();
    const KeyGraphKeys keys = getKeys();
    QVector<qint32> changed[2];
    for (int i = 0; i < d->keyCache.size(); ++i) {
        VxKeyGraphKey &key = d->keyCache[i];
        const bool inside = box.contains(key.time, keys.value(i));
        const bool flag = inside ? selected : key.selectedAtPress;
        if (key.selected != flag)
            changed[flag].append(i);
        key.selected = flag;
        if (inside) {
            key.dragStartTime = key.time;
            key.dragStartValue = keys.value(i);
        }
    }
    if (!d->keyBus)
        return;
    VxKeyMessage message;
    if (!changed[true].isEmpty())
        message.selectedKeys.insert(getProperty(), changed[true]);
    if (!changed[false].isEmpty())
        message.deselectedKeys.insert(getProperty(), changed[false]);
    d->keyBus->send(message);
}
