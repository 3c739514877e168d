#include "io/fbx/vxfbxmodels.h"

#include "io/vxfiletext.h"

#include <algorithm>

namespace {

// The file names the axis applied first in first position, VxRotationOrder the leftmost factor.
VxNode::RotationOrder orderOf(qint64 fileOrder)
{
    constexpr VxNode::RotationOrder orders[] = {VxNode::ZYX, VxNode::YZX, VxNode::XZY,
                                                VxNode::ZXY, VxNode::YXZ, VxNode::XYZ};
    return fileOrder >= 0 && fileOrder < 6 ? orders[fileOrder] : VxNode::ZYX;
}

bool isZeroVector(const VxFbxModel::Vector &vector)
{
    return vector == VxFbxModel::Vector{};
}

/// Orders the models and reads them one by one.
class ModelReader
{
public:
    ModelReader(const VxFbxRecords &records, const VxFbxObjects &objects)
        : m_records(records)
        , m_objects(objects)
    {
    }

    bool read(std::vector<VxFbxModel> *models, VxFileError *error);
    void addNotes(VxMotionFacts *facts) const;

private:
    void findParents();
    bool visit(int root, VxFileError *error);
    bool append(int object, int parent, VxFileError *error);
    VxFbxModel modelOf(int object, int parent);
    VxMotionNode::Kind kindOf(int object) const;
    void readRotation(VxFbxModel *model);
    void addSkeleton();
    void markSkeletons();

    bool isModel(int object) const { return m_objects.kind(object) == "Model"; }

