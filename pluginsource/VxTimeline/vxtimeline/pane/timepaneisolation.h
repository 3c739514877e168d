#ifndef TIMEPANEISOLATION_H
#define TIMEPANEISOLATION_H

#include <QtCore/QObject>

class TimePaneViews;
class VxNodeIsolation;
class VxPane;

/// Shows the rows of some nodes alone in the dope sheet and their curves alone in the key graph:
/// the filter model leaves out other rows, and the rows of the properties with keys are opened and
/// selected.
class TimePaneIsolation : public QObject
{
    Q_OBJECT
public:
    /// Both borrowed.
    TimePaneIsolation(VxPane *pane, const TimePaneViews &views);

private:
    void showCurves();

    const TimePaneViews &m_views;
    VxNodeIsolation *m_isolation;
};

#endif
