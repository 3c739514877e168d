#include "io/vxscenewriter.h"

#include "io/vxfiletext.h"
#include "io/vxkeptmembers.h"
#include "io/vxscenecamera.h"
#include "io/vxscenefile.h"

#include <QCborStreamWriter>
#include <QHash>
#include <QVector3D>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxsafefile.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

/// Writes the scene in one pass. Properties are numbered beforehand, since a reference may point to
/// a later one.
class SceneStream
{
public:
    SceneStream(const VxScene *scene, QIODevice *device)
        : m_scene(scene)
        , m_out(device)
    {
    }

    /// Nodes, parents first. False when cancelled by the progress callback.
    bool write(const QVector<VxNode *> &nodes, const VxFileProgress &progress);
    /// A reference to a property that is not written.
    bool hasOuterReference() const { return m_hasOuterReference; }
    /// The location of a number that no reader accepts; empty when there is none.
    const QString &unreadable() const { return m_unreadable; }

private:
    void countProperties(VxElement *element);
    QHash<const VxNode *, int> countNodes(const QVector<VxNode *> &nodes);
    void writeHeader();
    void writeCamera(const VxCameraState &camera);
    void writeMarkers(const VxMarkerList &markers);
    void writeTimeDisplay(const VxTimeDisplay &display);
    void writeNode(VxNode *node, int parent);
    void writeElement(VxElement *element);
    void writeObject(VxObject *object);
    void writeProperty(VxProperty *property);
    void writeTraits(VxProperty *property);
    void writeFloat(VxFloatProperty *property);
    void writeInt(VxIntProperty *property);
    void writeReferences(VxProperty *property);
    template <class V> void writeKeyArrays(const VxKeyColumns<V> &keys);

    void key(const char *name) { m_out.append(QLatin1String(name)); }
    void text(const char *name, const QString &value);
    void flag(const char *name, bool value, bool usual);
    void integer(const char *name, qint64 value);
    void integers(const char *name, qint64 first, qint64 second);
    void range(const char *name, const VxTimeRange &value);
    template <class Number> void append(const char *name, Number value);
    template <class Number> void number(const char *name, Number value);
    template <std::size_t Count>
    void numbers(const char *name, const std::array<float, Count> &values);
    void vector(const char *name, const QVector3D &value);
    void array(const char *name, quint64 tag, const void *data, qint64 bytes);
    void kept(const QObject *owner);

    const VxScene *m_scene; // null for nodes alone
    QCborStreamWriter m_out;
    QHash<const VxProperty *, int> m_numbers;
    const QObject *m_present = nullptr; // the node or property that is being written
    QString m_unreadable;
    bool m_hasOuterReference = false;
};

void SceneStream::text(const char *name, const QString &value)
{
    key(name);
    m_out.append(value);
}

void SceneStream::flag(const char *name, bool value, bool usual)
{
    if (value == usual)
        return;
    key(name);
    m_out.append(value);
}

void SceneStream::integer(const char *name, qint64 value)
{
    key(name);
    m_out.append(value);
}

void SceneStream::integers(const char *name, qint64 first, qint64 second)
{
    key(name);
    m_out.startArray(2);
    m_out.append(first);
    m_out.append(second);
    m_out.endArray();
}

void SceneStream::range(const char *name, const VxTimeRange &value)
{
    integers(name, value.getStart(), value.getEnd());
}

void SceneStream::vector(const char *name, const QVector3D &value)
{
    if (!value.isNull())
        numbers<3>(name, {value.x(), value.y(), value.z()});
}

template <std::size_t Count>
void SceneStream::numbers(const char *name, const std::array<float, Count> &values)
{
    key(name);
    m_out.startArray(values.size());
    for (const float value : values)
        append(name, value);
    m_out.endArray();
}

template <class Number> void SceneStream::number(const char *name, Number value)
{
    key(name);
    append(name, value);
}

template <class Number> void SceneStream::append(const char *name, Number value)
{
    if (!std::isfinite(value) && m_unreadable.isEmpty())
        m_unreadable = VxFileText::tr("%1 of \"%2\"", "a number of a property")
                           .arg(QLatin1String(name), m_present->objectName());
    m_out.append(value);
}

void SceneStream::array(const char *name, quint64 tag, const void *data, qint64 bytes)
{
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the arrays are written as they are in memory");
    key(name);
    m_out.append(QCborTag(tag));
    m_out.appendByteString(static_cast<const char *>(data), bytes);
}

