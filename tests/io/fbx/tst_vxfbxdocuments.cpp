// Documents written here, for everything that an FBX file can say about the motion of nodes: each
// in all forms of the format, compared with the format's definition at and between its keys.

#include "fbxcomparison.h"
#include "fbxsamples.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <functional>
#include <memory>

using fbxcomparison::Difference;
using fbxcomparison::readGood;
using namespace fbxsamples;

Q_DECLARE_METATYPE(fbxdocument::Format)

class TestVxFbxDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void transforms_data();
    void transforms();
    void curves_data();
    void curves();
    void layers_data();
    void layers();
    void formats_data();
    void formats();
    void keysStay();
    void textOfTheFirstVersions();
    void severalAnimations();
    void morphs();
    void addedProperties();
    void settings_data();
    void settings();
    void bonesGetASkeleton();
    void axesAreExchanged();
    void namesOfBothForms();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxFbxDocuments::transforms_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("helpers");
    const auto row = [](const char *name, const Document &document, int helpers) {
        QTest::newRow(name) << document.write({}) << helpers;
    };
    const Record active = whole("RotationActive", 1);
    for (int order = 0; order < 6; ++order)
        row(qPrintable(QStringLiteral("rotation order %1").arg(order)),
            chain({active, whole("RotationOrder", order)}), 0);
    row("spheric order is that of X, Y, Z", chain({active, whole("RotationOrder", 6)}), 0);
    row("order that is switched off",
        chain({whole("RotationActive", 0), whole("RotationOrder", 3)}), 0);
    row("pre rotation by a right angle", chain({active, vec("PreRotation", -90, 0, 0)}), 0);
    row("pre rotation that exchanges all axes", chain({active, vec("PreRotation", 90, 0, 90)}), 0);
    row("pre rotation about the outermost axis", chain({active, vec("PreRotation", 0, 0, 33)}), 0);
    row("pre rotation by any angles", chain({active, vec("PreRotation", 10, 20, 30)}), 0);
    row("pre rotation that is switched off",
        chain({whole("RotationActive", 0), vec("PreRotation", 10, 20, 30)}), 0);
    row("post rotation by a right angle", chain({active, vec("PostRotation", 90, 0, 0)}), 0);
    row("post rotation by any angles", chain({active, vec("PostRotation", 10, 20, 30)}), 1);
    row("pre and post rotation",
        chain({active, vec("PreRotation", 5, 15, 25), vec("PostRotation", 35, 45, 55)}), 1);
    row("pre and post rotation that undo each other in another order",
        chain({active, whole("RotationOrder", 2), vec("PreRotation", 90, 0, 0),
               vec("PostRotation", 90, 0, 0)}),
        0);
    row("rotation pivot", chain({vec("RotationPivot", 1, -2, 3)}), 1);
    row("rotation pivot and offset",
        chain({vec("RotationPivot", 1, -2, 3), vec("RotationOffset", 4, 5, -6)}), 1);
    row("scaling pivot and offset",
        chain({vec("ScalingPivot", 1, -2, 3), vec("ScalingOffset", 1, 1, 2),
               vec("Lcl Scaling", 2, 3, 0.5)}),
        1);
    row("everything",
        chain({active, whole("RotationOrder", 5), vec("RotationPivot", 1, -2, 3),
               vec("RotationOffset", 4, 5, -6), vec("ScalingPivot", 3, 1, 3),
               vec("ScalingOffset", 1, 1, 2), vec("PreRotation", 5, 15, 25),
               vec("PostRotation", 35, 45, 55), vec("Lcl Scaling", 2, 3, 0.5)}),
        1);
    Document moving = chain({vec("ScalingPivot", 1, -2, 3), vec("RotationPivot", 2, 0, 1)});
    animate(&moving, 3950, layerId, 2, "Lcl Scaling", {1, 2, 1}, {1, 3, 2}, {1, 1, 0.5});
    row("scale that moves about a pivot", moving, 2);
    Document still;
    still.model(1, 0, "node",
                {vec("RotationPivot", 1, 2, 3), vec("Lcl Rotation", 10, 20, 30), active,
                 vec("PreRotation", 10, 5, 0)});
    row("pivot and pre rotation without motion", still, 0);
    for (int type = 0; type < 3; ++type) {
        const Record inherit = whole("InheritType", type);
        const auto name = [type](const char *text) {
            return QStringLiteral("inherit type %1, %2").arg(type).arg(QLatin1String(text));
        };
        Document uneven = chain({inherit, vec("Lcl Scaling", 1, 2, 3)});
        uneven.objects()[2].children[0].children.append({vec("Lcl Scaling", 2, 0.5, 1), inherit});
        uneven.objects()[4].children[0].children.append(inherit);
        row(qPrintable(name("uneven scales")), uneven, type == 1 ? 0 : 2);
        Document animated = uneven;
        animate(&animated, 3960, layerId, 2, "Lcl Scaling", {1, 2, 1}, {1, 3, 2}, {1, 1, 0.5});
        animate(&animated, 3970, layerId, 1, "Lcl Scaling", {1, 2, 1}, {2, 3, 2}, {1, 1, 0.5});
        row(qPrintable(name("animated scales")), animated, type == 1 ? 0 : 2);
        Document even = chain({inherit, vec("Lcl Scaling", 2, 2, 2)});
        even.objects()[4].children[0].children.append(inherit);
        row(qPrintable(name("even scale")), even, type == 2 ? 1 : 0);
    }
}

