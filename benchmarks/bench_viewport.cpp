// The viewport of 1280 by 800 pixels with a figure of 170 bones in motion, the motion trails of
// five joints over 300 frames and the rotation gizmo: a frame of playback, and a frame after a
// curve has changed.
//
// Floor: QPainter drawing the same edges, lines and dots straight, already projected.

#include "posetools/posetools.h"
#include "posetools/transformtool.h"
#include "viewport/boneshape.h"
#include "viewport/motiontrails.h"
#include "viewport/viewportwidget.h"

#include <QApplication>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxviewportmgr.h>

namespace {

constexpr int Bones = 170;
constexpr int Limb = 17; // bones of a chain
constexpr int Frames = 300;
constexpr int Trails = 5;
constexpr VxTime Step = 160;

class Fixture
{
public:
    Fixture()
    {
        auto *figure = new VxSkeleton(QStringLiteral("figure"));
        vxScene->addNode(figure);
        for (int limb = 0; limb < Bones / Limb; ++limb)
            addLimb(figure, limb);
        vxScene->setPlayRange({0, (Frames - 1) * Step});
        m_view.addLayer(&m_trails);
        m_view.resize(1280, 800);
        m_view.frameAll();
        m_trails.setEnabled(true);
        m_tools->activate(PoseTools::Rotate);
        paint();
    }

    void paint() { m_view.render(&m_target); }
    ViewportWidget &view() { return m_view; }
    TransformTool *gizmo() { return m_tools->tool(PoseTools::Rotate); }
    QImage &target() { return m_target; }
    const QVector<VxNode *> &joints() const { return m_joints; }

private:
    void addLimb(VxNode *figure, int limb)
    {
        VxNode *last = figure;
        for (int i = 0; i < Limb; ++i) {
            auto *bone = new VxBone(QStringLiteral("bone %1 %2").arg(limb).arg(i));
            bone->setOrigin(i == 0 ? QVector3D(float(limb) * 3, 0, 0) : QVector3D(0, 1, 0));
            bone->setEndPoint({0, 1, 0});
            for (int frame = 0; frame < Frames; frame += 10)
                bone->getXRotControl()->setKey(frame * Step, float((frame * 7 + i * 5) % 23 - 11),
                                               0);
            vxScene->addNode(bone, last);
            last = bone;
        }
        if (limb < Trails) {
            last->select();
            m_joints.append(last);
        }
    }

    VxApp m_app;
    VxViewportMgr m_conventions;
    ViewportWidget m_view{vxScene, &m_conventions};
    PoseTools *m_tools = new PoseTools(vxScene, &m_view);
    MotionTrails m_trails{vxScene};
    QImage m_target{QSize(1280, 800), QImage::Format_ARGB32_Premultiplied};
    QVector<VxNode *> m_joints;
};

void playbackFrame(benchmark::State &state)
{
    Fixture fixture;
    int frame = 0;
    for (auto _ : state) {
        vxScene->setTime(Step * (frame = (frame + 1) % Frames));
        fixture.paint();
    }
}

void frameAfterAChange(benchmark::State &state)
{
    Fixture fixture;
    float value = 0;
    for (auto _ : state) {
        fixture.joints().first()->getNodeParent()->getXRotControl()->setKey(800, value += 0.01f, 0);
        fixture.paint();
    }
}

void drawnStraight(benchmark::State &state)
{
    Fixture fixture;
    const ViewportCamera &camera = fixture.view().camera();
    const FigureLines figure = FigureLines::collect(*vxScene, 0);
    QVector<QLineF> edges;
    QVector<QPointF> joints;
    for (const FigureLines::Bone &bone : figure.bones) {
        const auto shape = boneShape(bone, camera);
        if (!shape)
            continue;
        edges += shape->ridges;
        for (int i = 0; i < shape->outline.size(); ++i)
            edges.append(
                {shape->outline.at(i), shape->outline.at((i + 1) % shape->outline.size())});
    }
    for (const FigureLines::Joint &joint : figure.joints)
        joints.append(camera.project(joint.at).value_or(QPointF()));
    QVector<QPolygonF> lines;
    for (const VxNode *joint : fixture.joints()) {
        QPolygonF line;
        for (const MotionTrail::Dot &dot :
             MotionTrail::of(joint, vxScene->getPlayRange(), Step).dots)
            line.append(camera.project(dot.at).value_or(QPointF()));
        lines.append(line);
    }
    const auto target = fixture.gizmo()->target();
    const QVector<GizmoShape> gizmo =
        gizmoShapes(GizmoKind::Rotate, target->frame, target->locks, camera);
    QPixmap ground(fixture.target().size());
    ground.fill(Qt::black);
    for (auto _ : state) {
        QPainter painter(&fixture.target());
        painter.drawPixmap(0, 0, ground);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, 1, Qt::SolidLine, Qt::RoundCap));
        painter.drawLines(edges);
        painter.setPen(QPen(Qt::white, 4.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawPoints(joints.constData(), joints.size());
        painter.setPen(QPen(Qt::white, 0));
        for (const QPolygonF &line : lines) {
            painter.drawPolyline(line);
            for (const QPointF &dot : line)
                painter.fillRect(QRectF(dot, QSizeF(2, 2)), Qt::white);
        }
        for (const GizmoShape &shape : gizmo) {
            painter.setPen(QPen(Qt::black, 5.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(shape.line);
            painter.setPen(QPen(Qt::white, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(shape.line);
            painter.setPen(QPen(Qt::white, 1.2));
            painter.drawPolyline(shape.back);
        }
    }
}

BENCHMARK(playbackFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(frameAfterAChange)->Unit(benchmark::kMillisecond);
BENCHMARK(drawnStraight)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
