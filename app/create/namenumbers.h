#ifndef NAMENUMBERS_H
#define NAMENUMBERS_H

#include <QHash>
#include <QString>
#include <QVector>

class VxNode;
class VxScene;

/// Names for new nodes and copies that no node of a scene has yet.
///
/// A copy's number follows an underscore: "Hips_2". In a name of the left or right side whose side
/// is at the end, it precedes the side, so that mirrored names remain pairs: "Hand_L" becomes
/// "Hand_2_L".
class NameNumbers
{
public:
    /// Reads the names of a scene once; names that are given out are added to them.
    explicit NameNumbers(const VxScene *scene);

    /// The name itself while it is free, else the name with the lowest number above all in use.
    QString unique(const QString &name);
    /// Names for copies of nodes, in their order. All get the same number where their names allow
    /// it.
    QStringList copies(const QVector<VxNode *> &nodes);

    /// The name without a copy's number: "Hips" for "Hips_2", "Hand_L" for "Hand_2_L".
    static QString withoutNumber(const QString &name);

private:
    struct Parts
    {
        QString stem;
        QString side; ///< "_L" at the end of "Hand_L"; usually empty
        int number;   ///< 1 without a number
    };
    static Parts split(const QString &name);
    static QString join(const Parts &parts);
    void add(const QString &name);
    int nextNumber(const Parts &parts) const;
    QString take(Parts parts, int number);

    QHash<QString, int> m_highest; ///< by stem and side: the highest number in use
};

#endif