void SceneStream::countProperties(VxElement *element)
{
    for (const VxProperty *property : element->getMadeProperties())
        m_numbers.insert(property, m_numbers.size());
}

void SceneStream::writeHeader()
{
    integer("ticksPerSecond", VxTicksPerSecond);
    integer("time", m_scene->getTime());
    integer("timeStep", m_scene->getTimeStep());
    range("playRange", m_scene->getPlayRange());
    range("animRange", m_scene->getAnimRange());
    const char *const viewNames[] = {"view1", "view2", "view3"};
    const VxSceneViews::Views views = VxSceneViews::viewsOf(m_scene);
    for (size_t i = 0; i < views.size(); ++i) {
        if (views[i])
            range(viewNames[i], *views[i]);
    }
    flag("looping", m_scene->isLoopingEnabled(), false);
    flag("animating", m_scene->isAnimating(), true);
    if (const auto camera = VxSceneCamera::stateOf(m_scene))
        writeCamera(*camera);
    writeMarkers(VxMarkers::listOf(m_scene));
    writeTimeDisplay(VxSceneTimeDisplay::displayOf(m_scene));
}

/** The initial one is left out. */
void SceneStream::writeTimeDisplay(const VxTimeDisplay &display)
{
    if (display == VxTimeDisplay())
        return;
    key("timeDisplay");
    m_out.startMap();
    text("unit", QLatin1String(VxSceneFile::TimeUnits[display.unit]));
    if (display.rate.isValid())
        integers("rate", display.rate.frames, display.rate.seconds);
    flag("dropFrame", display.dropsFrames, true);
    m_out.endMap();
}

/** Without markers the member is left out. The end of a point is left out. */
void SceneStream::writeMarkers(const VxMarkerList &markers)
{
    if (markers.isEmpty())
        return;
    key("markers");
    m_out.startArray(quint64(markers.size()));
    for (const VxMarker &marker : markers) {
        m_out.startMap();
        text("name", marker.name);
        integer("start", marker.span.getStart());
        if (!marker.isPoint())
            integer("end", marker.span.getEnd());
        integer("color", marker.color & 0xffffff);
        m_out.endMap();
    }
    m_out.endArray();
}

void SceneStream::writeCamera(const VxCameraState &camera)
{
    m_present = m_scene;
    key("camera");
    m_out.startMap();
    numbers<3>("target", {camera.target.x(), camera.target.y(), camera.target.z()});
    number("distance", camera.distance);
    number("yaw", camera.yaw);
    number("pitch", camera.pitch);
    number("fieldOfView", camera.fieldOfView);
    flag("orthographic", camera.orthographic, false);
    m_out.endMap();
}

QHash<const VxNode *, int> SceneStream::countNodes(const QVector<VxNode *> &nodes)
{
    QHash<const VxNode *, int> places;
    for (VxNode *node : nodes) {
        places.insert(node, places.size());
        countProperties(node);
        if (VxObject *object = node->getObject()) {
            countProperties(object);
            for (int i = 0; i < object->getNumSubElements(); ++i)
                countProperties(object->getSubElement(i));
        }
    }
    return places;
}

bool SceneStream::write(const QVector<VxNode *> &nodes, const VxFileProgress &progress)
{
    const QHash<const VxNode *, int> places = countNodes(nodes);
    m_out.startMap();
    text("format", QLatin1String(VxSceneFile::Format));
    integer("version", VxSceneFile::Version);
    if (m_scene)
        writeHeader();
    integer("numProperties", m_numbers.size());
    key("nodes");
    m_out.startArray(quint64(nodes.size()));
    for (int i = 0; i < nodes.size(); ++i) {
        if (progress && !progress(int(qint64(i) * 100 / nodes.size())))
            return false;
        writeNode(nodes.at(i), places.value(nodes.at(i)->getNodeParent(), -1));
    }
    m_out.endArray();
    if (m_scene)
        kept(m_scene);
    m_out.endMap();
    return true;
}

void SceneStream::writeNode(VxNode *node, int parent)
{
    const char *kind = qobject_cast<VxSkeleton *>(node) ? "skeleton"
                       : qobject_cast<VxBone *>(node)   ? "bone"
                                                        : "node";
    m_present = node;
    m_out.startMap();
    text("kind", QLatin1String(kind));
    text("name", node->getName());
    integer("id", qint64(node->getId()));
    integer("parent", parent);
    flag("visible", node->isVisible(), true);
    flag("selectable", node->isSelectable(), true);
    flag("ik", node->isIkNode(), false);
    flag("pinned", node->isPinned(), false);
    integer("rotationOrder", node->getRotationOrder());
    vector("origin", node->getOrigin());
    vector("endPoint", node->getEndPoint());
    if (const auto &rest = node->getRestPose())
        numbers("restPose", *rest);
    writeElement(node);
    if (VxObject *object = node->getObject()) {
        key("object");
        writeObject(object);
    }
    kept(node);
    m_out.endMap();
}

