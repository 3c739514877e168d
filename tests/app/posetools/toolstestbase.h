#ifndef TOOLSTESTBASE_H
#define TOOLSTESTBASE_H

#include "../posetestbase.h"
#include "posetools/limb.h"
#include "posetools/posetools.h"
#include "posetools/transformtool.h"
#include "testing/vxmousedriver.h"

/// The program with the shipped figure, and a mouse that grabs parts of gizmos.
class PoseToolTest : public PoseTest
{
protected:
    void newFigure() const
    {
        newScene();
        vxScene->setAnimating(true);
        tools()->settings()->setOrientation(PoseToolSettings::Orientation::Local);
        tools()->settings()->setPivot(PoseToolSettings::Pivot::Own);
        view()->grab(); // the first figure in a view is framed when it is painted
        window()->viewport()->setCamera(ViewportCamera(startCamera()));
        window()->viewport()->setFocus();
    }

    ViewportCamera startCamera() const
    {
        ViewportCamera camera;
        camera.setViewSize(window()->viewport()->size());
        camera.frame({{-90, 0, -20}, {90, 180, 20}});
        return camera;
    }

    ViewportWidget *view() const { return window()->viewport(); }
    PoseTools *tools() const { return window()->findChild<PoseTools *>(); }
    TransformTool *tool() const { return tools()->tool(tools()->activeTool()); }

    void use(PoseTools::Tool tool, const QStringList &names) const
    {
        tools()->activate(tool);
        if (!names.isEmpty())
            select(names);
    }

    GizmoKind kind() const
    {
        return tools()->activeTool() == PoseTools::Rotate  ? GizmoKind::Rotate
               : tools()->activeTool() == PoseTools::Scale ? GizmoKind::Scale
                                                           : GizmoKind::Move;
    }

    /// A pixel of a part at which no other part is nearer; (-1, -1) when it cannot be hit.
    QPoint pixelOf(GizmoPart part) const
    {
        const auto target = tool()->target();
        if (!target)
            return {-1, -1};
        const auto shapes = gizmoShapes(kind(), target->frame, target->locks, view()->camera());
        for (const GizmoShape &shape : shapes) {
            if (shape.part != part)
                continue;
            QPolygonF points = shape.line;
            if (shape.line.size() == 2)
                points =
                    QPolygonF(QVector<QPointF>{QLineF(shape.line[0], shape.line[1]).pointAt(0.7)});
            else if (!shape.area.isEmpty())
                points = QPolygonF(QVector<QPointF>{shape.area.boundingRect().center()});
            for (const QPointF &point : points) {
                if (view()->rect().contains(point.toPoint()) && !view()->childAt(point.toPoint()) &&
                    hitGizmo(shapes, point.toPoint()) == part)
                    return point.toPoint();
            }
        }
        return {-1, -1};
    }

    QPoint pixelOf(const VxNode *node) const
    {
        return view()->camera().project(place(node)).value_or(QPointF(-1, -1)).toPoint();
    }

    static QVector3D place(const VxNode *node)
    {
        return node->getWorldTransform(vxScene->getTime()).column(3).toVector3D();
    }

    /// Presses a part, types a text and ends with Enter.
    void typeAmount(GizmoPart part, const QString &text) const
    {
        const QPoint at = pixelOf(part);
        QVERIFY2(at.x() >= 0, "the part cannot be hit");
        VxMouseDriver mouse(view());
        mouse.press(at);
        QTest::keyClicks(static_cast<QWidget *>(view()), text);
        type(Qt::Key_Return);
        mouse.release(at);
    }
};

#endif
