#ifndef TIMEPANEACCESSIBLE_H
#define TIMEPANEACCESSIBLE_H

#include <QtCore/QObject>
#include <QtGui/QAccessible>

class QModelIndex;
class TimePaneViews;

/// The pane's views for screen readers: makes the toolkit use the accessible objects of dope sheet,
/// key graph, playhead and time range slider, and reports changes of keys, selection, value and
/// open rows. Changes of rows and of the current row are reported by the dope sheet itself.
///
/// Nothing is made or sent while no screen reader is active.
class TimePaneAccessible : public QObject
{
    Q_OBJECT
public:
    /// Before the widgets get their names: a name makes the toolkit choose an object.
    static void install();

    /// views: borrowed.
    explicit TimePaneAccessible(const TimePaneViews &views);

private:
    void handleSelectionChanged();
    void handleTimeChanged();
    void handlePlayRangeChanged();
    void handleOpened(const QModelIndex &row);

    const TimePaneViews &m_views;
};

#endif
