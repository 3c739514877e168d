#include "io/gltf/vxgltfnodes.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <cmath>
#include <vxcore/vxeuler.h>

namespace {

/// Reads exactly `count` numbers; false when the member is something else.
bool readNumbers(const QJsonObject &object, const char *name, double *numbers, int count)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (value.isUndefined())
        return true;
    const QJsonArray array = value.toArray();
    if (array.size() != count)
        return false;
    for (int i = 0; i < count; ++i) {
        if (!array.at(i).isDouble() || !std::isfinite(array.at(i).toDouble()))
            return false;
        numbers[i] = array.at(i).toDouble();
    }
    return true;
}

/// Splits a matrix of 4 x 4 numbers in column-major order into translation, rotation and scale. A
/// skewed matrix keeps its first axis.
void split(const double *m, VxMotionNode *node)
{
    double axis[3][3];
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row)
            axis[column][row] = m[column * 4 + row];
    }
    // Gram-Schmidt: removes from each axis its components along the earlier ones.
    for (int column = 0; column < 3; ++column) {
        for (int earlier = 0; earlier < column; ++earlier) {
            double along = 0.0;
            for (int row = 0; row < 3; ++row)
                along += axis[column][row] * axis[earlier][row];
            for (int row = 0; row < 3; ++row)
                axis[column][row] -= along * axis[earlier][row];
        }
        const double length = std::hypot(axis[column][0], axis[column][1], axis[column][2]);
        node->scale[std::size_t(column)] = length;
        for (double &part : axis[column])
            part = length > 0.0 ? part / length : 0.0;
    }
    const double determinant = axis[0][0] * (axis[1][1] * axis[2][2] - axis[1][2] * axis[2][1]) -
                               axis[0][1] * (axis[1][0] * axis[2][2] - axis[1][2] * axis[2][0]) +
                               axis[0][2] * (axis[1][0] * axis[2][1] - axis[1][1] * axis[2][0]);
    if (determinant < 0.0) {
        node->scale[2] = -node->scale[2];
        for (double &part : axis[2])
            part = -part;
    }
    VxRotation rotation;
    for (std::size_t column = 0; column < 3; ++column) {
        for (std::size_t row = 0; row < 3; ++row)
            rotation[row][column] = axis[column][row];
        node->translation[column] = m[12 + column];
    }
    // A singular matrix has no rotation.
    if (determinant != 0.0)
        node->rotation = vxEulerAngles(rotation, VxRotationOrder(node->order));
}

bool readTransform(const QJsonObject &object, VxMotionNode *node)
{
    double matrix[16];
    if (object.contains(QLatin1String("matrix"))) {
        if (!readNumbers(object, "matrix", matrix, 16))
            return false;
        split(matrix, node);
        return true;
    }
    double rotation[4] = {0.0, 0.0, 0.0, 1.0};
    if (!readNumbers(object, "translation", node->translation.data(), 3) ||
        !readNumbers(object, "rotation", rotation, 4) ||
        !readNumbers(object, "scale", node->scale.data(), 3))
        return false;
    const VxQuaternion quaternion{rotation[3], rotation[0], rotation[1], rotation[2]};
    node->rotation = vxEulerAngles(quaternion, VxRotationOrder(node->order));
    return true;
}

/// Extras of our own writer, which the format lacks: rotation order and end of a bone.
void readExtras(const QJsonObject &object, VxMotionNode *node)
{
    const QJsonObject extras = object.value(QLatin1String("extras")).toObject();
    const QString order = extras.value(QLatin1String("rotationOrder")).toString();
    for (int i = 0; i < 6; ++i) {
        if (order == QLatin1String(VxRotationOrderNames[i]))
            node->order = VxNode::RotationOrder(i);
    }
    node->hasEndPoint = extras.contains(QLatin1String("endPoint")) &&
                        readNumbers(extras, "endPoint", node->endPoint.data(), 3);
    if (!node->hasEndPoint)
        node->endPoint = {{0.0, 0.0, 0.0}};
}