void SceneStream::writeObject(VxObject *object)
{
    m_out.startMap();
    text("name", object->getName());
    writeElement(object);
    key("subElements");
    m_out.startArray(quint64(object->getNumSubElements()));
    for (int i = 0; i < object->getNumSubElements(); ++i) {
        VxElement *element = object->getSubElement(i);
        m_out.startMap();
        text("kind", qobject_cast<VxMorph *>(element) ? QStringLiteral("morph")
                                                      : QStringLiteral("element"));
        text("name", element->getName());
        writeElement(element);
        kept(element);
        m_out.endMap();
    }
    m_out.endArray();
    kept(object);
    m_out.endMap();
}

void SceneStream::writeElement(VxElement *element)
{
    if (element->getLabel() != element->getName())
        text("label", element->getLabel());
    key("properties");
    const QVector<VxProperty *> properties = element->getMadeProperties();
    m_out.startArray(quint64(properties.size()));
    for (VxProperty *property : properties)
        writeProperty(property);
    m_out.endArray();
}

void SceneStream::writeProperty(VxProperty *property)
{
    m_present = property;
    m_out.startMap();
    text("name", property->getName());
    writeTraits(property);
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        writeFloat(number);
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        writeInt(whole);
    else if (auto *string = qobject_cast<VxStringProperty *>(property))
        text("value", vxOwnText(string));
    writeReferences(property);
    kept(property);
    m_out.endMap();
}

void SceneStream::writeTraits(VxProperty *property)
{
    const char *kind = qobject_cast<VxFloatProperty *>(property)  ? "float"
                       : qobject_cast<VxBoolProperty *>(property) ? "bool"
                       : qobject_cast<VxIntProperty *>(property)  ? "int"
                                                                  : "string";
    text("kind", QLatin1String(kind));
    if (property->getLabel() != property->getName())
        text("label", property->getLabel());
    text("path", property->getPath());
    flag("hidden", property->isHidden(), false);
    flag("dynamicallyHidden", property->isDynamicallyHidden(), false);
    flag("locked", property->isLocked(), false);
    flag("animatable", property->isAnimatable(), true);
    flag("excluded", property->isExcluded(), false);
    if (auto *number = qobject_cast<VxNumericProperty *>(property))
        flag("percentage", number->isPercentage(), false);
}

template <class V> void SceneStream::writeKeyArrays(const VxKeyColumns<V> &keys)
{
    const qint64 count = keys.count;
    if (count == 0)
        return;
    key("keys");
    m_out.startMap();
    std::vector<std::pair<const char *, quint32>> checksums;
    const auto column = [&](const char *name, quint64 tag, const void *data, qint64 bytes) {
        array(name, tag, data, bytes);
        checksums.emplace_back(name, VxSceneFile::checksum(data, bytes));
    };
    column("times", VxSceneFile::TagInt32, keys.times, count * qint64(sizeof(VxTime)));
    const bool isFloat = std::is_same_v<V, float>;
    column("values", isFloat ? VxSceneFile::TagFloat32 : VxSceneFile::TagInt32, keys.values,
           count * 4);
    const bool allLinear = !keys.types || std::all_of(keys.types, keys.types + count,
                                                      [](quint8 type) { return type == 0; });
    if (!allLinear)
        column("types", VxSceneFile::TagUint8, keys.types, count);
    if (keys.tcb)
        column("tcb", VxSceneFile::TagFloat32, keys.tcb, count * qint64(sizeof(VxTcb)));
    key("crc32");
    m_out.startMap();
    for (const auto &[name, sum] : checksums)
        integer(name, sum);
    m_out.endMap();
    m_out.endMap();
}

/** Only within a map that is written without its length. */
void SceneStream::kept(const QObject *owner)
{
    const QByteArray members = VxKeptMembers::of(owner);
    if (!members.isEmpty())
        m_out.device()->write(members);
}

