#include "io/vxscenereader.h"

#include "io/vxcborinput.h"
#include "io/vxfiletext.h"
#include "io/vxkeptmembers.h"
#include "io/vxreadfile.h"
#include "io/vxscenefile.h"
#include "io/vxscenepropertyreader.h"

#include <QVector3D>
#include <cmath>
#include <limits>
#include <vxcore/vxbone.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxskeleton.h>

namespace {

/// Builds the contents from one stream.
class SceneBuilder
{
public:
    SceneBuilder(const QByteArray &bytes, const VxFileProgress &progress)
        : m_input(bytes)
        , m_properties(&m_input)
        , m_progress(progress)
    {
    }

    bool build(VxSceneContents *contents, VxFileError *error);

private:
    /// A node of the file. Kind and name must precede every other member of its map; the writer
    /// writes them first.
    struct NodeRecord
    {
        std::unique_ptr<VxNode> node;
        int parent = -1;
        int depth = 1; ///< number of levels down to this node
    };

    void readFile(VxSceneContents *contents);
    void readFormat();
    void readVersion();
    VxTimeRange readRange();
    VxCameraState readCamera();
    VxMarker readMarker();
    VxTimeDisplay readTimeDisplay();
    void readTimeUnit(VxTimeDisplay *display);
    void readTimeRate(VxTimeDisplay *display);
    void readNode();
    void checkDepth(NodeRecord &record);
    void readProperties(VxElement *element);
    QVector3D readVector();
    void readRestPose(VxNode *node);
    std::unique_ptr<VxNode> makeNode(const QString &kind, const QString &name);
    void readObject(VxNode *node);
    void readSubElement(VxObject *object);
    void assemble(VxSceneContents *contents);

