#include "io/csv/vxcsvmotion.h"

#include "io/vxfiletext.h"

#include <algorithm>

using namespace VxCsvNames;

VxCsvMotion::VxCsvMotion(const VxCsvRows &rows)
    : m_rows(rows)
{
}

int VxCsvMotion::node(const QString &text, int column)
{
    const auto found = m_nodeOf.constFind(text);
    if (found != m_nodeOf.constEnd())
        return *found;
    VxMotionNode node;
    const int number = int(m_nodes.size());
    if (!unescape(text, &node.name))
        fail(column, VxFileText::tr("A \"\\\" in a name must be followed by \"\\\" or a number."));
    else if (number >= VxMotionLimits::MaxNodes)
        fail(column, VxFileText::tr("There are more than %1 nodes.").arg(VxMotionLimits::MaxNodes));
    if (m_rows.hasFailed())
        return -1;
    m_nodeOf.insert(text, number);
    m_nodes.push_back(std::move(node));
    m_declared.push_back({});
    return number;
}

bool VxCsvMotion::setParent(int node, const QString &text, int column)
{
    if (text.isEmpty())
        return true;
    const int parent = m_nodeOf.value(text, node);
    VxMotionNode &data = m_nodes[std::size_t(node)];
    if (parent >= node)
        return fail(
            column,
            VxFileText::tr("The parent \"%1\" does not occur before the node.").arg(text.left(40)));
    if (data.parent >= 0 && data.parent != parent)
        return fail(column, VxFileText::tr("The node has another parent already."));
    data.parent = parent;
    return true;
}

bool VxCsvMotion::setKind(int node, const QString &text, int column)
{
    if (text.isEmpty())
        return true;
    VxMotionNode::Kind kind = VxMotionNode::Node;
    if (!kindOf(text, &kind))
        return fail(column, VxFileText::tr("Unknown kind \"%1\". Supported: node, figure, bone.")
                                .arg(text.left(40)));
    Declared &declared = m_declared[std::size_t(node)];
    VxMotionNode &data = m_nodes[std::size_t(node)];
    if (declared.hasKind && data.kind != kind)
        return fail(column, VxFileText::tr("The kind of the node was %1 in an earlier row.")
                                .arg(kindName(data.kind)));
    declared.hasKind = true;
    data.kind = kind;
    return true;
}

bool VxCsvMotion::setOrder(int node, const QString &text, int column)
{
    if (text.isEmpty())
        return true;
    VxNode::RotationOrder order = VxNode::XYZ;
    if (!orderOf(text, &order))
        return fail(column,
                    VxFileText::tr("Unknown rotation order \"%1\". Expected one such as XYZ.")
                        .arg(text.left(40)));
    Declared &declared = m_declared[std::size_t(node)];
    VxMotionNode &data = m_nodes[std::size_t(node)];
    if (declared.hasOrder && data.order != order)
        return fail(column,
                    VxFileText::tr("The rotation order of the node was %1 in an earlier row.")
                        .arg(orderName(data.order)));
    declared.hasOrder = true;
    data.order = order;
    return true;
}

int VxCsvMotion::property(int node, const QString &text, int column)
{
    const Property meaning = propertyOf(text);
    const bool isNamed = meaning.kind == Property::Morph || meaning.kind == Property::Further;
    const QPair<int, QString> key(node, isNamed ? text : text.toLower());
    const auto found = m_propertyOf.constFind(key);
    if (found != m_propertyOf.constEnd())
        return *found;
    if (meaning.kind == Property::Invalid) {
        fail(column, VxFileText::tr("Unknown property \"%1\".").arg(text.left(40)));
        return -1;
    }
    Curve curve;
    curve.node = node;
    curve.property = meaning;
    VxMotionNode &data = m_nodes[std::size_t(node)];
    if (isNamed) {
        std::vector<VxMotionValue> &values =
            meaning.kind == Property::Morph ? data.morphs : data.properties;
        curve.index = int(values.size());
        values.push_back({curve.property.name, 0.0, curve.property.group});
    }
    const int number = int(m_curves.size());
    m_propertyOf.insert(key, number);
    m_curves.push_back(std::move(curve));
    return number;
}

bool VxCsvMotion::setValue(int property, double value, int column)
{
    Curve &curve = m_curves[std::size_t(property)];
    if (curve.hasValue || !curve.keys.isEmpty())
        return fail(column, VxFileText::tr("The property has a value or a key already."));
    curve.hasValue = true;
    curve.value = value;
    return true;
}