/// The nodes of a file while they are sorted.
class NodeReader
{
public:
    NodeReader(VxGltfDocument *document, VxImportedMotion *motion, std::vector<int> *places)
        : m_document(document)
        , m_objects(document->array("nodes"))
        , m_meshes(document->array("meshes"))
        , m_motion(motion)
        , m_places(places)
        , m_parents(std::size_t(m_objects.size()), -1)
        , m_isJoint(std::size_t(m_objects.size()), false)
    {
    }

    bool read(QString *message);

private:
    bool readParents(QString *message);
    bool readJoints(QString *message);
    bool sort(QString *message);
    bool readNode(int index, QString *message);
    void readMorphs(const QJsonObject &object, VxMotionNode *node) const;
    void readBindMatrices(const QJsonObject &skin, int number);

    VxGltfDocument *const m_document;
    const QJsonArray m_objects;
    const QJsonArray m_meshes;
    VxImportedMotion *const m_motion;
    std::vector<int> *const m_places;
    std::vector<int> m_parents;
    std::vector<bool> m_isJoint;
    std::vector<int> m_order; // of the nodes, parents first
};

bool NodeReader::readParents(QString *message)
{
    for (int i = 0; i < m_objects.size(); ++i) {
        const QJsonArray children =
            m_objects.at(i).toObject().value(QLatin1String("children")).toArray();
        for (const QJsonValue &value : children) {
            const double child = value.toDouble(-1.0);
            if (!(child >= 0.0) || child >= m_objects.size() || child != std::floor(child))
                return vxFail(message,
                              VxFileText::tr("Node %1 has a child that does not exist.").arg(i));
            int &parent = m_parents[std::size_t(child)];
            if (parent >= 0)
                return vxFail(message, VxFileText::tr("Node %1 is a child of the nodes %2 and %3.")
                                           .arg(int(child))
                                           .arg(parent)
                                           .arg(i));
            parent = i;
        }
    }
    return true;
}

/** From the roots down, each node followed by its descendants. Unreached nodes form a cycle. */
bool NodeReader::sort(QString *message)
{
    m_places->assign(std::size_t(m_objects.size()), -1);
    std::vector<std::pair<int, int>> open; // node and depth
    for (int root = m_objects.size() - 1; root >= 0; --root) {
        if (m_parents[std::size_t(root)] < 0)
            open.push_back({root, 1});
    }
    while (!open.empty()) {
        const auto [node, depth] = open.back();
        open.pop_back();
        if (depth > VxMotionLimits::MaxDepth)
            return vxFail(message, VxFileText::tr("Node %1 has more than %2 ancestors.")
                                       .arg(node)
                                       .arg(VxMotionLimits::MaxDepth));
        (*m_places)[std::size_t(node)] = int(m_order.size());
        m_order.push_back(node);
        const QJsonArray children =
            m_objects.at(node).toObject().value(QLatin1String("children")).toArray();
        for (int i = children.size() - 1; i >= 0; --i)
            open.push_back({children.at(i).toInt(), depth + 1});
    }
    for (std::size_t i = 0; i < m_places->size(); ++i) {
        if ((*m_places)[i] < 0)
            return vxFail(message, VxFileText::tr("Node %1 is its own ancestor.").arg(i));
    }
    return true;
}

bool NodeReader::readJoints(QString *message)
{
    const QJsonArray skins = m_document->array("skins");
    for (int i = 0; i < skins.size(); ++i) {
        const QJsonObject skin = skins.at(i).toObject();
        const QJsonArray joints = skin.value(QLatin1String("joints")).toArray();
        for (const QJsonValue &value : joints) {
            const double joint = value.toDouble(-1.0);
            if (!(joint >= 0.0) || joint >= m_objects.size() || joint != std::floor(joint))
                return vxFail(message,
                              VxFileText::tr("Skin %1 has a joint that does not exist.").arg(i));
            m_isJoint[std::size_t(joint)] = true;
        }
        readBindMatrices(skin, i);
    }
    return true;
}

