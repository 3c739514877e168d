#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

struct Counts
{
    int channels = 0;
    qint64 keys = 0;
    int mostKeys = 0;
};

Counts count(const VxScene &scene)
{
    Counts counts;
    const auto nodes = scene.getNodes();
    for (const VxNode *node : nodes) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const int keys = node->getProperty(i)->getNumKeys();
            counts.channels += keys > 0;
            counts.keys += keys;
            counts.mostKeys = qMax(counts.mostKeys, keys);
        }
    }
    return counts;
}

} // namespace

class TestSceneBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void namedSizes_data();
    void namedSizes();
    void shapes();
    void sameSeedSameScene();
    void mixedTypes();
    void morphs();
    void specialProperties();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSceneBuilder::namedSizes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("keys");
    QTest::newRow("S") << int(VxSceneBuilder::Size::S) << 171 << 1530 << 300;
    QTest::newRow("M") << int(VxSceneBuilder::Size::M) << 171 << 1530 << 3000;
    QTest::newRow("W") << int(VxSceneBuilder::Size::W) << 1710 << 15300 << 300;
}

void TestSceneBuilder::namedSizes()
{
    QFETCH(int, size);
    QFETCH(int, nodes);
    QFETCH(int, channels);
    QFETCH(int, keys);
    VxScene scene;
    VxSceneBuilder(&scene).build(static_cast<VxSceneBuilder::Size>(size));
    const Counts counts = count(scene);
    QCOMPARE(scene.getNumNodes(), nodes);
    QCOMPARE(counts.channels, channels);
    QCOMPARE(counts.mostKeys, keys);
    QCOMPARE(counts.keys, qint64(channels) * keys);
    QCOMPARE(scene.getAnimRange(), VxTimeRange(0, (keys - 1) * 160));
    QCOMPARE(scene.getPlayRange(), scene.getAnimRange());
}

void TestSceneBuilder::shapes()
{
    VxScene scene;
    VxSceneBuilder builder(&scene);
    const VxSkeleton *chain =
        builder.addSkeleton(QStringLiteral("c"), 5, VxSceneBuilder::Shape::Chain);
    const VxSkeleton *tree = builder.addSkeleton(QStringLiteral("t"), 20);
    QCOMPARE(chain->getAllBones().size(), 5);
    int depth = 0;
    for (const VxNode *node = chain; node; node = node->getNodeChild(0))
        ++depth;
    QCOMPARE(depth, 6);
    QCOMPARE(tree->getAllBones().size(), 20);
    QCOMPARE(tree->getNodeChild(0)->getNumNodeChildren(), 4);
    QCOMPARE(tree->getNodeChild(0)->getNodeChild(1)->getNumNodeChildren(), 4);
    QCOMPARE(scene.findNode(QStringLiteral("t20"))->getSkeleton(), tree);
}

void TestSceneBuilder::sameSeedSameScene()
{
    const auto values = [](quint32 seed) {
        VxScene scene;
        VxSceneBuilder builder(&scene, seed);
        VxNode *node = builder.addNode(QStringLiteral("n"));
        builder.keyChannels({node}, 20, 100);
        QVector<float> list;
        for (int i = 0; i < 20; ++i)
            list << node->getZRotControl()->getKeyValue(i);
        return list;
    };
    QCOMPARE(values(5), values(5));
    QVERIFY(values(5) != values(6));
}

void TestSceneBuilder::mixedTypes()
{
    VxScene scene;
    VxSceneBuilder builder(&scene);
    VxNode *node = builder.addNode(QStringLiteral("n"));
    builder.keyChannels({node}, 6, 100, VxSceneBuilder::KeyTypes::Mixed);
    const VxFloatProperty *channel = node->getXPosControl();
    QCOMPARE(channel->getNumKeys(), 6);
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(channel->getKeyTime(i), i * 100);
        QCOMPARE(channel->getKeyInterpolationType(i), i % 3);
    }
    QCOMPARE(node->getScaleControl()->getNumKeys(), 0);
    builder.keyChannels({node}, 2);
    QCOMPARE(channel->getNumKeys(), 2);
}

void TestSceneBuilder::morphs()
{
    VxScene scene;
    VxSceneBuilder builder(&scene);
    VxNode *node = builder.addNode(QStringLiteral("n"));
    const auto morphs = builder.addMorphs(node, 3);
    builder.keyMorphs(morphs, 50);
    QCOMPARE(morphs.size(), 3);
    for (const VxMorph *morph : morphs) {
        QCOMPARE(morph->getObject()->getNode(), node);
        QCOMPARE(morph->getValueControl()->getNumKeys(), 50);
        for (int i = 0; i < 50; ++i) {
            const float value = morph->getValueControl()->getKeyValue(i);
            QVERIFY(value >= 0.0f && value <= 1.0f);
        }
    }
}

void TestSceneBuilder::specialProperties()
{
    VxScene scene;
    VxSceneBuilder builder(&scene);
    VxNode *node = builder.addNode(QStringLiteral("n"));
    const VxSceneBuilder::Special special = builder.addSpecialProperties(node);
    QCOMPARE(special.alias->getKeyHolder(), node->getXPosControl());
    QVERIFY(qobject_cast<VxNumericProperty *>(special.linked)->isLinked());
    QVERIFY(!qobject_cast<VxNumericProperty *>(special.linked)->isLinkTerminal());
    QVERIFY(qobject_cast<VxNumericProperty *>(special.terminal)->isLinkTerminal());
    QVERIFY(special.hidden->isHidden());
    QVERIFY(special.dynamic->isDynamicallyHidden());
    QVERIFY(qobject_cast<VxNumericProperty *>(special.percentage)->isPercentage());
    QVERIFY(qobject_cast<VxIntProperty *>(special.integer));
    QVERIFY(qobject_cast<VxBoolProperty *>(special.boolean));
    QVERIFY(special.locked->isLocked());
    QCOMPARE(special.locked->getNumKeys(), 2);
    QVERIFY(!special.unanimated->canBeKeyed());
    QVERIFY(special.excluded->isExcluded());
    QVERIFY(!qobject_cast<VxNumericProperty *>(special.text));
    QCOMPARE(node->getNumProperties(), 10 + 12);
}

VX_TEST_MAIN(TestSceneBuilder)
#include "tst_vxscenebuilder.moc"
