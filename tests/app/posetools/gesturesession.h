#ifndef GESTURESESSION_H
#define GESTURESESSION_H

#include "../scenebytes.h"
#include "create/createedits.h"
#include "posetools/posetools.h"
#include "posetools/posetoolsettings.h"
#include "posetools/transformtool.h"
#include "scenetree/sceneedits.h"
#include "testing/vxmousedriver.h"
#include "viewport/motiontrails.h"
#include "viewport/viewportwidget.h"

#include <QPainter>
#include <memory>
#include <random>
#include <vxcore/vxapp.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>
#include <vxcore/vxviewportmgr.h>

/// Random gestures with the tools of a viewport on a scene full of odd nodes: bones without length,
/// scales of zero, locks, limits, links and aliases. Nodes are removed and re-parented, and the
/// time and the tool are changed, in the middle of drags.
class GestureSession
{
public:
    explicit GestureSession(uint seed)
        : m_random(seed)
        , m_view(vxScene, &m_conventions)
        , m_tools(new PoseTools(vxScene, &m_view))
    {
        m_view.resize(500, 400);
        m_view.show();
        if (!QTest::qWaitForWindowExposed(&m_view))
            qFatal("the viewport is not shown");
        m_view.activateWindow();
        m_trails.setEnabled(true);
        fillScene();
        m_firstCamera = m_view.camera();
    }

    /// Makes gestures; checks the history after every round of them. Returns what is wrong.
    QString run(int gestures, int round = 20)
    {
        for (int done = 0; done < gestures; done += round) {
            const QString fault = runRound(qMin(round, gestures - done));
            if (!fault.isEmpty())
                return QStringLiteral("gesture %1: %2").arg(done).arg(fault);
            if (vxScene->getNumNodes() < 12 || vxScene->getNumNodes() > 90)
                fillScene();
        }
        return {};
    }

    int entries() const { return m_entries; }

private:
    int below(int limit) { return int(m_random() % quint32(limit)); }
    VxNode *anyNode() { return vxScene->getNodes().at(below(vxScene->getNumNodes())); }
    VxFloatProperty *anyChannel()
    {
        return qobject_cast<VxFloatProperty *>(anyNode()->getProperty(below(10)));
    }
    static VxUndoStack *history() { return vxApp->getUndoStack(); }
    QPoint anyPixel() { return {below(m_view.width()), below(m_view.height())}; }

    void fillScene()
    {
        vxScene->clear();
        CreateEdits::addFigure(vxScene);
        CreateEdits::addNode(vxScene, nullptr);
        CreateEdits::addNode(vxScene, anyNode());
        for (int i = 0; i < 30; ++i)
            spoil();
        m_view.frameAll();
    }

    /** What no gesture makes: it is part of the scene before the history starts. */
    void spoil()
    {
        const float scales[] = {0.0f, -1.0f, 1e-20f, 2.0f, 1e18f};
        switch (below(8)) {
        case 0:
            anyNode()->setOrigin({0, 0, 0});
            break;
        case 1:
            anyNode()->getScaleControl()->setStoredValue(scales[below(5)]);
            break;
        case 2:
            anyChannel()->setLocked(below(2));
            break;
        case 3:
            anyChannel()->setLink(below(2) ? anyChannel() : nullptr, below(2), 0.5, 1);
            break;
        case 4:
            anyChannel()->setAliasedProperty(below(2) ? anyChannel() : nullptr);
            break;
        case 5:
            anyChannel()->setMinMax(-20, 30, below(2));
            break;
        case 6:
            anyNode()->setRotationOrder(VxNode::RotationOrder(below(6)));
            break;
        default:
            anyChannel()->setKey(below(20) * 160, float(below(2000) - 1000) / 10, below(3));
        }
    }

    void choose()
    {
        using Settings = PoseToolSettings;
        m_tools->activate(PoseTools::Tool(below(PoseTools::ToolCount)));
        m_tools->settings()->setOrientation(Settings::Orientation(below(3)));
        m_tools->settings()->setPivot(Settings::Pivot(below(2)));
        vxScene->setTime(below(20) * 160);
        vxScene->setAnimating(below(4) > 0);
        if (below(3) == 0) {
            vxScene->selectAllNodes(false);
            for (int i = 1 + below(4); i > 0; --i)
                anyNode()->select();
        }
        if (below(5) == 0)
            pin();
        ViewportCamera camera = m_view.camera();
        camera.orbit(QPointF(below(200) - 100, below(100) - 50));
        if (below(10) == 0)
            camera.setOrthographic(below(2));
        m_view.setCamera(camera);
        if (below(10) == 0)
            m_view.frameSelection();
    }

    void pin()
    {
        VxUndoStackHold hold;
        anyNode()->setPinned(below(3) > 0);
        hold.accept(QStringLiteral("Pin"));
    }

