// A move of the mouse in a drag of the rotation gizmo: 170 bones with 300 keys a channel, all of
// them selected, and the Timeline's pane with an open key graph on their rotations; or, without a
// pane, one bone in the middle of a hierarchy of 10,000, or its limb with the IK tool. Painting
// does not count: updates are disabled.
//
// Floor: the rotations alone, each converted to angles and written to an array of keys.

#include "allkeytypes.h"
#include "posetools/posetools.h"
#include "posetools/transformtool.h"
#include "viewport/viewportwidget.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <testing/vxscenebuilder.h>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxviewportmgr.h>

namespace {

constexpr int Bones = 170;
constexpr int ManyBones = 10000;
constexpr int Keys = 300;

void settle()
{
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
}

/// A viewport with a drag of the gizmo's part that is parallel to the view.
class GizmoDrag
{
public:
    explicit GizmoDrag(const VxViewportMgr *conventions)
        : m_view(vxScene, conventions)
        , m_tools(new PoseTools(vxScene, &m_view))
    {
        m_view.resize(800, 600);
        m_view.show();
        m_view.frameAll();
    }
    ~GizmoDrag() { m_view.setTool(nullptr); }

    void begin(PoseTools::Tool tool)
    {
        m_tools->activate(tool);
        settle();
        m_view.setUpdatesEnabled(false);
        const auto target = m_tools->tool(tool)->target();
        m_middle = m_view.camera().project(target->frame.origin).value_or(QPointF());
        const auto kind = tool == PoseTools::Rotate ? GizmoKind::Rotate : GizmoKind::Move;
        for (const GizmoShape &shape :
             gizmoShapes(kind, target->frame, target->locks, m_view.camera())) {
            if (shape.part == GizmoPart::View)
                m_start = (shape.line.isEmpty() ? shape.area : shape.line).first();
        }
        send(QEvent::MouseButtonPress, m_start);
        if (!m_tools->tool(tool)->isBusy())
            qFatal("the press misses the gizmo");
    }

    /// A move around the gizmo's origin by a small angle, with everything that it causes.
    void move()
    {
        m_angle += 1;
        QLineF arm(m_middle, m_start);
        arm.setAngle(arm.angle() + m_angle);
        send(QEvent::MouseMove, arm.p2());
        QCoreApplication::processEvents();
    }

private:
    void send(QEvent::Type type, const QPointF &at)
    {
        QMouseEvent event(type, at, m_view.mapToGlobal(at.toPoint()),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&m_view, &event);
    }

    ViewportWidget m_view;
    PoseTools *m_tools;
    QPointF m_middle;
    QPointF m_start;
    double m_angle = 0;
};

/// The rotation of all bones, shown by a pane.
class Fixture
{
public:
    Fixture()
    {
        m_window.getPaneMgr()->addPane(m_pane);
        m_app.start();
        VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::S);
        m_types.addTo(m_pane);
        m_pane->setViewMode(VxTimePane::AdvancedView);
        m_pane->setKeyGraphOpen(true);
        m_pane->resize(1600, 800);
        m_pane->show();
        vxScene->selectAllNodes(true);
        settle();
        auto *rows = m_pane->findChild<VxDopeSheetView *>();
        rows->expandAll();
        rows->selectAll();
        settle();
        m_pane->setUpdatesEnabled(false);
        vxScene->setTime(160 * 100);
        m_drag = std::make_unique<GizmoDrag>(m_window.getViewportMgr());
        m_drag->begin(PoseTools::Rotate);
    }

    GizmoDrag &drag() { return *m_drag; }
    int graphChannels() const { return m_pane->findChild<VxKeyGraph *>()->getChannels().size(); }

private:
    VxApp m_app;
    VxMainWindow m_window;
    AllKeyTypes m_types;
    VxTimePane *m_pane = new VxTimePane; // the pane manager's
    std::unique_ptr<GizmoDrag> m_drag;
};

void dragMove(benchmark::State &state)
{
    Fixture fixture;
    fixture.drag().move();
    for (auto _ : state)
        fixture.drag().move();
    state.counters["graph_channels"] = fixture.graphChannels();
}

/// Chains of ten bones below one node, two of every bone's channels with keys.
void addManyBones()
{
    auto *root = new VxNode(QStringLiteral("root"));
    for (int chain = 0; chain < ManyBones / 10; ++chain) {
        VxNode *last = root;
        for (int i = 0; i < 10; ++i) {
            auto *bone = new VxBone(QStringLiteral("bone %1 %2").arg(chain).arg(i));
            bone->setOrigin(i == 0 ? QVector3D(float(chain % 40) * 3, 0, float(chain) / 40 * 3)
                                   : QVector3D(0, 1, 0));
            bone->setEndPoint({0, 1, 0});
            bone->getXRotControl()->setKey(0, float(i % 3) * 20, 0);
            bone->getZRotControl()->setKey(4800, 10, 0);
            last->addNodeChild(bone);
            last = bone;
        }
    }
    vxScene->addNode(root);
}

void dragAmongManyBones(benchmark::State &state)
{
    const VxApp app;
    const VxViewportMgr conventions;
    addManyBones();
    vxScene->findNode(QStringLiteral("bone 500 5"))->select();
    GizmoDrag drag(&conventions);
    drag.begin(PoseTools::Tool(state.range(0)));
    drag.move();
    for (auto _ : state)
        drag.move();
}

void dragFloor(benchmark::State &state)
{
    std::vector<VxTime> times(Keys);
    for (int i = 0; i < Keys; ++i)
        times[size_t(i)] = i * 160;
    std::vector<std::vector<float>> values(Bones * 3, std::vector<float>(Keys));
    double angle = 0;
    for (auto _ : state) {
        angle += 1;
        for (size_t bone = 0; bone < Bones; ++bone) {
            const VxEuler angles = vxEulerAngles(
                vxRotation(vxRotationAbout({0.2, 0.9, 0.1}, angle)), VxRotationOrder::ZYX);
            for (size_t axis = 0; axis < 3; ++axis) {
                const auto key = std::lower_bound(times.begin(), times.end(), 16000);
                values[bone * 3 + axis][size_t(key - times.begin())] = float(angles[axis]);
            }
        }
        benchmark::DoNotOptimize(values.data());
    }
}

BENCHMARK(dragMove)->Unit(benchmark::kMillisecond);
BENCHMARK(dragAmongManyBones)
    ->Arg(PoseTools::Rotate)
    ->Arg(PoseTools::Ik)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(dragFloor)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
