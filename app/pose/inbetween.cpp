#include "pose/inbetween.h"

#include "pose/keycycles.h"
#include "pose/posewriter.h"
#include "widgets/studiotext.h"

#include <QSet>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vxcore/vxbone.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr double SameValue = 1e-4; // degrees, units of length or parts of a scale

/** The topmost joint of a figure, which carries it over the ground. */
bool isRoot(const VxNode *node)
{
    return !qobject_cast<VxBone *>(node->getNodeParent());
}

/// A property that holds keys.
struct KeyedChannel
{
    VxProperty *holder;
    bool isRootTranslation;
};

/// Each key holder of the nodes and of their objects once.
class KeyedChannels
{
public:
    explicit KeyedChannels(const QVector<VxNode *> &nodes)
    {
        for (const VxNode *node : nodes) {
            const NodeChannels transforms(node);
            for (int i = XPlace; isRoot(node) && i <= ZPlace; ++i) {
                if (VxFloatProperty *control = transforms.at(i))
                    add(control, true);
            }
            add(node);
            const VxObject *object = node->getObject();
            for (int i = 0; object && i < object->getNumSubElements(); ++i)
                add(object->getSubElement(i));
            if (object)
                add(object);
        }
    }

    const QVector<KeyedChannel> &list() const { return m_channels; }

private:
    void add(const VxElement *element)
    {
        for (VxProperty *property : element->getMadeProperties())
            add(property, false);
    }
    void add(VxProperty *property, bool isRootTranslation)
    {
        VxProperty *holder = property->getKeyHolder();
        if (holder->getNumKeys() == 0 || m_found.contains(holder))
            return;
        m_found.insert(holder);
        m_channels.append({holder, isRootTranslation});
    }

    QVector<KeyedChannel> m_channels;
    QSet<const VxProperty *> m_found;
};

QVector<KeyedChannel> keyedChannels(const QVector<VxNode *> &nodes)
{
    return KeyedChannels(nodes).list();
}

qint64 periodOf(const VxTimeRange &range)
{
    return qint64(range.getEnd()) - range.getStart();
}

/** False when the property refused. */
bool holdKey(VxFloatProperty *property, int before, VxTime time)
{
    const float value = property->getKeyValue(before);
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    int at = -1;
    const bool isThere = property->hasKey(time, &at);
    const int type =
        property->getKeyInterpolationType(isThere ? at : before, &tension, &continuity, &bias);
    if (!property->setKey(time, value, type, tension, continuity, bias))
        return false;
    if (property->getKeyInterpolationType(before) == VxKeyInterp::Tcb)
        property->setKeyTypes({before}, VxKeyInterp::Linear);
    return true;
}

template <class Property>
bool repeatKeys(Property *property, const VxTimeRange &range, int count, double offset)
{
    const auto keys = repeatedKeys(property->getKeys(), range, count, offset);
    if (keys.isEmpty())
        return true;
    const qint64 end = range.getStart() + qint64(count) * periodOf(range);
    return property->replaceKeys(VxTimeRange(range.getEnd(), VxTime(end)), keys);
}

bool repeatChannel(const KeyedChannel &channel, const VxTimeRange &range, int count,
                   bool withOffset)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(channel.holder)) {
        const double travel =
            double(number->getValue(range.getEnd())) - double(number->getValue(range.getStart()));
        const double offset = withOffset && channel.isRootTranslation ? travel : 0.0;
        const double last = std::abs(offset) * count + std::abs(travel);
        return last < 1e37 && repeatKeys(number, range, count, offset);
    }
    if (auto *whole = qobject_cast<VxIntProperty *>(channel.holder))
        return repeatKeys(whole, range, count, 0);
    return true;
}

qint64 keysWithin(const QVector<KeyedChannel> &channels, const VxTimeRange &range)
{
    qint64 count = 0;
    for (const KeyedChannel &channel : channels) {
        const int first = channel.holder->getFirstKeyFrom(range.getStart());
        const int last = channel.holder->getFirstKeyFrom(range.getEnd());
        count += last - first + (channel.holder->hasKey(range.getEnd()) ? 1 : 0);
    }
    return count;
}

QString refusedText(int refused)
{
    return refused == 0 ? QString() : StudioText::tr(" Locked channels: %1.").arg(refused);
}

/// The values that a node's keyed channels need at the end of a range to agree with its start.
struct EndValues
{
    PoseValues values;
    std::array<bool, PoseChannelCount> differs{};
};

EndValues endValues(const VxNode *node, const VxTimeRange &range)
{
    const NodeChannels channels(node);
    EndValues end;
    end.values = channels.values(range.getStart());
    const PoseValues present = channels.values(range.getEnd());
    bool hasAllAngles = true;
    for (std::size_t i = XAngle; i <= ZAngle; ++i) {
        const VxFloatProperty *control = channels.at(int(i));
        hasAllAngles = hasAllAngles && control && control->getNumKeys() > 0;
        end.values[i] += 360 * std::round((present[i] - end.values[i]) / 360);
    }
    // The other triple of a rotation needs all three channels.
    if (hasAllAngles) {
        const VxEuler angles =
            vxNearestEuler(anglesOf(end.values), anglesOf(present), orderOf(node));
        std::copy(angles.begin(), angles.end(), end.values.begin() + XAngle);
    }
    for (int i = 0; i < PoseChannelCount; ++i) {
        const VxFloatProperty *control = channels.at(i);
        const bool travels = isRoot(node) && (i == XPlace || i == ZPlace);
        end.differs[std::size_t(i)] =
            control && control->getNumKeys() > 0 && !travels &&
            std::abs(end.values[std::size_t(i)] - present[std::size_t(i)]) > SameValue;
    }
    return end;
}

} // namespace