bool VxCsvMotion::addKey(int property, double time, double value, const VxMotionShape &shape,
                         int timeColumn)
{
    Curve &curve = m_curves[std::size_t(property)];
    if (curve.property.kind == Property::End || curve.property.kind == Property::Visible) {
        if (curve.hasValue && curve.value != value)
            return fail(timeColumn, curve.property.kind == Property::End
                                        ? VxFileText::tr("The end of a bone cannot be animated.")
                                        : VxFileText::tr("The visibility cannot be animated."));
        curve.hasValue = true;
        curve.value = value;
        return true;
    }
    if (curve.hasValue)
        return fail(timeColumn, VxFileText::tr("The property has a value without a time already."));
    if (!curve.keys.isEmpty() && time <= curve.keys.times.back())
        return fail(timeColumn, VxFileText::tr("The times of a property's keys must ascend."));
    if (++m_numKeys > VxMotionLimits::MaxKeys)
        return fail(timeColumn,
                    VxFileText::tr("There are more than %1 keys.").arg(VxMotionLimits::MaxKeys));
    const bool isPlain = shape.segment == VxMotionSegment::Linear && shape.tcb == VxTcb();
    if (!isPlain && !curve.isShaped) {
        curve.isShaped = true;
        curve.keys.shapes.resize(curve.keys.times.size());
    }
    curve.keys.times.push_back(time);
    curve.keys.values.push_back(value);
    if (curve.isShaped)
        curve.keys.shapes.push_back(shape);
    return true;
}

void VxCsvMotion::dropConstantKeys()
{
    for (Curve &curve : m_curves) {
        const std::vector<double> &values = curve.keys.values;
        const auto differs = [&values](double value) { return value != values.front(); };
        if (values.empty() || std::any_of(values.begin(), values.end(), differs))
            continue;
        curve.hasValue = true;
        curve.value = values.front();
        curve.keys = VxMotionCurve();
    }
}

void VxCsvMotion::setRest(const Curve &curve)
{
    VxMotionNode &data = m_nodes[std::size_t(curve.node)];
    const auto index = std::size_t(curve.index);
    if (curve.property.kind == Property::End) {
        data.hasEndPoint = true;
        data.endPoint[std::size_t(curve.property.axis)] = curve.value;
    } else if (curve.property.kind == Property::Visible) {
        data.visible = curve.value != 0.0;
    } else if (curve.property.kind == Property::Morph) {
        data.morphs[index].value = curve.value;
    } else if (curve.property.kind == Property::Further) {
        data.properties[index].value = curve.value;
    } else {
        const auto target = std::size_t(curve.property.target);
        constexpr auto Rotations = std::size_t(VxMotionTarget::XRotate);
        constexpr auto Scales = std::size_t(VxMotionTarget::XScale);
        if (target < Rotations)
            data.translation[target] = curve.value;
        else if (curve.property.target < VxMotionTarget::Scale)
            data.rotation[target - Rotations] = curve.value;
        else if (target >= Scales)
            data.scale[target - Scales] = curve.value;
    }
}

void VxCsvMotion::finish(const QString &form, VxImportedMotion *motion)
{
    VxMotionClip clip;
    clip.name = VxFileText::tr("Motion");
    for (Curve &curve : m_curves) {
        VxMotionChannel channel;
        channel.node = curve.node;
        channel.index = curve.index;
        channel.target = curve.property.kind == Property::Morph     ? VxMotionTarget::Morph
                         : curve.property.kind == Property::Further ? VxMotionTarget::Property
                                                                    : curve.property.target;
        if (curve.hasValue && channel.target == VxMotionTarget::Scale) {
            // A node's rest has no uniform scale: it is written as one key.
            curve.keys.times = {0.0};
            curve.keys.values = {curve.value};
        } else if (curve.hasValue) {
            setRest(curve);
        }
        channel.curve = std::move(curve.keys);
        if (!channel.curve.isEmpty())
            clip.channels.push_back(std::move(channel));
    }
    VxImportedMotion whole;
    whole.nodes = std::move(m_nodes);
    if (!clip.channels.empty())
        whole.clips.push_back(std::move(clip));
    whole.facts.format = form;
    *motion = std::move(whole);
}
