#ifndef VXSCENEVIEWS_H
#define VXSCENEVIEWS_H

#include <QtCore/QObject>
#include <array>
#include <memory>
#include <optional>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtimerange.h>

class VxScene;

/// The stored views of a scene: time ranges to return to, part of the document. Each is empty or a
/// range; a cleared scene has none.
class VXCORE_EXPORT VxSceneViews : public QObject
{
    Q_OBJECT
public:
    static constexpr int Count = 3;
    using Views = std::array<std::optional<VxTimeRange>, Count>;

    /// The views of a scene, which owns them. Never null for a scene.
    static VxSceneViews *of(VxScene *scene);
    /// A copy of a scene's views.
    static Views viewsOf(const VxScene *scene);
    ~VxSceneViews() override;

    const Views &views() const;
    /// Null for an empty view and for an index out of range.
    std::optional<VxTimeRange> view(int index) const;
    /// Replaces all of them, or one; recorded for undo within a hold. An index out of range is
    /// ignored.
    void setViews(const Views &views);
    void setView(int index, const std::optional<VxTimeRange> &range);

Q_SIGNALS:
    void changed();

private:
    explicit VxSceneViews(VxScene *scene);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