PoseResult InBetween::breakdown(VxScene *scene, double part, Breakdown::Toward toward)
{
    const QVector<VxNode *> nodes = PoseCommands::selectedJoints(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    const Breakdown breakdown(nodes, scene->getTime(), toward);
    if (breakdown.isEmpty())
        return {false,
                StudioText::tr("The selected nodes have no keys before or after this frame.")};
    PoseWriter writer(scene->getTime(), scene->isAnimating());
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        breakdown.apply(part, &writer);
    }
    hold.accept(StudioText::tr("Breakdown"));
    return {true, StudioText::tr("Breakdown at %1 %. Nodes: %2.")
                          .arg(qRound(part * 100))
                          .arg(breakdown.numNodes()) +
                      writer.report()};
}

PoseResult InBetween::hold(VxScene *scene)
{
    const QVector<VxNode *> nodes = PoseCommands::selectedTrees(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    const VxTime time = scene->getTime();
    int held = 0;
    int refused = 0;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (const KeyedChannel &channel : keyedChannels(nodes)) {
            const int before = channel.holder->getFirstKeyFrom(time) - 1;
            if (before < 0)
                continue;
            auto *number = qobject_cast<VxFloatProperty *>(channel.holder);
            auto *whole = qobject_cast<VxIntProperty *>(channel.holder);
            const bool done = number ? holdKey(number, before, time)
                                     : whole && whole->setKey(time, whole->getKeyValue(before));
            ++(done ? held : refused);
        }
    }
    hold.accept(StudioText::tr("Hold"));
    if (held == 0)
        return {false,
                StudioText::tr("No channel to hold: there are no keys before the playhead.") +
                    refusedText(refused)};
    return {true,
            StudioText::tr("Held the pose on %n channels.", nullptr, held) + refusedText(refused)};
}

PoseResult InBetween::cycle(VxScene *scene, int count, bool withOffset)
{
    const QVector<VxNode *> nodes = PoseCommands::selectedTrees(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    const VxTimeRange range = scene->getPlayRange();
    if (count < 2 || count > MaxCycles)
        return {false, StudioText::tr("The number of cycles must be from 2 to %1.").arg(MaxCycles)};
    const qint64 end = range.getStart() + qint64(count) * periodOf(range);
    if (periodOf(range) < 1 || end > std::numeric_limits<VxTime>::max())
        return {false, StudioText::tr("The play range is too short or too long to be repeated.")};
    const QVector<KeyedChannel> channels = keyedChannels(nodes);
    const qint64 keys = keysWithin(channels, range);
    if (keys == 0)
        return {false, StudioText::tr("The selected nodes have no keys within the play range.")};
    if (keys * count > MaxCycleKeys)
        return {false,
                StudioText::tr("The cycles would make more than %1 keys.").arg(MaxCycleKeys)};
    const int differing = differingEnds(scene);
    int refused = 0;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (const KeyedChannel &channel : channels)
            refused += repeatChannel(channel, range, count, withOffset) ? 0 : 1;
    }
    const VxTimeRange animation = scene->getAnimRange();
    scene->setAnimRange({animation.getStart(), std::max(animation.getEnd(), VxTime(end))});
    scene->setPlayRange({range.getStart(), VxTime(end)});
    hold.accept(StudioText::tr("Cycle"));
    QString message = StudioText::tr("Repeated the play range: %n cycles.", nullptr, count);
    if (differing > 0)
        message +=
            StudioText::tr(" First and last pose differ in %n channels.", nullptr, differing);
    return {true, message + refusedText(refused)};
}

PoseResult InBetween::matchEnds(VxScene *scene)
{
    const QVector<VxNode *> nodes = PoseCommands::selectedTrees(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    const VxTimeRange range = scene->getPlayRange();
    PoseWriter writer(range.getEnd(), scene->isAnimating());
    int changed = 0;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (const VxNode *node : nodes) {
            const EndValues end = endValues(node, range);
            for (int i = 0; i < PoseChannelCount; ++i) {
                if (!end.differs[std::size_t(i)])
                    continue;
                writer.set(node, i, end.values[std::size_t(i)]);
                ++changed;
            }
        }
    }
    hold.accept(StudioText::tr("Match First and Last Pose"));
    if (changed == 0)
        return {false, StudioText::tr("First and last pose agree already.")};
    return {true, StudioText::tr("First and last pose agree now: %n channels changed.", nullptr,
                                 changed - writer.refused()) +
                      writer.report()};
}

int InBetween::differingEnds(const VxScene *scene)
{
    int count = 0;
    for (const VxNode *node : PoseCommands::selectedTrees(scene)) {
        const EndValues end = endValues(node, scene->getPlayRange());
        count += int(std::count(end.differs.begin(), end.differs.end(), true));
    }
    return count;
}