    const VxFbxRecords &m_records;
    const VxFbxObjects &m_objects;
    std::vector<int> m_parentOf;  // object to object; 0: the root
    std::vector<char> m_isPlaced; // by object
    std::vector<VxFbxModel> m_models;
    std::vector<int> m_depths; // one a model
    QString m_firstSpheric;
    QString m_firstGeometric;
    int m_geometric = 0;
    int m_spheric = 0;
    int m_skeleton = -1; // of bones without a parent node
};

bool ModelReader::read(std::vector<VxFbxModel> *models, VxFileError *error)
{
    const int count = m_objects.count();
    findParents();
    m_isPlaced.assign(static_cast<std::size_t>(count), 0);
    // Children of the root in the order of their connections, then those without a connection.
    for (const VxFbxObjects::Link &link : m_objects.sources(0)) {
        if (isModel(link.object) && !visit(link.object, error))
            return false;
    }
    for (int i = 1; i < count; ++i) {
        if (isModel(i) && m_parentOf[std::size_t(i)] == 0 && !visit(i, error))
            return false;
    }
    for (int i = 1; i < count; ++i) {
        if (isModel(i) && !m_isPlaced[std::size_t(i)])
            return m_records.failAt(error, m_objects.record(i),
                                    VxFileText::tr("The ancestors of the node \"%1\" form a cycle.")
                                        .arg(m_objects.name(i)));
    }
    markSkeletons();
    *models = std::move(m_models);
    return true;
}

// The first node or root above counts; later connections to others are instances.
void ModelReader::findParents()
{
    m_parentOf.assign(static_cast<std::size_t>(m_objects.count()), 0);
    for (int i = 1; i < m_objects.count(); ++i) {
        if (!isModel(i))
            continue;
        for (const VxFbxObjects::Link &link : m_objects.targets(i)) {
            if (!link.property.empty() || (link.object != 0 && !isModel(link.object)))
                continue;
            m_parentOf[std::size_t(i)] = link.object;
            break;
        }
    }
}

// Places a root and all nodes below it.
bool ModelReader::visit(int root, VxFileError *error)
{
    if (m_parentOf[std::size_t(root)] != 0 || m_isPlaced[std::size_t(root)])
        return true;
    if (m_skeleton < 0 && kindOf(root) == VxMotionNode::Bone)
        addSkeleton();
    const int above = kindOf(root) == VxMotionNode::Bone ? m_skeleton : -1;
    std::vector<std::pair<int, int>> open{{root, above}}; // object, parent model
    while (!open.empty()) {
        const auto [object, parent] = open.back();
        open.pop_back();
        if (m_isPlaced[std::size_t(object)])
            continue;
        if (!append(object, parent, error))
            return false;
        const int index = static_cast<int>(m_models.size()) - 1;
        const VxFbxObjects::Links sources = m_objects.sources(object);
        for (const auto *link = sources.last; link != sources.first;) {
            --link;
            if (isModel(link->object) && m_parentOf[std::size_t(link->object)] == object)
                open.push_back({link->object, index});
        }
    }
    return true;
}

// Topmost bones of the file get a common root, which the file lacks.
void ModelReader::addSkeleton()
{
    VxFbxModel skeleton;
    skeleton.name = VxFileText::tr("Skeleton");
    skeleton.kind = VxMotionNode::Skeleton;
    skeleton.inherit = VxFbxModel::BeforeRotation;
    m_skeleton = static_cast<int>(m_models.size());
    m_models.push_back(skeleton);
    m_depths.push_back(1);
}

bool ModelReader::append(int object, int parent, VxFileError *error)
{
    const int depth = parent < 0 ? 1 : m_depths[std::size_t(parent)] + 1;
    QString message;
    if (depth > VxMotionLimits::MaxDepth)
        message =
            VxFileText::tr("The hierarchy has more than %1 levels.").arg(VxMotionLimits::MaxDepth);
    else if (m_models.size() >= std::size_t(VxMotionLimits::MaxNodes))
        message = VxFileText::tr("The file has more than %1 nodes.").arg(VxMotionLimits::MaxNodes);
    if (!message.isEmpty())
        return m_records.failAt(error, m_objects.record(object), message);
    m_isPlaced[std::size_t(object)] = 1;
    m_models.push_back(modelOf(object, parent));
    m_depths.push_back(depth);
    return true;
}

VxFbxModel ModelReader::modelOf(int object, int parent)
{
    const VxFbxModel::Vector zero{};
    const VxFbxModel::Vector one{{1.0, 1.0, 1.0}};
    VxFbxModel model;
    model.object = object;
    model.parent = parent;
    model.name = m_objects.name(object);
    model.kind = kindOf(object);
    model.translation = m_objects.vector(object, "Lcl Translation", zero);
    model.rotation = m_objects.vector(object, "Lcl Rotation", zero);
    model.scale = m_objects.vector(object, "Lcl Scaling", one);
    model.rotationOffset = m_objects.vector(object, "RotationOffset", zero);
    model.rotationPivot = m_objects.vector(object, "RotationPivot", zero);
    model.scalingOffset = m_objects.vector(object, "ScalingOffset", zero);
    model.scalingPivot = m_objects.vector(object, "ScalingPivot", zero);
    const qint64 inherit = m_objects.integer(object, "InheritType", VxFbxModel::BeforeRotation);
    if (inherit >= 0 && inherit <= VxFbxModel::Compensated)
        model.inherit = static_cast<VxFbxModel::Inherit>(inherit);
    model.isVisible = m_objects.number(object, "Visibility", 1.0) != 0.0 &&
                      m_objects.number(object, "Show", 1.0) != 0.0;
    readRotation(&model);
    const bool hasGeometric =
        !isZeroVector(m_objects.vector(object, "GeometricTranslation", zero)) ||
        !isZeroVector(m_objects.vector(object, "GeometricRotation", zero)) ||
        m_objects.vector(object, "GeometricScaling", one) != one;
    if (hasGeometric && m_geometric++ == 0)
        m_firstGeometric = model.name;
    return model;
}

void ModelReader::readRotation(VxFbxModel *model)
{
    const bool isActive = m_objects.integer(model->object, "RotationActive", 1) != 0 &&
                          m_objects.integer(model->object, "RotationSpaceForLimitOnly", 0) == 0;
    if (!isActive)
        return;
    model->preRotation = m_objects.vector(model->object, "PreRotation", {});
    model->postRotation = m_objects.vector(model->object, "PostRotation", {});
    const qint64 order = m_objects.integer(model->object, "RotationOrder", 0);
    model->order = orderOf(order);
    if ((order < 0 || order > 5) && m_spheric++ == 0)
        m_firstSpheric = model->name;
}

VxMotionNode::Kind ModelReader::kindOf(int object) const
{
    const std::string_view subclass = m_objects.subclass(object);
    if (subclass == "LimbNode" || subclass == "Limb")
        return VxMotionNode::Bone;
    return subclass == "Root" ? VxMotionNode::Skeleton : VxMotionNode::Node;
}

// The node right above a topmost bone is the root of that figure.
void ModelReader::markSkeletons()
{
    std::vector<char> isInFigure(m_models.size(), 0);
    for (std::size_t i = 0; i < m_models.size(); ++i) {
        const VxFbxModel &model = m_models[i];
        const bool hasFigureAbove = model.parent >= 0 && isInFigure[std::size_t(model.parent)];
        if (model.kind == VxMotionNode::Bone && !hasFigureAbove && model.parent >= 0) {
            m_models[std::size_t(model.parent)].kind = VxMotionNode::Skeleton;
            isInFigure[std::size_t(model.parent)] = 1;
        }
        isInFigure[i] = hasFigureAbove || model.kind != VxMotionNode::Node;
    }
}

void ModelReader::addNotes(VxMotionFacts *facts) const
{
    if (m_spheric > 0)
        facts->notes.append(
            VxFileText::tr("Nodes with a spheric or unknown rotation order, which rotate about "
                           "X, Y and Z instead: %1. The first is \"%2\".")
                .arg(QString::number(m_spheric), m_firstSpheric));
    if (m_geometric > 0)
        facts->notes.append(
            VxFileText::tr("Nodes with a geometric transform, which places their mesh only and "
                           "was left out: %1. The first is \"%2\".")
                .arg(QString::number(m_geometric), m_firstGeometric));
}

} // namespace

bool vxFbxReadModels(const VxFbxRecords &records, const VxFbxObjects &objects,
                     std::vector<VxFbxModel> *models, VxMotionFacts *facts, VxFileError *error)
{
    ModelReader reader(records, objects);
    if (!reader.read(models, error))
        return false;
    reader.addNotes(facts);
    return true;
}