    VxCborInput m_input;
    VxScenePropertyReader m_properties;
    const VxFileProgress &m_progress;
    std::vector<NodeRecord> m_nodes;
    QStringList m_unknownValues;
    bool m_hasFormat = false;
    bool m_cancelled = false;
};

VxTimeRange SceneBuilder::readRange()
{
    double ends[2] = {0, 0};
    m_input.numbers(ends, 2);
    const auto time = [this](double value) {
        if (value < double(VxTimeMin) || value > double(VxTimeMax))
            m_input.fail(VxFileText::tr("A time range exceeds the supported times."));
        return m_input.failed() ? 0 : VxTime(value);
    };
    const VxTime start = time(ends[0]);
    return {start, time(ends[1])};
}

void SceneBuilder::readFormat()
{
    if (m_input.text() != QLatin1String(VxSceneFile::Format))
        m_input.fail(VxFileText::tr("This is not a scene file."));
    m_hasFormat = !m_input.failed();
}

void SceneBuilder::readVersion()
{
    const int version = m_input.int32();
    if (version < 1 || version > VxSceneFile::Version)
        m_input.fail(VxFileText::tr("The file uses version %1 of the scene format; this program "
                                    "reads versions up to %2.")
                         .arg(version)
                         .arg(VxSceneFile::Version));
}

void SceneBuilder::readFile(VxSceneContents *contents)
{
    const VxCborInput::Members members = {
        {"format", [&] { readFormat(); }},
        {"version", [&] { readVersion(); }},
        {"ticksPerSecond", [&] { m_input.integer(VxTicksPerSecond, VxTicksPerSecond); }},
        {"numProperties", [&] { m_input.integer(0, std::numeric_limits<int>::max()); }},
        {"time", [&] { contents->time = m_input.int32(); }},
        {"timeStep", [&] { contents->timeStep = VxTime(m_input.integer(1, VxTimeMax)); }},
        {"playRange", [&] { contents->playRange = readRange(); }},
        {"animRange", [&] { contents->animRange = readRange(); }},
        {"view1", [&] { contents->views[0] = readRange(); }},
        {"view2", [&] { contents->views[1] = readRange(); }},
        {"view3", [&] { contents->views[2] = readRange(); }},
        {"markers", [&] { m_input.array([&] { contents->markers.append(readMarker()); }); }},
        {"timeDisplay", [&] { contents->timeDisplay = readTimeDisplay(); }},
        {"looping", [&] { contents->looping = m_input.boolean(); }},
        {"animating", [&] { contents->animating = m_input.boolean(); }},
        {"camera", [&] { contents->camera = readCamera(); }},
        {"nodes", [&] { m_input.array([this] { readNode(); }); }},
    };
    m_input.map(
        [&](const QString &name) {
            if (!m_hasFormat && name != QLatin1String("format"))
                return m_input.fail(VxFileText::tr("This is not a scene file."));
            return VxCborInput::read(name, members);
        },
        &contents->keptMembers);
}

/** Numbers out of range become the nearest valid ones. */
VxCameraState SceneBuilder::readCamera()
{
    VxCameraState camera;
    m_input.map({
        {"target", [&] { camera.target = readVector(); }},
        {"distance", [&] { camera.distance = m_input.singleNumber(); }},
        {"yaw", [&] { camera.yaw = m_input.singleNumber(); }},
        {"pitch", [&] { camera.pitch = m_input.singleNumber(); }},
        {"fieldOfView", [&] { camera.fieldOfView = m_input.singleNumber(); }},
        {"orthographic", [&] { camera.orthographic = m_input.boolean(); }},
    });
    return camera.corrected();
}

void SceneBuilder::readTimeUnit(VxTimeDisplay *display)
{
    const QString unit = m_input.text();
    for (int i = 0; i < int(std::size(VxSceneFile::TimeUnits)); ++i) {
        if (unit == QLatin1String(VxSceneFile::TimeUnits[i])) {
            display->unit = VxTimeDisplay::Unit(i);
            return;
        }
    }
    m_unknownValues.append(VxFileText::tr("unit \"%1\"").arg(unit));
}

void SceneBuilder::readTimeRate(VxTimeDisplay *display)
{
    double parts[2] = {0, 1};
    m_input.numbers(parts, 2);
    const auto whole = [](double part) {
        return part >= 1 && part <= 1e6 && part == std::floor(part) ? int(part) : 0;
    };
    const VxFrameRate rate{whole(parts[0]), whole(parts[1])};
    if (rate.isValid())
        display->rate = rate;
    else
        m_unknownValues.append(VxFileText::tr("rate %1/%2").arg(parts[0]).arg(parts[1]));
}

/** A unit or rate that is unknown is no reason to refuse a scene. */
VxTimeDisplay SceneBuilder::readTimeDisplay()
{
    VxTimeDisplay display;
    m_input.map({
        {"unit", [&] { readTimeUnit(&display); }},
        {"rate", [&] { readTimeRate(&display); }},
        {"dropFrame", [&] { display.dropsFrames = m_input.boolean(); }},
    });
    return display;
}

VxMarker SceneBuilder::readMarker()
{
    VxMarker marker;
    std::optional<VxTime> start;
    std::optional<VxTime> end;
    m_input.map({
        {"name", [&] { marker.name = m_input.text(); }},
        {"start", [&] { start = m_input.int32(); }},
        {"end", [&] { end = m_input.int32(); }},
        {"color", [&] { marker.color = 0xff000000 | QRgb(m_input.integer(0, 0xffffff)); }},
    });
    if (!m_input.failed() && !start)
        m_input.fail(VxFileText::tr("The marker \"%1\" has no start.").arg(marker.name));
    marker.span = VxTimeRange(start.value_or(0), end.value_or(start.value_or(0)));
    if (!m_input.failed() && marker.span.getEnd() < marker.span.getStart())
        m_input.fail(VxFileText::tr("The marker \"%1\" ends before it starts.").arg(marker.name));
    return marker;
}

QVector3D SceneBuilder::readVector()
{
    float values[3] = {0, 0, 0};
    m_input.numbers(values, 3);
    return {values[0], values[1], values[2]};
}

void SceneBuilder::readRestPose(VxNode *node)
{
    VxRestPose rest{};
    m_input.numbers(rest.data(), int(rest.size()));
    if (!m_input.failed())
        node->setRestPose(rest);
}

std::unique_ptr<VxNode> SceneBuilder::makeNode(const QString &kind, const QString &name)
{
    if (kind == QLatin1String("skeleton"))
        return std::make_unique<VxSkeleton>(name);
    if (kind == QLatin1String("bone"))
        return std::make_unique<VxBone>(name);
    if (kind == QLatin1String("node"))
        return std::make_unique<VxNode>(name);
    m_input.fail(VxFileText::tr("A node has an unknown kind: \"%1\".").arg(kind));
    return nullptr;
}

void SceneBuilder::readNode()
{
    if (m_progress && !m_progress(int(m_input.offset() * 100 / qMax(qint64(1), m_input.size())))) {
        m_cancelled = true;
        m_input.fail(VxFileText::tr("Cancelled."));
        return;
    }
    NodeRecord record;
    QString kind;
    QByteArray kept;
    const auto &node = record.node;
    const VxCborInput::Members members = {
        {"kind", [&] { kind = m_input.text(); }},
        {"name", [&] { record.node = makeNode(kind, m_input.text()); }},
        {"id", [&] { node->setId(quint64(m_input.integer(0, qint64(VxNode::MaxId)))); }},
        {"parent", [&] { record.parent = int(m_input.integer(-1, qint64(m_nodes.size()) - 1)); }},
        {"visible", [&] { node->setVisible(m_input.boolean()); }},
        {"selectable", [&] { node->setSelectable(m_input.boolean()); }},
        {"ik", [&] { node->setIkNode(m_input.boolean()); }},
        {"pinned", [&] { node->setPinned(m_input.boolean()); }},
        {"rotationOrder",
         [&] { node->setRotationOrder(VxNode::RotationOrder(m_input.integer(0, VxNode::ZYX))); }},
        {"origin", [&] { node->setOrigin(readVector()); }},
        {"endPoint", [&] { node->setEndPoint(readVector()); }},
        {"restPose", [&] { readRestPose(node.get()); }},
        {"object", [&] { readObject(node.get()); }},
        {"label", [&] { node->setLabel(m_input.text()); }},
        {"properties", [&] { readProperties(node.get()); }},
    };
    m_input.map(
        [&](const QString &name) {
            if (!node && name != QLatin1String("kind") && name != QLatin1String("name"))
                return m_input.fail(
                    VxFileText::tr("A node does not begin with its kind and name."));
            return VxCborInput::read(name, members);
        },
        &kept);
    if (record.node)
        VxKeptMembers::set(record.node.get(), kept);
    if (!m_input.failed() && !record.node)
        m_input.fail(VxFileText::tr("A node has no name."));
    checkDepth(record);
    if (!m_input.failed())
        m_nodes.push_back(std::move(record));
}

void SceneBuilder::checkDepth(NodeRecord &record)
{
    if (m_input.failed() || record.parent < 0)
        return;
    record.depth = m_nodes[size_t(record.parent)].depth + 1;
    if (record.depth > VxNode::MaxDepth)
        m_input.fail(VxFileText::tr("The node \"%1\" is nested deeper than %2 levels.")
                         .arg(record.node->getName(), QString::number(VxNode::MaxDepth)));
}

void SceneBuilder::readProperties(VxElement *element)
{
    m_input.array([&] { m_properties.read(element); });
}

void SceneBuilder::readObject(VxNode *node)
{
    VxObject *object = nullptr;
    QByteArray kept;
    const VxCborInput::Members members = {
        {"name", [&] { node->setObject(object = new VxObject(m_input.text())); }},
        {"label", [&] { object->setLabel(m_input.text()); }},
        {"properties", [&] { readProperties(object); }},
        {"subElements", [&] { m_input.array([&] { readSubElement(object); }); }},
    };
    m_input.map(
        [&](const QString &name) {
            if (!object && name != QLatin1String("name"))
                return m_input.fail(VxFileText::tr("An object does not begin with its name."));
            return VxCborInput::read(name, members);
        },
        &kept);
    if (object)
        VxKeptMembers::set(object, kept);
}

void SceneBuilder::readSubElement(VxObject *object)
{
    VxElement *element = nullptr;
    bool morph = false;
    QByteArray kept;
    const VxCborInput::Members members = {
        {"kind", [&] { morph = m_input.text() == QLatin1String("morph"); }},
        {"name",
         [&] {
             const QString name = m_input.text();
             element = morph ? new VxMorph(name) : new VxElement(name);
             object->addSubElement(element);
         }},
        {"label", [&] { element->setLabel(m_input.text()); }},
        {"properties", [&] { readProperties(element); }},
    };
    m_input.map(
        [&](const QString &name) {
            if (!element && name != QLatin1String("kind") && name != QLatin1String("name"))
                return m_input.fail(VxFileText::tr("A sub-element does not begin with its name."));
            return VxCborInput::read(name, members);
        },
        &kept);
    if (element)
        VxKeptMembers::set(element, kept);
}

void SceneBuilder::assemble(VxSceneContents *contents)
{
    // Parents precede their children in the file; a node is kept as a plain pointer for its own
    // children after its parent has taken ownership.
    std::vector<VxNode *> placed;
    placed.reserve(m_nodes.size());
    for (NodeRecord &record : m_nodes) {
        placed.push_back(record.node.get());
        if (record.parent < 0)
            contents->rootNodes.push_back(std::move(record.node));
        else
            placed[size_t(record.parent)]->addNodeChild(record.node.release());
    }
}

bool SceneBuilder::build(VxSceneContents *contents, VxFileError *error)
{
    readFile(contents);
    if (!m_input.failed() && !m_hasFormat)
        m_input.fail(VxFileText::tr("This is not a scene file."));
    if (!m_input.failed())
        m_properties.resolve();
    if (m_input.failed()) {
        *error = m_input.error();
        error->cancelled = m_cancelled;
        return false;
    }
    assemble(contents);
    contents->unknownMembers = m_input.unknownMembers() + m_unknownValues;
    contents->droppedMembers = m_input.droppedMembers() + m_unknownValues;
    return true;
}

} // namespace