void TestVxFbxDocuments::transforms()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, helpers);
    const VxImportedMotion motion = readGood(bytes);
    QCOMPARE(int(motion.nodes.size()), fbxworld::Scene(bytes).models().size() + helpers);
    const Difference difference = fbxcomparison::compare(bytes, motion, 9);
    QVERIFY(difference.poses > 0);
    QVERIFY2(difference.degrees < 1e-3, difference.where);
    QVERIFY2(difference.matrix < 1e-3, QByteArray::number(difference.matrix));
    QVERIFY2(difference.distance < 1e-3, QByteArray::number(difference.distance));
}

void TestVxFbxDocuments::curves_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("keys");
    const QVector<double> even{0, 1, 2, 3};
    const QVector<double> uneven{-1, 0.25, 2, 2.5};
    const QVector<float> values{0, 50, 20, -70};
    const auto row = [](const char *name, const Document &document, int keys) {
        QTest::newRow(name) << document.write({}) << keys;
    };
    const float third = weights(3333, 3333);
    row("constant", oneCurve(uneven, values, {2}, noData), 4);
    row("linear", oneCurve(uneven, values, {4}, noData), 4);
    row("cubic", oneCurve(uneven, values, {8 | 0x400}, {30, -50, third, 0}), 4);
    row("broken tangents",
        oneCurve(uneven, values, {8 | 0xC00, 8 | 0xC00, 8 | 0xC00, 8 | 0xC00},
                 {30, -50, third, 0, 200, 10, third, 0, -90, 0, third, 0, 0, 0, third, 0}),
        4);
    row("weighted on the right",
        oneCurve(uneven, values, {8 | 0x400 | 0x01000000}, {30, -50, weights(7000, 2000), 0}), 4);
    row("weighted on the left of the next key",
        oneCurve(uneven, values, {8 | 0x400 | 0x02000000}, {30, -50, weights(7000, 2000), 0}), 4);
    row("weighted on both sides",
        oneCurve(uneven, values, {8 | 0x400 | 0x03000000}, {300, -500, weights(9900, 9900), 0}), 4);
    row("weights near nothing",
        oneCurve(uneven, values, {8 | 0x400 | 0x03000000}, {300, -500, weights(1, 1), 0}), 4);
    row("tension, continuity, bias 0", oneCurve(uneven, values, {8 | 0x200}, noData), 4);
    row("tension", oneCurve(uneven, values, {8 | 0x200}, {0.8f, 0, 0, 0}), 4);
    row("continuity", oneCurve(uneven, values, {8 | 0x200}, {0, -0.6f, 0, 0}), 4);
    row("bias", oneCurve(uneven, values, {8 | 0x200}, {0, 0, 0.9f, 0}), 4);
    row("tension, continuity and bias beyond 1",
        oneCurve(uneven, values, {8 | 0x200}, {-1.5f, 1.2f, -2, 0}), 4);
    row("automatic", oneCurve(uneven, values, {8 | 0x100}, noData), 4);
    row("automatic with a bias", oneCurve(uneven, values, {8 | 0x100}, {60, -30, third, 0}), 4);
    row("automatic, whatever the distances", oneCurve(uneven, values, {8 | 0x2100}, noData), 4);
    row("automatic and clamped", oneCurve(even, {0, 50, 50, 70}, {8 | 0x1100}, noData), 4);
    row("automatic and progressive", oneCurve(uneven, {0, 5, 90, 91}, {8 | 0x6100}, noData), 4);
    row("automatic and progressive at a turn", oneCurve(uneven, values, {8 | 0x6100}, noData), 4);
    row("all kinds after each other",
        oneCurve({0, 1, 2, 3.5, 4, 5, 6}, {0, 9, -5, 20, 40, 10, 5},
                 {2, 4, 8 | 0x400, 8 | 0x200, 8 | 0x100, 4, 8 | 0x400},
                 {0,     0, 0, 0, 0, 0, 0, 0, 5, -8, third, 0, 0.3f,  0.2f,
                  -0.4f, 0, 0, 0, 0, 0, 0, 0, 0, 0,  7,     0, third, 0}),
        7);
    row("one key", oneCurve({1}, {40}, {8 | 0x400}, {5, 5, third, 0}), 1);
    row("steps to the next key's value", oneCurve(even, values, {2 | 0x100}, noData), 7);
}

