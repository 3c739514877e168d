#ifndef POSETOOLSETTINGS_H
#define POSETOOLSETTINGS_H

#include <QObject>

/// What the pose tools share: the orientation of their gizmos and the pivot.
class PoseToolSettings : public QObject
{
    Q_OBJECT
public:
    enum class Orientation { Local, Parent, World };
    enum class Pivot {
        Own,   ///< every node about its own origin
        Common ///< all nodes about the middle of their origins
    };

    using QObject::QObject;

    Orientation orientation() const { return m_orientation; }
    void setOrientation(Orientation orientation);
    Pivot pivot() const { return m_pivot; }
    void setPivot(Pivot pivot);

Q_SIGNALS:
    void changed();

private:
    Orientation m_orientation = Orientation::Local;
    Pivot m_pivot = Pivot::Own;
};

#endif
