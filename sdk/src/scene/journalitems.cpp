#include "scene/journalitems.h"

#include "keys/keyjournal.h"
#include "keys/keystore.h"
#include "keys/vxnumericproperty_p.h"
#include "scene/vxnode_p.h"
#include "undo/journalvalues.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <algorithm>
#include <cmath>
#include <vector>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxstringproperty.h>

namespace {

using Reader = VxJournalReader;

/// Applies the former and the present value of an item: the one that the direction asks for.
class ItemReader
{
public:
    ItemReader(Reader &reader, Reader::Direction direction)
        : r(reader)
        , m_forward(direction == Reader::Forward)
    {
    }

    bool applyItem();

private:
    struct Place
    {
        bool inScene = false;
        quint64 parent = 0;
        int index = 0;
    };

    bool applyKeys();
    template <class V> bool applyKeysOf(VxNumericProperty *property);
    bool applyStoredValue();
    template <class V> bool applyStoredValueOf(VxNumericProperty *property);
    bool applyPropertyValue();
    bool applyReference(int kind, VxProperty *property);
    bool applyLink(VxProperty *property);
    bool applyNodeValue();
    bool applySceneValue();
    bool applyNodePlace();
    Place readPlace();
    bool addNode(quint64 id, const Place &place);
    bool moveNode(VxNode *node, const Place &place);
    bool applyMarkers();
    bool findMarkers(const VxMarkerList &former, QHash<int, int> *ids);
    VxMarkerList readMarkers();

    /// Reads both values and sets the one that is asked for. False after a failure.
    template <class Object, class Class, class Result, class Argument>
    bool value(Object *object, Result (Class::*set)(Argument))
    {
        std::decay_t<Argument> before{};
        std::decay_t<Argument> after{};
        journalGet(r, &before);
        journalGet(r, &after);
        if (r.failed())
            return false;
        (object->*set)(m_forward ? after : before);
        return true;
    }
    /// The property of the item, if its values are of the type that follows it; else null.
    VxNumericProperty *numberProperty(JournalNumber *type);

