// The Parameters pane with very many rows and very many nodes: what it costs grows with them and
// no faster, and a frame costs the rows that are seen.

#include "parameterspanetestbase.h"
#include "testing/vxgrowth.h"
#include "testing/vxtestmain.h"

#include <functional>

class TestParametersMany : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void manyProperties();
    void manyNodes();
    void aFrameOfALargeScene();

private:
    /// The processor time of each step, in milliseconds.
    using Laps = QVector<QPair<const char *, double>>;
    static void measure(Laps *laps, const char *step, const std::function<void()> &work);
    static void compare(int count, const std::function<Laps(int)> &lapsOf);
    Laps lapsOfProperties(int count);
    Laps lapsOfNodes(int count);
    void frames(int count) const;
};

namespace {

constexpr int Factor = 8;
constexpr double MaxGrowth = 32; // quadratic would be 64

} // namespace

void TestParametersMany::measure(Laps *laps, const char *step, const std::function<void()> &work)
{
    const double begin = vxProcessorMilliseconds();
    work();
    QCoreApplication::processEvents();
    laps->append({step, vxProcessorMilliseconds() - begin});
}

/// What each step costs grows with the count and no faster.
void TestParametersMany::compare(int count, const std::function<Laps(int)> &lapsOf)
{
    Laps laps;
    const auto milliseconds = [&laps, &lapsOf](int size) {
        laps = lapsOf(size);
        std::vector<double> times;
        for (const auto &lap : qAsConst(laps))
            times.push_back(lap.second);
        return times;
    };
    const std::vector<double> ratios = vxGrowthOfSteps(count, Factor, MaxGrowth, milliseconds);
    for (int i = 0; i < laps.size(); ++i) {
        const double ratio = ratios.at(size_t(i));
        qInfo("%s: %.1f ms for %d, %.1f times as long as for %d", laps.at(i).first,
              laps.at(i).second, Factor * count, ratio, count);
        QVERIFY2(ratio < MaxGrowth, laps.at(i).first);
    }
}

void TestParametersMany::frames(int count) const
{
    for (int i = 1; i <= count; ++i) {
        vxScene->setTime(vxScene->getTime() + 160);
        QCoreApplication::processEvents();
    }
}

TestParametersMany::Laps TestParametersMany::lapsOfProperties(int count)
{
    auto *node = new VxNode(QStringLiteral("many"));
    vxScene->addNode(node);
    QStringList groups;
    QVector<VxFloatProperty *> properties;
    for (int i = 0; i < count; ++i) {
        const QString group = QStringLiteral("/Group %1").arg(i / 100);
        if (i % 100 == 0)
            groups.append(group);
        properties.append(new VxFloatProperty(QStringLiteral("p%1").arg(i)));
        node->addProperty(properties.last(), group);
        if (i % 2) {
            properties.last()->setKey(0, 1.0f, 0);
            properties.last()->setKey(4800, 9.0f, 0);
        }
    }
    const auto again = [node] {
        vxScene->selectAllNodes(false);
        node->select();
    };
    Laps laps;
    measure(&laps, "select", again);
    measure(&laps, "30 frames", [this] { frames(30); });
    measure(&laps, "close one group", [this] { view()->setGroupCollapsed("/Group 3", true); });
    measure(&laps, "close all groups", [&] { view()->setCollapsedGroups(groups); });
    measure(&laps, "open all groups", [this] { view()->setCollapsedGroups({}); });
    measure(&laps, "select all rows", [this] { view()->selectAll(); });
    measure(&laps, "select again with all rows selected", again);
    measure(&laps, "set keys in all rows", [&] { click(properties.first(), Model::KeyColumn); });
    measure(&laps, "undo", [] { vxApp->getUndoStack()->undo(); });
    for (int row = 0; row < model()->rowCount(); row += 10)
        view()->selectionModel()->select(model()->index(row, 0),
                                         QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    measure(&laps, "select again with most rows selected", again);
    measure(&laps, "take all properties away", [&] {
        for (int i = properties.size() - 1; i >= 0; --i)
            node->removeProperty(properties.at(i));
    });
    vxScene->clear();
    return laps;
}

void TestParametersMany::manyProperties()
{
    // Slower than later runs.
    const Laps first = lapsOfProperties(1000);
    QVERIFY2(first.first().second < 60, "a node with a thousand properties is selected at once");
    compare(1000, [this](int count) { return lapsOfProperties(count); });
}

TestParametersMany::Laps TestParametersMany::lapsOfNodes(int count)
{
    VxSceneBuilder builder(vxScene);
    QVector<VxNode *> nodes;
    for (int i = 0; i < count; ++i)
        nodes.append(builder.addNode(QStringLiteral("n%1").arg(i)));
    Laps laps;
    measure(&laps, "select", [] { vxScene->selectAllNodes(true); });
    measure(&laps, "30 frames", [this] { frames(30); });
    VxFloatProperty *x = vxScene->getPrimarySelection()->getXPosControl();
    measure(&laps, "50 moves of a drag", [this, x] { drag(x, 50); });
    [&] { QCOMPARE(nodes.first()->getXPosControl()->getValue(), 25.0f); }();
    measure(&laps, "undo", [] { vxApp->getUndoStack()->undo(); });
    measure(&laps, "type", [this, x] { type(x, "7"); });
    [&] { QCOMPARE(nodes.first()->getXPosControl()->getValue(), 7.0f); }();
    measure(&laps, "one node less", [&] { nodes.last()->select(false); });
    measure(&laps, "remove all nodes", [&] {
        for (VxNode *node : qAsConst(nodes))
            vxScene->removeNode(node);
    });
    vxScene->clear();
    return laps;
}

void TestParametersMany::manyNodes()
{
    lapsOfNodes(250); // slower than later runs
    compare(250, [this](int count) { return lapsOfNodes(count); });
}

/// The rows of one bone, while a scene of four million keys plays.
void TestParametersMany::aFrameOfALargeScene()
{
    vxScene->clear();
    VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::M);
    vxScene->getNodes().last()->select();
    QCoreApplication::processEvents();
    frames(20);
    Laps laps;
    measure(&laps, "shown", [this] { frames(200); });
    m_pane->hide();
    measure(&laps, "hidden", [this] { frames(200); });
    qInfo("a frame: %.3f ms with the pane shown, %.3f ms with it hidden", laps.at(0).second / 200,
          laps.at(1).second / 200);
    QVERIFY(laps.at(0).second / 200 < 5);
}

VX_TEST_UNIT(&runParametersTest<TestParametersMany>)

#include "tst_parametersmany.moc"