/** Bones are placed by their nodes. The matrices are only the bind pose of the mesh, which is left
 * out; invalid ones are noted. */
void NodeReader::readBindMatrices(const QJsonObject &skin, int number)
{
    if (!skin.contains(QLatin1String("inverseBindMatrices")))
        return;
    QString message;
    std::vector<double> matrices;
    const auto accessor = int(qMin<qint64>(vxGltfIndex(skin, "inverseBindMatrices"), INT_MAX));
    const int joints = skin.value(QLatin1String("joints")).toArray().size();
    int components = 0;
    if (!m_document->read(accessor, &matrices, &components, &message))
        m_motion->facts.notes.append(VxFileText::tr("The bind pose of skin %1 cannot be read. %2")
                                         .arg(QString::number(number), message));
    else if (components != 16 || int(matrices.size()) / components < joints)
        m_motion->facts.notes.append(VxFileText::tr("Skin %1 has %2 joints but %3 bind matrices.")
                                         .arg(QString::number(number), QString::number(joints),
                                              QString::number(int(matrices.size()) / components)));
}

void NodeReader::readMorphs(const QJsonObject &object, VxMotionNode *node) const
{
    const qint64 index = vxGltfIndex(object, "mesh");
    if (index < 0 || index >= m_meshes.size())
        return;
    const QJsonObject mesh = m_meshes.at(int(index)).toObject();
    const QJsonArray primitives = mesh.value(QLatin1String("primitives")).toArray();
    const int count = primitives.at(0).toObject().value(QLatin1String("targets")).toArray().size();
    const QJsonArray names = mesh.value(QLatin1String("extras"))
                                 .toObject()
                                 .value(QLatin1String("targetNames"))
                                 .toArray();
    const QJsonArray own = object.value(QLatin1String("weights")).toArray();
    const QJsonArray weights = own.isEmpty() ? mesh.value(QLatin1String("weights")).toArray() : own;
    for (int i = 0; i < count; ++i) {
        VxMotionValue morph;
        morph.name = names.at(i).toString();
        if (morph.name.isEmpty())
            morph.name = VxFileText::tr("Morph %1").arg(i + 1);
        morph.value = weights.at(i).toDouble();
        node->morphs.push_back(morph);
    }
}

bool NodeReader::readNode(int index, QString *message)
{
    const QJsonObject object = m_objects.at(index).toObject();
    VxMotionNode node;
    const int parent = m_parents[std::size_t(index)];
    node.name = object.value(QLatin1String("name")).toString();
    node.parent = parent < 0 ? -1 : (*m_places)[std::size_t(parent)];
    node.kind = m_isJoint[std::size_t(index)] ? VxMotionNode::Bone : VxMotionNode::Node;
    readExtras(object, &node);
    if (!readTransform(object, &node))
        return vxFail(message, VxFileText::tr(
                                   "The transform of node %1 (%2) has values that are not numbers.")
                                   .arg(QString::number(index), node.name));
    readMorphs(object, &node);
    m_motion->nodes.push_back(std::move(node));
    return true;
}

bool NodeReader::read(QString *message)
{
    if (m_objects.size() > VxMotionLimits::MaxNodes)
        return vxFail(message, VxFileText::tr("The file has %1 nodes; at most %2 are supported.")
                                   .arg(m_objects.size())
                                   .arg(VxMotionLimits::MaxNodes));
    if (!readParents(message) || !readJoints(message) || !sort(message))
        return false;
    for (const int index : m_order) {
        if (!readNode(index, message))
            return false;
    }
    return true;
}

} // namespace

bool vxReadGltfNodes(VxGltfDocument *document, VxImportedMotion *motion, std::vector<int> *places,
                     QString *message)
{
    return NodeReader(document, motion, places).read(message);
}