    Reader &r;
    const bool m_forward;
};

VxNumericProperty *ItemReader::numberProperty(JournalNumber *type)
{
    VxProperty *property = r.property();
    *type = r.number<JournalNumber>();
    const bool isFloat = qobject_cast<VxFloatProperty *>(property);
    const bool isInt = qobject_cast<VxIntProperty *>(property);
    if (r.failed() || !(*type == JournalNumber::Float ? isFloat : isInt))
        return nullptr;
    return static_cast<VxNumericProperty *>(property);
}

template <class V> KeyStore<V> &storeOf(VxNumericProperty *property)
{
    VxProperty::Private *record = VxProperty::Private::of(property);
    return static_cast<KeyStore<V> &>(static_cast<VxNumericProperty::Private *>(record)->ownKeys());
}

template <class V> bool ItemReader::applyKeysOf(VxNumericProperty *property)
{
    VxTimeRange range;
    journalGet(r, &range);
    const KeyTrack<V> before = KeyJournal::get<V>(r, range);
    const KeyTrack<V> after = KeyJournal::get<V>(r, range);
    return !r.failed() &&
           storeOf<V>(property).replace(range, (m_forward ? after : before).columns());
}

bool ItemReader::applyKeys()
{
    JournalNumber type;
    VxNumericProperty *property = numberProperty(&type);
    if (!property)
        return false;
    return type == JournalNumber::Float ? applyKeysOf<float>(property)
                                        : applyKeysOf<qint32>(property);
}

template <class V> bool ItemReader::applyStoredValueOf(VxNumericProperty *property)
{
    const V before = r.number<V>();
    const V after = r.number<V>();
    return !r.failed() && std::isfinite(double(before)) && std::isfinite(double(after)) &&
           storeOf<V>(property).setStored(m_forward ? after : before);
}

bool ItemReader::applyStoredValue()
{
    JournalNumber type;
    VxNumericProperty *property = numberProperty(&type);
    if (!property)
        return false;
    return type == JournalNumber::Float ? applyStoredValueOf<float>(property)
                                        : applyStoredValueOf<qint32>(property);
}

bool ItemReader::applyReference(int kind, VxProperty *property)
{
    VxProperty *before = r.property();
    VxProperty *after = r.property();
    VxProperty *target = m_forward ? after : before;
    if (r.failed())
        return false;
    return kind == VxUndoAlias ? property->setAliasedProperty(target)
                               : property->setOverridingControl(target);
}

bool ItemReader::applyLink(VxProperty *property)
{
    struct State
    {
        VxProperty *target;
        bool terminal;
        double factor;
        double offset;
    };
    const auto read = [this] {
        VxProperty *target = r.property();
        const bool terminal = r.number<quint8>() != 0;
        const auto factor = r.number<double>();
        return State{target, terminal, factor, r.number<double>()};
    };
    const State before = read();
    const State after = read();
    const State state = m_forward ? after : before;
    auto *number = qobject_cast<VxNumericProperty *>(property);
    auto *target = qobject_cast<VxNumericProperty *>(state.target);
    if (r.failed() || !number || (state.target && !target))
        return false;
    return number->setLink(target, state.terminal, state.factor, state.offset);
}

bool ItemReader::applyPropertyValue()
{
    const int kind = r.number<quint8>();
    VxProperty *property = r.property();
    if (!property)
        return false;
    switch (kind) {
    case VxUndoLabel:
        return value(property, &VxProperty::setLabel);
    case VxUndoHidden:
        return value(property, &VxProperty::setHidden);
    case VxUndoLocked:
        return value(property, &VxProperty::setLocked);
    case VxUndoAnimatable:
        return value(property, &VxProperty::setAnimatable);
    case VxUndoStoredValue: {
        auto *string = qobject_cast<VxStringProperty *>(property);
        return string && value(string, &VxStringProperty::setValue);
    }
    case VxUndoAlias:
    case VxUndoOverride:
        return applyReference(kind, property);
    case VxUndoLink:
        return applyLink(property);
    case VxUndoTransientValue:
        return true; // not part of the document
    default:
        return false;
    }
}

bool ItemReader::applyNodeValue()
{
    const int kind = r.number<quint8>();
    VxNode *node = r.node();
    if (!node)
        return false;
    switch (kind) {
    case VxUndoElementLabel:
        return value(node, &VxNode::setLabel);
    case VxUndoNodeVisible:
        return value(node, &VxNode::setVisible);
    case VxUndoNodeSelectable:
        return value(node, &VxNode::setSelectable);
    case VxUndoNodeIk:
        return value(node, &VxNode::setIkNode);
    case VxUndoNodePinned:
        return value(node, &VxNode::setPinned);
    case VxUndoNodeRotationOrder:
        return value(node, &VxNode::setRotationOrder);
    case VxUndoNodeOrigin:
        return value(node, &VxNode::setOrigin);
    case VxUndoNodeEndPoint:
        return value(node, &VxNode::setEndPoint);
    case VxUndoNodeRestPose:
        return value(node, &VxNode::setRestPose);
    default:
        return false;
    }
}

bool ItemReader::applySceneValue()
{
    VxScene *scene = r.scene();
    switch (r.number<quint8>()) {
    case VxUndoSceneTime:
        return value(scene, &VxScene::setTime);
    case VxUndoSceneTimeStep:
        return value(scene, &VxScene::setTimeStep);
    case VxUndoScenePlayRange:
        return value(scene, &VxScene::setPlayRange);
    case VxUndoSceneAnimRange:
        return value(scene, &VxScene::setAnimRange);
    case VxUndoSceneViews:
        return value(VxSceneViews::of(scene), &VxSceneViews::setViews);
    case VxUndoSceneTimeDisplay:
        return value(VxSceneTimeDisplay::of(scene), &VxSceneTimeDisplay::setDisplay);
    default:
        return false;
    }
}

ItemReader::Place ItemReader::readPlace()
{
    Place place;
    place.inScene = r.number<quint8>() != 0;
    place.parent = r.number<quint64>();
    place.index = r.number<qint32>();
    return place;
}

bool ItemReader::moveNode(VxNode *node, const Place &place)
{
    VxNode *parent = place.parent ? r.scene()->findNodeById(place.parent) : nullptr;
    return (parent || !place.parent) && node->setNodeParent(parent, place.index);
}

bool ItemReader::addNode(quint64 id, const Place &place)
{
    std::unique_ptr<VxNode> made = r.contents();
    VxNode *parent = place.parent ? r.scene()->findNodeById(place.parent) : nullptr;
    if (!made || made->getId() != id || (place.parent && !parent) ||
        (parent && !VxNode::Private::of(made.get())->fitsBelow(parent)) ||
        !r.scene()->addNode(made.get(), parent))
        return false;
    VxNode *node = made.release();
    return node->getId() == id && moveNode(node, place);
}

bool ItemReader::applyNodePlace()
{
    const auto id = r.number<quint64>();
    const Place before = readPlace();
    const Place after = readPlace();
    if (r.failed())
        return false;
    const Place &place = m_forward ? after : before;
    VxNode *node = r.scene()->findNodeById(id);
    if (!node)
        return before.inScene != after.inScene && place.inScene && addNode(id, place);
    return place.inScene ? before.inScene && moveNode(node, place) : r.scene()->removeNode(node);
}

VxMarkerList ItemReader::readMarkers()
{
    const auto count = r.number<qint32>();
    VxMarkerList markers;
    for (int i = 0; i < count && !r.failed(); ++i) {
        VxMarker marker;
        marker.id = r.number<qint32>();
        marker.name = r.text();
        journalGet(r, &marker.span);
        marker.color = r.number<quint32>();
        markers.append(marker);
    }
    return markers;
}

/** Identifiers of markers are valid in one run of the program only. The former markers are
 * therefore found by name, span and color. */
bool ItemReader::findMarkers(const VxMarkerList &former, QHash<int, int> *ids)
{
    const VxMarkerList &list = VxMarkers::of(r.scene())->list();
    const auto startsBefore = [](const VxMarker &a, const VxMarker &b) {
        return a.span.getStart() < b.span.getStart();
    };
    QSet<int> found;
    for (const VxMarker &old : former) {
        const auto first = std::lower_bound(list.cbegin(), list.cend(), old, startsBefore);
        const auto same = std::find_if(first, list.cend(), [&](const VxMarker &marker) {
            return marker.name == old.name && marker.span == old.span &&
                   marker.color == old.color && !found.contains(marker.id);
        });
        if (same == list.cend() || ids->contains(old.id))
            return false;
        found.insert(same->id);
        ids->insert(old.id, same->id);
    }
    return true;
}

/** A former marker whose recorded identifier the new state contains, too, is changed, and the
 * others are removed. Markers with the same span, which are all in the record, are ordered by
 * identifier: those that would be out of the recorded order are removed and added anew. */
bool ItemReader::applyMarkers()
{
    VxMarkerList former = readMarkers();
    VxMarkerList present = readMarkers();
    if (!m_forward)
        former.swap(present);
    QHash<int, int> ids; // from those in the record to those in the scene
    if (r.failed() || !findMarkers(former, &ids))
        return false;
    VxMarkerList added;
    VxMarkerList changed;
    VxMarker last; // that keeps its identifier, with the present span
    bool isAnew = false;
    for (const VxMarker &marker : qAsConst(present)) {
        if (marker.span != last.span) {
            last = {0, QString(), marker.span};
            isAnew = false;
        }
        const int id = ids.value(marker.id); // 0 for a new one
        isAnew = isAnew || id <= last.id;
        if (isAnew) {
            added.append(marker);
            continue;
        }
        last.id = id;
        changed.append(marker);
        changed.last().id = id;
        ids.remove(marker.id);
    }
    VxMarkers *markers = VxMarkers::of(r.scene());
    markers->set(changed);
    markers->remove(ids.values().toVector());
    markers->add(added);
    return true;
}

bool ItemReader::applyItem()
{
    switch (r.number<JournalItem>()) {
    case JournalItem::Keys:
        return applyKeys();
    case JournalItem::StoredValue:
        return applyStoredValue();
    case JournalItem::PropertyValue:
        return applyPropertyValue();
    case JournalItem::NodeValue:
        return applyNodeValue();
    case JournalItem::SceneValue:
        return applySceneValue();
    case JournalItem::NodePlace:
        return applyNodePlace();
    case JournalItem::Markers:
        return applyMarkers();
    default:
        return false;
    }
}

} // namespace

bool JournalItems::apply(VxJournalReader &reader, VxJournalReader::Direction direction)
{
    const VxChangeBlock block;
    return ItemReader(reader, direction).applyItem();
}