void TestVxFbxDocuments::curves()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, keys);
    const VxImportedMotion motion = readGood(bytes);
    QCOMPARE(int(motion.clips.at(0).channels.at(0).curve.times.size()), keys);
    const Difference difference = fbxcomparison::compare(bytes, motion, 11);
    QVERIFY(difference.poses > 0);
    QVERIFY2(difference.degrees < 1e-3, difference.where);
}

void TestVxFbxDocuments::layers_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isExact"); // but for rotations that are blended as such
    const auto row = [](const char *name, const Document &document, bool isExact) {
        QTest::newRow(name) << document.write({}) << isExact;
    };
    const Record perChannel = whole("RotationAccumulationMode", 1);
    const Record addsScale = whole("ScaleAccumulationMode", 1);
    const Record half = Document::property("Weight", {50.0});
    const Record override = whole("BlendMode", 1);
    const Record mixed = whole("BlendMode", 2);
    row("added by channels", layered({perChannel, addsScale}), true);
    row("added by channels with half the weight", layered({perChannel, addsScale, half}), true);
    row("added as rotations and factors", layered({}), false);
    row("added as rotations and factors with half the weight", layered({half}), false);
    row("replaced", layered({override}), true);
    row("mixed by channels", layered({mixed, perChannel, addsScale, half}), true);
    row("mixed as rotations and factors", layered({mixed, half}), false);
    row("without weight", layered({Document::property("Weight", {0.0})}), true);
    row("muted", layered({whole("Mute", 1)}), true);
    Document fading = layered({perChannel, addsScale});
    fading.curveNode(4000, 0, layerId + 1, "Weight");
    fading.curve(4001, 4000, "d|Weight", {0, 1, 2}, {0, 100, 30}, linear, noData);
    row("added with an animated weight", fading, false);
    Document base;
    base.stack(stackId, "take");
    base.layer(layerId, stackId);
    base.layer(layerId + 1, stackId, {perChannel});
    base.model(1, 0, "node", {vec("Lcl Rotation", 10, 20, 30)});
    spin(&base, 3000, layerId + 1, 1);
    row("added to what the node has at rest", base, true);
}

void TestVxFbxDocuments::layers()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isExact);
    const VxImportedMotion motion = readGood(bytes);
    const Difference difference = fbxcomparison::compare(bytes, motion, 13);
    QVERIFY(difference.poses > 0);
    // Joined keys are one tick beside a jump; sampled ones within 1/100 degree on each axis.
    QVERIFY2(difference.degrees < (isExact ? 1e-3 : 0.02), difference.where);
    QVERIFY2(difference.matrix < 1e-3, QByteArray::number(difference.matrix));
    QVERIFY2(difference.distance < 1e-3, QByteArray::number(difference.distance));
    bool hasNote = false;
    for (const QString &note : motion.facts.notes)
        hasNote = hasNote || note.contains(QLatin1String("sampled"));
    QCOMPARE(hasNote, !isExact);
}