bool VxSceneReader::read(const QByteArray &bytes, VxSceneContents *contents,
                         VxFileError *error) const
{
    *error = VxFileError();
    VxSceneContents built;
    if (!SceneBuilder(bytes, m_progress).build(&built, error))
        return false;
    *contents = std::move(built);
    return true;
}

bool VxSceneReader::readFile(const QString &fileName, VxSceneContents *contents,
                             VxFileError *error) const
{
    QByteArray bytes;
    const bool done = vxReadFile(fileName, &bytes, error) && read(bytes, contents, error);
    error->file = fileName;
    return done;
}

void VxSceneReader::install(VxSceneContents &&contents, VxScene *scene)
{
    scene->beginLoad();
    scene->clear();
    scene->setTimeStep(contents.timeStep);
    scene->setAnimRange(contents.animRange);
    scene->setPlayRange(contents.playRange);
    VxSceneViews::of(scene)->setViews(contents.views);
    VxMarkers::of(scene)->replaceAll(contents.markers);
    VxSceneTimeDisplay::of(scene)->setDisplay(contents.timeDisplay);
    scene->setTime(contents.time);
    scene->loopPlayback(contents.looping);
    scene->setAnimating(contents.animating);
    VxSceneCamera::of(scene)->setState(contents.camera);
    VxKeptMembers::setForScene(scene, contents.keptMembers);
    for (auto &node : contents.rootNodes)
        scene->addNode(node.release());
    contents.rootNodes.clear();
    scene->endLoad();
}