void SceneStream::writeFloat(VxFloatProperty *property)
{
    integer("axis", property->getAxis());
    numbers<2>("limits", {property->getMin(), property->getMax()});
    flag("clamped", property->isClamped(), false);
    number("sensitivity", property->getSensitivity());
    integer("interpolation", property->getDefaultInterpolation());
    number("default", property->getDefaultValue());
    const VxOwnContents<float> own = vxOwnContents(property);
    number("value", own.stored);
    writeKeyArrays(own.keys);
}

void SceneStream::writeInt(VxIntProperty *property)
{
    integers("limits", property->getMin(), property->getMax());
    flag("clamped", property->isClamped(), false);
    integer("default", property->getDefaultValue());
    const VxOwnContents<qint32> own = vxOwnContents(property);
    integer("value", own.stored);
    writeKeyArrays(own.keys);
}

void SceneStream::writeReferences(VxProperty *property)
{
    const auto reference = [this](const char *name, const VxProperty *target) {
        m_hasOuterReference |= target && !m_numbers.contains(target);
        if (target && m_numbers.contains(target))
            integer(name, m_numbers.value(target));
    };
    reference("alias", property->getAliasedProperty());
    reference("override", property->getOverridingControl());
    auto *number = qobject_cast<VxNumericProperty *>(property);
    if (!number || !number->isLinked())
        return;
    m_hasOuterReference |= !m_numbers.contains(number->getLinkedProperty());
    if (!m_numbers.contains(number->getLinkedProperty()))
        return;
    key("link");
    m_out.startMap();
    integer("to", m_numbers.value(number->getLinkedProperty()));
    flag("terminal", number->isLinkTerminal(), false);
    this->number("factor", number->getLinkFactor());
    this->number("offset", number->getLinkOffset());
    m_out.endMap();
}

/// Passes what is written to a device, in blocks: the stream writer writes a few bytes at a time.
/// Detects a device that accepts fewer bytes than given, which the stream writer does not report.
class WatchedDevice : public QIODevice
{
public:
    explicit WatchedDevice(QIODevice *target)
        : m_target(target)
    {
        open(QIODevice::WriteOnly);
    }
    /// Writes what is left, and returns what failed first; empty when all is well.
    QString finish()
    {
        flush();
        return m_failure;
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override
    {
        if (size > BlockSize - m_filled)
            flush();
        if (size > BlockSize)
            pass(data, size);
        else
            m_filled = int(std::copy_n(data, size, m_block.data() + m_filled) - m_block.data());
        return size;
    }

private:
    static constexpr int BlockSize = 4 * 1024;

    void flush() { pass(m_block.data(), std::exchange(m_filled, 0)); }
    void pass(const char *data, qint64 size)
    {
        if (m_target->write(data, size) != size && m_failure.isEmpty())
            m_failure = m_target->errorString();
    }

    QIODevice *m_target;
    std::array<char, BlockSize> m_block;
    int m_filled = 0;
    QString m_failure;
};

/** Empty when all is well. */
QString failureOf(const SceneStream &stream, WatchedDevice *watched)
{
    const QString failure = watched->finish();
    if (!stream.unreadable().isEmpty())
        return VxFileText::tr("The scene holds a number that is not finite: %1.")
            .arg(stream.unreadable());
    if (!failure.isEmpty())
        return VxFileText::tr("The file cannot be written: %1.").arg(failure);
    return {};
}

} // namespace

bool VxSceneWriter::write(QIODevice *device, VxFileError *error) const
{
    WatchedDevice watched(device);
    SceneStream stream(m_scene, &watched);
    if (!stream.write(m_scene->getNodes(), m_progress)) {
        error->cancelled = true;
        return false;
    }
    error->message = failureOf(stream, &watched);
    return error->message.isEmpty();
}

bool VxSceneWriter::writeNodes(const QVector<VxNode *> &nodes, QIODevice *device,
                               VxFileError *error)
{
    WatchedDevice watched(device);
    SceneStream stream(nullptr, &watched);
    stream.write(nodes, {});
    error->message = failureOf(stream, &watched);
    if (error->message.isEmpty() && stream.hasOuterReference())
        error->message = VxFileText::tr("A property refers to one that is not among the nodes.");
    return error->message.isEmpty();
}

bool VxSceneWriter::writeFile(const QString &fileName, VxFileError *error) const
{
    *error = VxFileError();
    error->file = fileName;
    VxSafeFile file(fileName);
    if (file.start() && !write(&file, error) && file.failure().isEmpty())
        return false; // cancelled, or a number that cannot be read again
    if (file.failure().isEmpty() && file.commit())
        return true;
    error->message = VxFileText::tr("The file cannot be written: %1.").arg(file.failure());
    return false;
}
