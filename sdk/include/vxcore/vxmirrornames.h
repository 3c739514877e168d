#ifndef VXMIRRORNAMES_H
#define VXMIRRORNAMES_H

#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxcoreglobal.h>

/// Pairs of names of the left and the right side, such as LeftFoot and RightFoot.
///
/// A pair has two patterns with one star each for the part that both names share: Left* and
/// Right*, *_L and *_R. A pattern matches whole words only: a prefix that ends in a small letter is
/// not followed by another one ("Left*" matches LeftFoot, not Leftover; "l*" matches lFoot, not
/// leg), and the capital that begins a suffix does not follow a capital. A name space before the
/// last colon is ignored.
class VXCORE_EXPORT VxMirrorNames
{
public:
    using Pair = QPair<QString, QString>;

    /// The pairs in use everywhere: Left and Right (also left and right) at the beginning and at
    /// the end, L_ _L .L and l, each with its counterpart.
    static QVector<Pair> defaultPairs();

    explicit VxMirrorNames(const QVector<Pair> &pairs = defaultPairs());

    /// The name of the other side; empty for a name without a side. The first matching pair counts.
    QString mirrored(const QString &name) const;

    /// Reads pairs such as "Left*/Right*, *_L/*_R". Returns no pairs, and the offending part in
    /// `error`, unless each part has two different patterns with one star each.
    static QVector<Pair> pairsFromText(const QString &text, QString *error = nullptr);

private:
    QVector<Pair> m_pairs;
};

#endif