// A layer that turns a thousand times between two keys, added as a rotation.
void TestVxFbxDocuments::formats_data()
{
    QTest::addColumn<Format>("format");
    for (const Format &format : allFormats())
        QTest::newRow(nameOf(format)) << format;
}

// The same scene in every form of the format.
void TestVxFbxDocuments::formats()
{
    QFETCH(Format, format);
    Document document = layered({whole("BlendMode", 1)});
    document.model(7, 2, "weighted", {});
    document.curveNode(5000, layerId, 7, "Lcl Rotation");
    document.curve(5001, 5000, "d|X", {0, 1, 2}, {0, 40, 10}, {8 | 0x400 | 0x03000000},
                   {30, -50, weights(7000, 2000), 0});
    const QByteArray bytes = document.write(format);
    const VxImportedMotion motion = readGood(bytes);
    QVERIFY(motion.facts.format.startsWith(
        QStringLiteral("FBX %1").arg(format.version / 1000.0, 0, 'f', 1)));
    QCOMPARE(motion.facts.writer, QStringLiteral("test writer 1"));
    const Difference difference = fbxcomparison::compare(bytes, motion, 5);
    QVERIFY(difference.poses > 50);
    QVERIFY2(difference.degrees < 1e-3, difference.where);
    QVERIFY(difference.matrix < 1e-6 && difference.distance < 1e-6);
}

// What an animator set stays: times, values, slopes and kinds of segments.
void TestVxFbxDocuments::keysStay()
{
    const Document document =
        oneCurve({0.1, 0.25, 2}, {1.5f, -20, 30}, {2, 8 | 0x400 | 0x01000000, 4},
                 {0, 7, 0, 0, 3, 9, weights(2500, 3333), 0, 0, 0, 0, 0});
    const VxImportedMotion motion = readGood(document.write({}));
    const VxMotionCurve &curve = motion.clips.at(0).channels.at(0).curve;
    QCOMPARE(curve.values, (std::vector<double>{1.5, -20, 30}));
    QCOMPARE(curve.times.size(), std::size_t(3));
    QVERIFY(std::abs(curve.times[0] - 0.1) < 1e-10 && curve.times[1] == 0.25 &&
            curve.times[2] == 2.0);
    QCOMPARE(curve.shapes[0].segment, VxMotionSegment::Step);
    QCOMPARE(curve.shapes[1].segment, VxMotionSegment::Cubic);
    QCOMPARE(curve.shapes[1].outSlope, 3.0);
    QCOMPARE(curve.shapes[1].outWeight, 0.25);
    QCOMPARE(curve.shapes[2].inSlope, 9.0);
    QCOMPARE(curve.shapes[2].segment, VxMotionSegment::Linear);
}

// Before 7.2 key shapes are written as numbers, later as the integers of their bits.
void TestVxFbxDocuments::textOfTheFirstVersions()
{
    const Document document = oneCurve({0, 1, 2}, {0, 50, 20}, {8 | 0x400}, {30.5f, -50, 0, 0});
    for (const int version : {7100, 7200}) {
        const VxImportedMotion motion = readGood(document.write({true, version, false}));
        const VxMotionCurve &curve = motion.clips.at(0).channels.at(0).curve;
        QCOMPARE(curve.shapes.at(0).outSlope, 30.5);
        QCOMPARE(curve.shapes.at(1).inSlope, -50.0);
    }
}

void TestVxFbxDocuments::severalAnimations()
{
    Document document = chain({});
    document.stack(stackId + 1, "second");
    document.layer(layerId + 5, stackId + 1);
    document.curveNode(6000, layerId + 5, 2, "Lcl Rotation");
    document.curve(6001, 6000, "d|X", {0, 1}, {0, 40}, linear, noData);
    const QByteArray bytes = document.write({});
    const VxImportedMotion motion = readGood(bytes);
    QCOMPARE(motion.clips.size(), std::size_t(2));
    QCOMPARE(motion.clips[0].name, QStringLiteral("take"));
    QCOMPARE(motion.clips[1].name, QStringLiteral("second"));
    QVERIFY(fbxcomparison::compare(bytes, motion, 5).degrees < 1e-3);
}

