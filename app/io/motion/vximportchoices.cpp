#include "io/motion/vximportchoices.h"

#include <algorithm>
#include <vxcore/vxelement.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

namespace {

VxTime nearestFrame(VxTime time, VxTime step)
{
    const qint64 half = time >= 0 ? step / 2 : -(step / 2);
    return VxTime((qint64(time) + half) / step * step);
}

void collect(const VxElement *element, std::vector<VxFloatProperty *> *properties)
{
    for (int i = 0; i < element->getNumProperties(); ++i) {
        auto *property = qobject_cast<VxFloatProperty *>(element->getProperty(i));
        if (property && property->getNumKeys() > 0)
            properties->push_back(property);
    }
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
        const bool isRotation = property == node->getXRotControl() ||
                                property == node->getYRotControl() ||
                                property == node->getZRotControl();
        (isRotation ? keyed->rotations : keyed->others).push_back(property);
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

/** Counts the resulting keys of one property. */
void count(const VxFloatProperty *property, const VxImportChoices &choices, VxTime step,
           VxImportNumbers *numbers)
{
    const VxTime *times = property->getKeyTimes();
    const int keys = property->getNumKeys();
    for (int i = 0; i < keys; ++i) {
        if (!choices.snapsToFrames) {
            numbers->offFrame += times[i] % step != 0 ? 1 : 0;
            ++numbers->keys;
            continue;
        }
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
