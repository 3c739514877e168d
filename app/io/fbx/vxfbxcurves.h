#ifndef VXFBXCURVES_H
#define VXFBXCURVES_H

#include "io/fbx/vxfbxarrays.h"
#include "io/fbx/vxfbxtangents.h"
#include "io/motion/vximportedmotion.h"

/// A curve of an FBX document.
struct VxFbxCurve
{
    VxMotionCurve keys;
    bool isExtrapolated = false; ///< does not hold its end values outside of its keys
};

/// Reads curves ("AnimationCurve" objects): keys, and slopes of every kind of tangent.
///
/// - Slopes that the file leaves to its reader (automatic, clamped, tension-continuity-bias) are
///   computed; a tension-continuity-bias key becomes a cubic one with those slopes.
/// - Keys out of order are sorted, of keys at one time the last one is kept, keys whose value is
///   not a number are dropped; see notes().
/// - A segment that has the next key's value from its start becomes a step one tick of 1/4800 s
///   after its key.
class VxFbxCurves
{
public:
    /// The records must outlive the reader. Version as in the file's header.
    VxFbxCurves(const VxFbxRecords &records, qint64 version, double ticksPerSecond);

    /// Reads the curve of an object's record. False with error() set when the arrays are damaged
    /// or inconsistent.
    bool read(VxFbxRecords::Index record, VxFbxCurve *out);

    const VxFileError &error() const { return m_error; }
    /// Keys that were sorted, dropped or merged, as sentences. Complete after the last read().
    QStringList notes() const;

private:
    struct Key
    {
        qint64 time; // ticks of the file
        float value;
        quint32 shape; // index into m_shapes
    };
    struct Shape
    {
        quint32 flags;
        std::array<float, 4> data;
    };

    bool fail(VxFbxRecords::Index record, const QString &message);
    bool readKeys(VxFbxRecords::Index record);
    bool checkTimes(VxFbxRecords::Index record, const std::vector<qint64> &times);
    bool spreadShapes(VxFbxRecords::Index record, const std::vector<qint64> &flags,
                      const std::vector<float> &data, const std::vector<qint64> &counts);
    bool failRuns(VxFbxRecords::Index record);
    void tidyKeys();
    bool isExtrapolated(VxFbxRecords::Index record, std::string_view side) const;
    double seconds(const Key &key) const;
    VxFbxTangentKey tangentKey(std::size_t key) const;
    VxMotionShape shapeOf(std::size_t key) const;
    void build(VxMotionCurve *out) const;

    const VxFbxRecords &m_records;
    VxFbxArrays m_arrays;
    VxFileError m_error;
    bool m_areBits;
    double m_ticksPerSecond;
    std::vector<Key> m_keys; // of the curve being read
    std::vector<Shape> m_shapes;
    int m_sortedCurves = 0;
    int m_mergedKeys = 0;
    int m_droppedKeys = 0;
};

#endif
