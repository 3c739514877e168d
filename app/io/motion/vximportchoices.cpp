#include "io/motion/vximportchoices.h"

#include <algorithm>
#include <vxcore/vxelement.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

namespace {

constexpr int FirstRotation = 3; // of the transform controls

VxTime nearestFrame(VxTime time, VxTime step)
{
    const qint64 half = time >= 0 ? step / 2 : -(step / 2);
    return VxTime((qint64(time) + half) / step * step);
}

void collect(const VxElement *element, std::vector<VxFloatProperty *> *properties)
{
    for (VxProperty *made : element->getMadeProperties()) {
        auto *property = qobject_cast<VxFloatProperty *>(made);
        if (property && property->getNumKeys() > 0)
            properties->push_back(property);
    }
}

/** By name: the node's getter would make a control that does not exist yet. */
bool isRotation(const VxFloatProperty *property)
{
    const int control = qobject_cast<VxNode *>(property->getOwner())
                            ? VxNode::getTransformControlIndex(property->getName())
                            : -1;
    return control >= FirstRotation && control < FirstRotation + 3;
}

/// The keyed properties of all nodes and their morphs, with whether each is a rotation.
struct Keyed
{
    std::vector<VxFloatProperty *> rotations;
    std::vector<VxFloatProperty *> others;
};

void collect(const VxNode *node, Keyed *keyed)
{
    std::vector<VxFloatProperty *> properties;
    collect(node, &properties);
    if (const VxObject *object = node->getObject()) {
        collect(object, &properties);
        for (int i = 0; i < object->getNumSubElements(); ++i)
            collect(object->getSubElement(i), &properties);
    }
    for (VxFloatProperty *property : properties) {
        (isRotation(property) ? keyed->rotations : keyed->others).push_back(property);
    }
}

Keyed keyedProperties(const VxSceneContents &contents)
{
    Keyed keyed;
    for (const auto &root : contents.rootNodes) {
        QVector<VxNode *> nodes{root.get()};
        root->getNodeChildren(nodes, true);
        for (const VxNode *node : qAsConst(nodes))
            collect(node, &keyed);
    }
    return keyed;
}

int offFrameKeys(const VxTime *times, int count, VxTime step)
{
    int offFrame = 0;
    VxTime lastFrame = 0;
    for (int i = 0; i < count; ++i) {
        // Most motions have a key at each frame, which needs no division.
        const bool isOnFrame = qint64(times[i]) - step == lastFrame || times[i] % step == 0;
        lastFrame = isOnFrame ? times[i] : lastFrame;
        offFrame += isOnFrame ? 0 : 1;
    }
    return offFrame;
}

/** Counts the resulting keys of one property. */
void count(const VxFloatProperty *property, const VxImportChoices &choices, VxTime step,
           VxImportNumbers *numbers)
{
    const VxTime *times = property->getKeyTimes();
    const int keys = property->getNumKeys();
    if (!choices.snapsToFrames) {
        numbers->keys += keys;
        numbers->offFrame += offFrameKeys(times, keys, step);
        return;
    }
    for (int i = 0; i < keys; ++i) {
        const VxTime frame = nearestFrame(times[i], step);
        numbers->largestMove = std::max(numbers->largestMove, std::abs(frame - times[i]));
        if (i + 1 < keys && nearestFrame(times[i + 1], step) == frame)
            ++numbers->merged;
        else
            ++numbers->keys;
    }
}

void snap(VxFloatProperty *property, VxTime step)
{
    const VxKeyColumns<float> keys = property->getKeys();
    VxKeyArrays<float> snapped;
    for (int i = 0; i < keys.count; ++i) {
        const VxTime frame = nearestFrame(keys.times[i], step);
        if (i + 1 < keys.count && nearestFrame(keys.times[i + 1], step) == frame)
            continue;
        snapped.times.push_back(frame);
        snapped.values.push_back(keys.values[i]);
        snapped.types.push_back(keys.types ? keys.types[i] : quint8(VxKeyInterp::Linear));
        snapped.tcb.push_back(keys.tcb ? keys.tcb[i] : VxTcb());
    }
    const bool hasTcb = std::any_of(snapped.tcb.begin(), snapped.tcb.end(),
                                    [](const VxTcb &t) { return t != VxTcb(); });
    if (!hasTcb)
        snapped.tcb.clear();
    property->replaceKeys(VxTimeRange::all(), snapped);
}

} // namespace

VxImportNumbers vxCountKeys(const VxSceneContents &contents, const VxImportChoices &choices,
                            VxTime step)
{
    VxImportNumbers numbers;
    const Keyed keyed = keyedProperties(contents);
    for (const VxFloatProperty *property : keyed.rotations)
        count(property, choices, step, &numbers);
    for (const VxFloatProperty *property : keyed.others) {
        if (choices.rotationsOnly)
            numbers.leftOut += property->getNumKeys();
        else
            count(property, choices, step, &numbers);
    }
    return numbers;
}

void vxApplyChoices(const VxImportChoices &choices, VxTime step, VxSceneContents *contents)
{
    const Keyed keyed = keyedProperties(*contents);
    for (VxFloatProperty *property : keyed.others) {
        if (!choices.rotationsOnly)
            continue;
        const float first = property->getKeyValue(0);
        property->deleteAllKeys();
        property->setStoredValue(first);
    }
    if (!choices.snapsToFrames)
        return;
    for (VxFloatProperty *property : keyed.rotations)
        snap(property, step);
    for (VxFloatProperty *property : keyed.others) {
        if (property->getNumKeys() > 0)
            snap(property, step);
    }
}
