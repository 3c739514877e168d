#include "io/fbx/vxfbxstacks.h"

#include "io/vxfiletext.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

VxFbxTarget targetOf(const VxFbxObjects &objects, const VxFbxObjects::Link &link)
{
    VxFbxTarget target{link.object, VxFbxTarget::Other, link.property};
    const bool isModel = objects.kind(link.object) == "Model";
    if (isModel && link.property == "Lcl Translation")
        target.property = VxFbxTarget::Translation;
    else if (isModel && link.property == "Lcl Rotation")
        target.property = VxFbxTarget::Rotation;
    else if (isModel && link.property == "Lcl Scaling")
        target.property = VxFbxTarget::Scale;
    else if (objects.subclass(link.object) == "BlendShapeChannel" &&
             link.property == "DeformPercent")
        target.property = VxFbxTarget::Morph;
    if (target.property != VxFbxTarget::Other)
        target.name = {};
    return target;
}

// The component that a curve drives: "d|X", "d|Y", "d|Z", or any other name for the only one.
std::size_t componentOf(std::string_view property)
{
    if (property == "d|Y")
        return 1;
    return property == "d|Z" ? 2 : 0;
}

// The common data of everything that a curve node drives.
struct CurveNodeParts
{
    VxFbxCurveNode node; // values are NaN where there is none
    double morphPercent;
};

CurveNodeParts partsOf(const VxFbxObjects &objects, int object)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr const char *names[] = {"d|X", "d|Y", "d|Z"};
    CurveNodeParts parts;
    for (std::size_t i = 0; i < 3; ++i)
        parts.node.values[i] = objects.number(object, names[i], none);
    parts.morphPercent = objects.number(object, "d|DeformPercent", 0.0);
    for (const VxFbxObjects::Link &link : objects.sources(object)) {
        int &curve = parts.node.curves[componentOf(link.property)];
        if (!link.property.empty() && objects.kind(link.object) == "AnimationCurve" && curve == 0)
            curve = link.object;
    }
    return parts;
}

VxFbxCurveNode curveNodeFor(const VxFbxTarget &target, const CurveNodeParts &parts)
{
    VxFbxCurveNode node = parts.node;
    for (double &value : node.values) {
        if (std::isnan(value))
            value = target.property == VxFbxTarget::Scale ? 1.0 : 0.0;
    }
    if (target.property == VxFbxTarget::Morph)
        node.values[0] = parts.morphPercent;
    return node;
}

/// Reads the animations. A layer belongs to one of them, a curve node to one layer: the first.
class StackReader
{
public:
    explicit StackReader(const VxFbxObjects &objects)
        : m_objects(objects)
        , m_isUsed(static_cast<std::size_t>(objects.count()), 0)
    {
    }

    VxFbxStack read(int object, VxMotionFacts *facts);

private:
    bool use(const VxFbxObjects::Link &link, std::string_view kind);
    VxFbxLayer readLayer(int object);
    void readWeight(int object, VxFbxLayer *layer);
    void readCurveNode(int object, VxFbxLayer *layer);

    const VxFbxObjects &m_objects;
    std::vector<char> m_isUsed; // by object
};

// True at the first use of an object of that kind, connected to an object.
bool StackReader::use(const VxFbxObjects::Link &link, std::string_view kind)
{
    char &isUsed = m_isUsed[static_cast<std::size_t>(link.object)];
    if (isUsed || !link.property.empty() || m_objects.kind(link.object) != kind)
        return false;
    isUsed = 1;
    return true;
}

VxFbxStack StackReader::read(int object, VxMotionFacts *facts)
{
    VxFbxStack stack;
    stack.name = m_objects.name(object);
    stack.start = m_objects.integer(object, "LocalStart", 0);
    stack.end = m_objects.integer(object, "LocalStop", 0);
    for (const VxFbxObjects::Link &link : m_objects.sources(object)) {
        if (!use(link, "AnimationLayer"))
            continue;
        if (m_objects.integer(link.object, "Mute", 0) != 0)
            facts->addOmission(VxFileText::tr("animation layer"),
                               VxFileText::tr("It is muted in the file."),
                               m_objects.name(link.object));
        else
            stack.layers.push_back(readLayer(link.object));
    }
    return stack;
}

VxFbxLayer StackReader::readLayer(int object)
{
    VxFbxLayer layer;
    const qint64 blend = m_objects.integer(object, "BlendMode", VxFbxLayer::Additive);
    if (blend >= 0 && blend <= VxFbxLayer::Passthrough)
        layer.blend = static_cast<VxFbxLayer::Blend>(blend);
    layer.isPerChannel = m_objects.integer(object, "RotationAccumulationMode", 0) != 0;
    layer.addsScale = m_objects.integer(object, "ScaleAccumulationMode", 0) != 0;
    readWeight(object, &layer);
    for (const VxFbxObjects::Link &link : m_objects.sources(object)) {
        if (use(link, "AnimationCurveNode"))
            readCurveNode(link.object, &layer);
    }
    return layer;
}

void StackReader::readWeight(int object, VxFbxLayer *layer)
{
    layer->weight = std::clamp(m_objects.number(object, "Weight", 100.0) / 100.0, 0.0, 1.0);
    for (const VxFbxObjects::Link &link : m_objects.sources(object)) {
        if (link.property == "Weight" && m_objects.kind(link.object) == "AnimationCurveNode") {
            layer->weightCurve = partsOf(m_objects, link.object).node.curves[0];
            return;
        }
    }
}

void StackReader::readCurveNode(int object, VxFbxLayer *layer)
{
    const CurveNodeParts parts = partsOf(m_objects, object);
    for (const VxFbxObjects::Link &link : m_objects.targets(object)) {
        if (link.property.empty())
            continue;
        const VxFbxTarget target = targetOf(m_objects, link);
        layer->targets.emplace(target, curveNodeFor(target, parts));
    }
}

} // namespace

std::vector<VxFbxStack> vxFbxReadStacks(const VxFbxRecords &records, const VxFbxObjects &objects,
                                        VxMotionFacts *facts)
{
    std::vector<VxFbxStack> stacks;
    StackReader reader(objects);
    for (int i = 1; i < objects.count(); ++i) {
        if (objects.kind(i) == "AnimationStack")
            stacks.push_back(reader.read(i, facts));
    }
    const auto document = records.find({"Documents", "Document", "Properties70"});
    const QString active = records.text(vxFbxProperty(records, document, "ActiveAnimStackName"));
    const auto isActive = [&active](const VxFbxStack &stack) { return stack.name == active; };
    std::stable_partition(stacks.begin(), stacks.end(), isActive);
    return stacks;
}