void TestVxFbxDocuments::morphs()
{
    Document document = chain({});
    document.object("Geometry", 20, "shape", "Mesh", {});
    document.object("Deformer", 21, "shapes", "BlendShape", {});
    document.object("Deformer", 22, "smile", "BlendShapeChannel",
                    {Document::property("DeformPercent", {30.0})});
    document.object("Deformer", 23, "blink", "BlendShapeChannel", {},
                    {{"DeformPercent", {45.0}, {}}});
    document.connect(20, 2);
    document.connect(21, 20);
    document.connect(22, 21);
    document.connect(23, 21);
    document.curveNode(7000, layerId, 22, "DeformPercent");
    document.curve(7001, 7000, "d|DeformPercent", {0, 1}, {0, 80}, cubic, {10, 20, 0, 0});
    const VxImportedMotion motion = readGood(document.write({}));
    const VxMotionNode &node = motion.nodes.at(1);
    QCOMPARE(node.morphs.size(), std::size_t(2));
    QCOMPARE(node.morphs[0].name, QStringLiteral("smile"));
    QCOMPARE(node.morphs[0].value, 0.3);
    QCOMPARE(node.morphs[1].value, 0.45);
    const VxMotionChannel &channel = motion.clips.at(0).channels.back();
    QCOMPARE(channel.target, VxMotionTarget::Morph);
    QCOMPARE(channel.node, 1);
    QCOMPARE(channel.index, 0);
    QCOMPARE(channel.curve.values, (std::vector<double>{0, 0.8}));
    QVERIFY(std::abs(channel.curve.shapes.at(0).outSlope - 0.1) < 1e-12);
}

void TestVxFbxDocuments::addedProperties()
{
    Document document = chain(
        {Document::property("grip", {2.5}, "A+U"), Document::property("Visibility", {1.0}, "A")});
    document.curveNode(7000, layerId, 2, "grip");
    document.curve(7001, 7000, "d|grip", {0, 1}, {2, 8}, linear, noData);
    document.curveNode(7010, layerId, 2, "Visibility");
    document.curve(7011, 7010, "d|Visibility", {0, 1}, {0, 1}, linear, noData);
    const VxImportedMotion motion = readGood(document.write({}));
    QCOMPARE(motion.nodes.at(1).properties.size(), std::size_t(1));
    QCOMPARE(motion.nodes.at(1).properties[0].name, QStringLiteral("grip"));
    QCOMPARE(motion.nodes.at(1).properties[0].value, 2.5);
    QCOMPARE(motion.clips.at(0).channels.back().curve.values, (std::vector<double>{2, 8}));
    QCOMPARE(motion.facts.omissions.size(), std::size_t(1));
    QVERIFY(motion.facts.omissions[0].what.contains(QLatin1String("Visibility")));
    QCOMPARE(motion.facts.omissions[0].first, QStringLiteral("middle"));
}

void TestVxFbxDocuments::settings_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("custom");
    QTest::addColumn<double>("rate");
    const auto row = [](const char *name, int mode, double custom, double rate) {
        QTest::newRow(name) << mode << custom << rate;
    };
    row("not specified", 0, -1, 30);
    row("120", 1, -1, 120);
    row("24", 11, -1, 24);
    row("29.97, dropped", 8, -1, 30000.0 / 1001);
    row("23.976", 13, -1, 24000.0 / 1001);
    row("59.94", 17, -1, 60000.0 / 1001);
    row("custom", 14, 12.5, 12.5);
    row("custom without a rate", 14, -1, 30);
    row("unknown", 99, -1, 30);
}

