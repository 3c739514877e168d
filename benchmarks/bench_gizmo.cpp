// A move of the mouse in a drag of the rotation gizmo: 170 bones with 300 keys a channel, all of
// them selected, and the Timeline's pane with an open key graph on their rotations. Painting does
// not count: updates are disabled.
//
// Floor: the rotations alone, each converted to angles and written to an array of keys.

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <benchmark/benchmark.h>
#include <testing/vxscenebuilder.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>

#include "posetools/posetools.h"
#include "posetools/transformtool.h"
#include "viewport/viewportwidget.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int Bones = 170;
constexpr int Keys = 300;

/// A check mark for one type of property: without any, the rows show no keys.
class TypeAction : public QAction, public TimePaneChoice
{
public:
    explicit TypeAction(int type)
        : m_type(type)
    {
        setCheckable(true);
        setChecked(true);
    }

    Family family() const override { return PropertyTypeFamily; }
    int value() const override { return m_type; }

private:
    int m_type;
};

/// Viewport and pane, and a drag of the gizmo's outer ring that has begun.
class Fixture
{
public:
    Fixture()
    {
        m_window.getPaneMgr()->addPane(m_pane);
        m_app.start();
        VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::S);
        for (const int type : {1, 2, 4, 8}) {
            m_types.push_back(std::make_unique<TypeAction>(type));
            m_pane->registerAction(m_types.back().get());
        }
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
        m_view.resize(800, 600);
        m_view.show();
        m_view.frameAll();
        m_tools->activate(PoseTools::Rotate);
        settle();
        m_pane->setUpdatesEnabled(false);
        m_view.setUpdatesEnabled(false);
        vxScene->setTime(160 * 100);
        press();
    }

    ~Fixture() { m_view.setTool(nullptr); }

    static void settle()
    {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }

    /// A move by a small angle, and everything that it leads to.
    void move()
    {
        m_angle += 1;
        QLineF arm(m_middle, m_start);
        arm.setAngle(arm.angle() + m_angle);
        send(QEvent::MouseMove, arm.p2());
        QCoreApplication::processEvents();
    }

    int graphChannels() const { return m_pane->findChild<VxKeyGraph *>()->getChannels().size(); }

private:
    void press()
    {
        const auto target = m_tools->tool(PoseTools::Rotate)->target();
        m_middle = m_view.camera().project(target->frame.origin).value_or(QPointF());
        for (const GizmoShape &shape :
             gizmoShapes(GizmoKind::Rotate, target->frame, target->locks, m_view.camera())) {
            if (shape.part == GizmoPart::View)
                m_start = shape.line.first();
        }
        send(QEvent::MouseButtonPress, m_start);
        if (!m_tools->tool(PoseTools::Rotate)->isBusy())
            qFatal("the press misses the gizmo");
    }

    void send(QEvent::Type type, const QPointF &at)
    {
        QMouseEvent event(type, at, m_view.mapToGlobal(at.toPoint()),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&m_view, &event);
    }

    VxApp m_app;
    VxMainWindow m_window;
    std::vector<std::unique_ptr<TypeAction>> m_types;
    VxTimePane *m_pane = new VxTimePane; // the pane manager's
    ViewportWidget m_view{vxScene, m_window.getViewportMgr()};
    PoseTools *m_tools = new PoseTools(vxScene, &m_view);
    QPointF m_middle;
    QPointF m_start;
    double m_angle = 0;
};

void dragMove(benchmark::State &state)
{
    Fixture fixture;
    fixture.move();
    for (auto _ : state)
        fixture.move();
    state.counters["graph_channels"] = fixture.graphChannels();
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
