#ifndef POSETOOLS_H
#define POSETOOLS_H

#include <QObject>
#include <array>

class PoseToolSettings;
class TransformTool;
class ViewportWidget;
class VxScene;

/// The tools of the viewport that pose nodes, with what they share. A child of the viewport.
class PoseTools : public QObject
{
    Q_OBJECT
public:
    enum Tool { Select, Move, Rotate, Scale, Ik, ToolCount };

    /// Both are borrowed; the viewport must outlive the object. Adds the mark of Auto Key to the
    /// viewport's layers.
    PoseTools(VxScene *scene, ViewportWidget *viewport);

    /// Those of the program's window; null without one.
    static PoseTools *current();

    PoseToolSettings *settings() const { return m_settings; }
    /// Null for Select.
    TransformTool *tool(Tool tool) const { return m_tools[std::size_t(tool)]; }
    /// The viewport's tool; ToolCount for one of others.
    Tool activeTool() const;
    void activate(Tool tool);

    /// The title of a tool for buttons.
    static QString title(Tool tool);

    /// Pins all selected nodes in IK, or none of them when all are pinned. Returns the sentence for
    /// the status line.
    QString togglePins();
    /// True when there are selected nodes and all are pinned.
    bool areSelectedPinned() const;

Q_SIGNALS:
    void activeToolChanged();

private:
    VxScene *const m_scene;
    ViewportWidget *const m_viewport;
    PoseToolSettings *const m_settings;
    std::array<TransformTool *, ToolCount> m_tools = {};
};

#endif
