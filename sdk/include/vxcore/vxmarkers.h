#ifndef VXMARKERS_H
#define VXMARKERS_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/qrgb.h>
#include <memory>
#include <optional>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtimerange.h>

class VxScene;

/// A named, coloured point or span of time.
struct VxMarker
{
    static constexpr QRgb DefaultColor = 0xffe0a030;

    int id = 0; ///< given by VxMarkers, above 0; the same after undo and redo, not stored in files
    QString name;
    VxTimeRange span;          ///< ticks, ends included; of a point both ends are equal
    QRgb color = DefaultColor; ///< always opaque

    bool isPoint() const { return span.getStart() == span.getEnd(); }

    friend bool operator==(const VxMarker &a, const VxMarker &b)
    {
        return a.id == b.id && a.name == b.name && a.span == b.span && a.color == b.color;
    }
    friend bool operator!=(const VxMarker &a, const VxMarker &b) { return !(a == b); }
};
Q_DECLARE_TYPEINFO(VxMarker, Q_MOVABLE_TYPE);

/// Markers in ascending order of their starts; of equal starts by end, then by id.
using VxMarkerList = QVector<VxMarker>;

/// The markers of a scene, part of the document; a cleared scene has none.
///
/// Changes are recorded for undo within a hold, as one item however many there are. An undo entry
/// needs memory in proportion to the markers that it changed.
class VXCORE_EXPORT VxMarkers : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)
public:
    /// The markers of a scene, which owns them. Never null for a scene.
    static VxMarkers *of(VxScene *scene);
    /// A copy of a scene's markers.
    static VxMarkerList listOf(const VxScene *scene);
    ~VxMarkers() override;

    int count() const;
    /// Valid until the next change.
    const VxMarkerList &list() const;
    /// The index of a marker in list(); -1 for an unknown id.
    int indexOf(int id) const;
    /// A copy of a marker; null for an unknown id.
    std::optional<VxMarker> find(int id) const;

    /// Adds markers and returns their new ids, in the order given. The ids of the argument are
    /// ignored, an end before the start counts as the start, and colours become opaque.
    QVector<int> add(const VxMarkerList &markers);
    int add(const VxMarker &marker);
    /// Replaces the markers of the same ids; unknown ids are ignored.
    void set(const VxMarkerList &markers);
    void set(const VxMarker &marker);
    /// Unknown ids are ignored.
    void remove(const QVector<int> &ids);
    /// Replaces all markers by new ones, as by add().
    void replaceAll(const VxMarkerList &markers);

    /// The nearest time after (or before) a time at which a marker starts or ends; null for none.
    std::optional<VxTime> timeAfter(VxTime time) const;
    std::optional<VxTime> timeBefore(VxTime time) const;

Q_SIGNALS:
    /// Sent once for all changes of a VxChangeBlock, at its end; else at once.
    void changed();

private:
    explicit VxMarkers(VxScene *scene);
    class Private;
    class UndoItem;
    std::unique_ptr<Private> d;
};

#endif
