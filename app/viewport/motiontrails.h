#ifndef MOTIONTRAILS_H
#define MOTIONTRAILS_H

#include "viewport/motiontrail.h"
#include "viewport/viewporttool.h"

#include <QPointer>
#include <vector>

class VxScene;

/// The motion trails of the selected nodes over the play range, as a layer of the viewport: frames
/// as dots, keys as larger ones (of keys on neighbouring frames the first and the last), in one
/// colour before the playhead and in another after it. A click on a dot sets the scene's time.
///
/// A trail is kept until values or parents of its node, or of a node above, or the play range
/// change; time and camera do not count, so that playback only projects and paints.
class MotionTrails : public ViewportTool
{
    Q_OBJECT
public:
    /// More selected nodes than this have no trail.
    static constexpr int MaxTrails = 32;
    /// Maximum distance, in pixels, from the mouse to a dot.
    static constexpr double DotReach = 6;

    /// The scene is borrowed and must outlive the layer.
    explicit MotionTrails(VxScene *scene, QObject *parent = nullptr);

    /// Initially false.
    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);

    /// The number of trails computed so far, for measurements.
    int numComputed() const { return m_numComputed; }

    bool press(const ViewportPointer &at) override;
    void release(const ViewportPointer &at) override;
    bool hover(const ViewportPointer &at) override;
    void leave() override;
    bool isBusy() const override { return m_pressed.has_value(); }
    void cancel() override;
    void paint(QPainter *painter, const ViewportCamera &camera,
               const QPalette &palette) const override;

Q_SIGNALS:
    void enabledChanged(bool enabled);

private:
    struct Trail
    {
        QPointer<VxNode> node;
        QVector<TrailLink> links;
        MotionTrail trail;
    };

    /// The trails of the present selection, computed where needed.
    const std::vector<Trail> &trails() const;
    void drop();
    void dropTrailsOf(const VxNode *node);
    const MotionTrail::Dot *dotAt(const QPointF &pixel, const ViewportCamera &camera) const;
    void setHovered(const std::optional<MotionTrail::Dot> &dot);
    void paintTrail(const MotionTrail &trail, QPainter *painter, const ViewportCamera &camera,
                    const QPalette &palette) const;
    void paintHovered(QPainter *painter, const ViewportCamera &camera,
                      const QPalette &palette) const;

    VxScene *const m_scene;
    bool m_isEnabled = false;
    mutable std::vector<Trail> m_trails;
    mutable int m_numComputed = 0;
    std::optional<VxTime> m_pressed;
    std::optional<MotionTrail::Dot> m_hovered;
};

#endif