void TestVxFbxDocuments::settings()
{
    QFETCH(int, mode);
    QFETCH(double, custom);
    QFETCH(double, rate);
    Document document = chain({});
    document.setting("TimeMode", mode);
    document.setting("CustomFrameRate", custom);
    document.setting("UnitScaleFactor", 2.54);
    const VxImportedMotion motion = readGood(document.write({}));
    QCOMPARE(motion.facts.rate, rate);
    QVERIFY(std::abs(motion.facts.metresPerUnit - 0.0254) < 1e-12);
}

void TestVxFbxDocuments::bonesGetASkeleton()
{
    Document document;
    document.model(1, 0, "hip", {}, "LimbNode");
    document.model(2, 1, "leg", {}, "LimbNode");
    document.model(3, 0, "rig", {}, "Null");
    document.model(4, 3, "arm", {}, "Limb");
    document.model(5, 0, "box", {}, "Mesh");
    const VxImportedMotion motion = readGood(document.write({}));
    QCOMPARE(motion.nodes.size(), std::size_t(6));
    const auto check = [&motion](std::size_t i, const char *name, int parent,
                                 VxMotionNode::Kind kind) {
        return motion.nodes[i].name == QLatin1String(name) && motion.nodes[i].parent == parent &&
               motion.nodes[i].kind == kind;
    };
    QVERIFY(check(0, "Skeleton", -1, VxMotionNode::Skeleton));
    QVERIFY(check(1, "hip", 0, VxMotionNode::Bone));
    QVERIFY(check(2, "leg", 1, VxMotionNode::Bone));
    QVERIFY(check(3, "rig", -1, VxMotionNode::Skeleton));
    QVERIFY(check(4, "arm", 3, VxMotionNode::Bone));
    QVERIFY(check(5, "box", -1, VxMotionNode::Node));
}

// A scene with its axes exchanged is the same scene: every point is where it was.
void TestVxFbxDocuments::axesAreExchanged()
{
    const QVector<QVector<int>> systems{
        {1, 1, 0, -1, 2, 1}, {0, 1, 2, 1, 1, -1}, {0, 1, 1, 1, 2, -1}, {2, -1, 0, 1, 1, 1}};
    for (const QVector<int> &it : systems) {
        Document document = chain({whole("RotationActive", 1), vec("PreRotation", 10, 20, 30),
                                   vec("RotationPivot", 1, 2, 3), whole("RotationOrder", 3)});
        const char *const names[] = {"CoordAxis", "UpAxis", "FrontAxis"};
        for (int i = 0; i < 3; ++i) {
            document.setting(names[i], it[2 * i]);
            document.setting(QByteArray(names[i]) + "Sign", it[2 * i + 1]);
        }
        const QByteArray bytes = document.write({});
        const VxImportedMotion motion = readGood(bytes);
        const bool isUsualZ = it == QVector<int>{0, 1, 2, 1, 1, -1};
        QCOMPARE(motion.facts.upAxis, isUsualZ ? 'Z' : 'Y');
        const fbxworld::Scene scene(bytes);
        const QVector<int> nodes = fbxcomparison::nodesOf(motion, scene);
        for (const double time : {0.0, 0.4, 1.1}) {
            const QVector<fbxworld::Mat> expected = scene.worlds(0, time);
            const QVector<fbxworld::Mat> actual = motionworld::worlds(motion, 0, time);
            for (int i = 0; i < nodes.size(); ++i) {
                const int end = motionworld::endOf(motion, scene.models()[i].name, nodes[i]);
                for (std::size_t axis = 0; axis < 3; ++axis) {
                    const double file =
                        expected[i][isUsualZ ? axis : std::size_t(it[2 * int(axis)])][3];
                    const int sign = isUsualZ ? 1 : it[2 * int(axis) + 1];
                    QVERIFY(std::abs(actual[end][axis][3] - sign * file) < 1e-4);
                }
            }
        }
    }
}

void TestVxFbxDocuments::namesOfBothForms()
{
    Document document;
    document.model(1, 0, "figure:hip \xC3\xBC", {});
    for (const Format &format : allFormats())
        QCOMPARE(readGood(document.write(format)).nodes.at(0).name,
                 QStringLiteral(u"figure:hip \u00FC"));
}

VX_TEST_MAIN(TestVxFbxDocuments)
#include "tst_vxfbxdocuments.moc"
