#ifndef VXKEYCURSOR_H
#define VXKEYCURSOR_H

#include <QtCore/QObject>
#include <vxcore/vxcoreglobal.h>

/// The key cursor of a pane that shows keys: a mode in which the keyboard moves among keys and rows
/// and selects keys. A pane that has one publishes it as a direct child; commands of other modules
/// begin the mode.
class VXCORE_EXPORT VxKeyCursor : public QObject
{
    Q_OBJECT
public:
    /// pane: the owner.
    explicit VxKeyCursor(QObject *pane);

    /// The key cursor of a pane; null when it has none.
    static VxKeyCursor *of(const QObject *pane);

    /// Begins the mode, which ends by Escape or when the focus leaves the pane's views.
    void begin();

Q_SIGNALS:
    void beginRequested();
};

#endif