    /** What a layer paints with the present camera. */
    QImage picture(const MotionTrails &trails) const
    {
        QImage image(m_view.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        trails.paint(&painter, m_view.camera(), m_view.palette());
        return image;
    }

    /** Kept trails are those that would be computed now. */
    bool areTrailsCurrent()
    {
        MotionTrails computed(vxScene);
        computed.setEnabled(true);
        return picture(m_trails) == picture(computed);
    }

    /** Mostly on the gizmo. */
    QPoint pressPixel()
    {
        const PoseTools::Tool active = m_tools->activeTool();
        const TransformTool *tool = active < PoseTools::ToolCount ? m_tools->tool(active) : nullptr;
        const auto target = tool ? tool->target() : std::nullopt;
        const GizmoKind kind = active == PoseTools::Rotate  ? GizmoKind::Rotate
                               : active == PoseTools::Scale ? GizmoKind::Scale
                                                            : GizmoKind::Move;
        if (!target || below(6) == 0)
            return anyPixel();
        const auto shapes = gizmoShapes(kind, target->frame, target->locks, m_view.camera());
        if (shapes.isEmpty())
            return anyPixel();
        const GizmoShape &shape = shapes.at(below(shapes.size()));
        const QPolygonF &points = shape.area.isEmpty() ? shape.line : shape.area;
        const QPointF point = points.at(below(points.size()));
        const QRectF near = QRectF(m_view.rect()).adjusted(-1e4, -1e4, 1e4, 1e4);
        return near.contains(point) ? point.toPoint() : anyPixel();
    }

    void disturb()
    {
        VxUndoStackHold hold;
        switch (below(10)) {
        case 0:
            SceneEdits::remove(vxScene, {anyNode()});
            break;
        case 1:
            SceneEdits::move(vxScene, {anyNode()}, below(3) ? anyNode() : nullptr, -1,
                             below(2) ? SceneEdits::Kept::WorldPlace : SceneEdits::Kept::Values);
            break;
        case 2:
            vxScene->setTime(below(20) * 160);
            break;
        case 3:
            m_tools->activate(PoseTools::Tool(below(PoseTools::ToolCount)));
            break;
        case 4:
            anyChannel()->setKey(vxScene->getTime(), float(below(100)), 0);
            break;
        case 5:
            vxScene->setAnimating(below(2));
            break;
        default:
            break;
        }
        hold.accept(QStringLiteral("Disturb"));
    }

    void type()
    {
        static const int keys[] = {Qt::Key_1,      Qt::Key_9,      Qt::Key_0,
                                   Qt::Key_Period, Qt::Key_Minus,  Qt::Key_Backspace,
                                   Qt::Key_Slash,  Qt::Key_Return, Qt::Key_Escape};
        const int key = keys[below(9)];
        const QString text = key < 128 ? QString(QChar(key)) : QString();
        QTest::sendKeyEvent(QTest::Click, &m_view, Qt::Key(key), text, Qt::NoModifier);
    }

    void gesture()
    {
        choose();
        VxMouseDriver mouse(&m_view);
        QPoint at = pressPixel();
        if (below(3) == 0)
            mouse.moveTo(at);
        mouse.press(at);
        const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                   Qt::ShiftModifier, Qt::ControlModifier};
        for (int i = below(6); i > 0; --i) {
            at = below(8) ? at + QPoint(below(80) - 40, below(80) - 40) : anyPixel();
            mouse.moveTo(at, modifiers[below(4)]);
            if (below(5) == 0)
                type();
            if (below(12) == 0)
                disturb();
        }
        mouse.release(at);
        if (below(20) == 0)
            m_view.grab();
    }

    QString runRound(int count)
    {
        history()->clear();
        const QByteArray start = state();
        for (int i = 0; i < count && vxScene->getNumNodes() > 3; ++i) {
            gesture();
            const QString fault = keyFault();
            if (!fault.isEmpty())
                return fault;
            if (below(4) == 0 && !areTrailsCurrent())
                return QStringLiteral("a motion trail is not that of the present values");
        }
        QCoreApplication::processEvents();
        m_entries += history()->count();
        const QByteArray end = state();
        for (int again = 0; again < 2; ++again) {
            while (history()->canUndo())
                history()->undo();
            if (state() != start)
                return QStringLiteral("undo of all entries does not lead to the start");
            while (history()->canRedo())
                history()->redo();
            if (state() != end)
                return QStringLiteral("redo of all entries does not lead to the end");
        }
        return {};
    }

    /** The scene without time and camera, which no entry contains. */
    QByteArray state()
    {
        makeAllControls();
        vxScene->setTime(0);
        vxScene->setAnimating(true);
        const ViewportCamera camera = m_view.camera();
        m_view.setCamera(m_firstCamera);
        const QByteArray bytes = sceneBytes();
        m_view.setCamera(camera);
        return bytes;
    }

    std::mt19937 m_random;
    VxApp m_app;
    VxViewportMgr m_conventions;
    ViewportWidget m_view;
    PoseTools *m_tools;
    MotionTrails m_trails{vxScene};
    ViewportCamera m_firstCamera;
    int m_entries = 0;
};

#endif
