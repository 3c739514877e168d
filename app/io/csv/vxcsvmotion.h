#ifndef VXCSVMOTION_H
#define VXCSVMOTION_H

#include "io/csv/vxcsvnames.h"
#include "io/csv/vxcsvrows.h"

#include <QPair>

/// Collects the nodes and the curves of a CSV file while its rows are read. Every function that
/// returns a bool sets an error with line and column when that is false.
class VxCsvMotion
{
public:
    /// The rows are borrowed, for the line of an error.
    explicit VxCsvMotion(const VxCsvRows &rows);

    /// The node of a name, made when it is new; -1 with an error.
    int node(const QString &text, int column);
    /// An empty text leaves the node unchanged; one that contradicts an earlier one is an error.
    bool setParent(int node, const QString &text, int column);
    bool setKind(int node, const QString &text, int column);
    bool setOrder(int node, const QString &text, int column);

    /// The number of a node's property among all of the file; -1 with an error.
    int property(int node, const QString &text, int column);
    /// The value of a property without keys.
    bool setValue(int property, double value, int column);
    /// Appends a key to the property. The end of a bone is a constant: all its keys must be equal.
    bool addKey(int property, double time, double value, const VxMotionShape &shape,
                int timeColumn);

    /// Converts properties whose keys all have the same value to constants.
    void dropConstantKeys();
    /// Moves the collected data to a motion with at most one clip.
    void finish(const QString &form, VxImportedMotion *motion);

private:
    struct Curve
    {
        int node = 0;
        VxCsvNames::Property property;
        int index = 0; ///< of a morph or a further property
        bool hasValue = false;
        double value = 0.0;
        bool isShaped = false; ///< not all segments are linear
        VxMotionCurve keys;
    };
    struct Declared
    {
        bool hasKind = false;
        bool hasOrder = false;
    };

    bool fail(int column, const QString &message) const { return m_rows.fail(column, message); }
    void setRest(const Curve &curve);

    const VxCsvRows &m_rows;
    QHash<QString, int> m_nodeOf;
    QHash<QPair<int, QString>, int> m_propertyOf; ///< by node and name
    std::vector<VxMotionNode> m_nodes;
    std::vector<Declared> m_declared;
    std::vector<Curve> m_curves;
    qint64 m_numKeys = 0;
};

#endif
