#ifndef NAMENUMBERS_H
#define NAMENUMBERS_H

#include <QHash>
#include <QStringList>
#include <QVector>
#include <vxcore/vxcopyname.h>

class VxNode;
class VxScene;

/// Names for new nodes and copies that no node of a scene has yet.
///
/// Copies are numbered as VxCopyName describes: "Hips" becomes "Hips_2", "Hand_L" becomes
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

private:
    void add(const QString &name);
    int nextNumber(const VxCopyName &parts) const;
    QString take(VxCopyName parts, int number);

    QHash<QString, int> m_highest; ///< by stem and side: the highest number in use
};

#endif
