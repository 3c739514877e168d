#include "io/motion/vxmotionnodes.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxskeleton.h>

namespace {

QVector3D vector(const std::array<double, 3> &numbers)
{
    return {float(numbers[0]), float(numbers[1]), float(numbers[2])};
}

std::unique_ptr<VxNode> makeNode(const VxMotionNode &data)
{
    if (data.kind == VxMotionNode::Skeleton)
        return std::make_unique<VxSkeleton>(data.name);
    if (data.kind == VxMotionNode::Bone)
        return std::make_unique<VxBone>(data.name);
    return std::make_unique<VxNode>(data.name);
}

/** A bone's rest position is its origin, except on axes with a channel of absolute positions. */
void place(VxNode *node, const VxMotionNode &data, int index, const VxMotionChannels &channels)
{
    const auto store = [node](VxMotionTarget target, int axis, double value) {
        node->getTransformControl(int(target) + axis)->setStoredValue(float(value));
    };
    QVector3D origin;
    for (int axis = 0; axis < 3; ++axis) {
        const auto i = std::size_t(axis);
        const auto target = VxMotionTarget(int(VxMotionTarget::XTranslate) + axis);
        if (data.kind == VxMotionNode::Bone && !channels.drives(index, target))
            origin[axis] = float(data.translation[i]);
        else
            store(VxMotionTarget::XTranslate, axis, data.translation[i]);
        store(VxMotionTarget::XRotate, axis, data.rotation[i]);
        store(VxMotionTarget::XScale, axis, data.scale[i]);
    }
    node->setOrigin(origin);
    node->setRotationOrder(data.order);
    node->setVisible(data.visible);
}

void addMorphs(VxNode *node, const VxMotionNode &data)
{
    if (data.morphs.empty())
        return;
    auto *object = new VxObject(data.name);
    node->setObject(object);
    for (const VxMotionValue &morph : data.morphs) {
        auto *element =
            morph.path.isEmpty() ? new VxMorph(morph.name) : new VxMorph(morph.name, morph.path);
        object->addSubElement(element);
        element->getValueControl()->setStoredValue(float(morph.value));
    }
}

void addProperties(VxNode *node, const VxMotionNode &data)
{
    for (const VxMotionValue &value : data.properties) {
        QString name = value.name.isEmpty() ? QStringLiteral("Property") : value.name;
        for (int number = 2; node->findProperty(name); ++number)
            name = QStringLiteral("%1 %2").arg(value.name, QString::number(number));
        auto *property = new VxFloatProperty(name, float(value.value));
        node->addProperty(property, value.path.isEmpty() ? QStringLiteral("/Custom") : value.path);
    }
}

/// The ends of bones: those of the file, else the middle of their children.
void setEndPoints(const VxImportedMotion &motion, const std::vector<VxNode *> &nodes)
{
    VxChildMiddles middles(nodes.size());
    for (const VxMotionNode &node : motion.nodes)
        middles.add(node.parent, vector(node.translation));
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const VxMotionNode &data = motion.nodes[i];
        if (data.hasEndPoint)
            nodes[i]->setEndPoint(vector(data.endPoint));
        else if (data.kind == VxMotionNode::Bone && middles.has(i))
            nodes[i]->setEndPoint(middles.of(i));
    }
}

} // namespace

std::vector<std::unique_ptr<VxNode>> vxMakeNodes(const VxImportedMotion &motion,
                                                 const VxMotionChannels &channels,
                                                 std::vector<VxNode *> *nodes,
                                                 VxImportReport *report)
{
    std::vector<std::unique_ptr<VxNode>> roots;
    for (std::size_t i = 0; i < motion.nodes.size(); ++i) {
        const VxMotionNode &data = motion.nodes[i];
        std::unique_ptr<VxNode> made = makeNode(data);
        VxNode *node = made.get();
        nodes->push_back(node);
        place(node, data, int(i), channels);
        addMorphs(node, data);
        addProperties(node, data);
        report->bones += data.kind == VxMotionNode::Bone ? 1 : 0;
        report->morphs += int(data.morphs.size());
        report->properties += int(data.properties.size());
        if (data.parent < 0)
            roots.push_back(std::move(made));
        else
            (*nodes)[std::size_t(data.parent)]->addNodeChild(made.release());
    }
    report->nodes += int(nodes->size());
    setEndPoints(motion, *nodes);
    return roots;
}
