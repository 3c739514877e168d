#ifndef TIMEPANENODESELECTION_H
#define TIMEPANENODESELECTION_H

#include <QtCore/QAtomicInt>

class QEvent;
class QWidget;
class TimePaneRows;
class VxDopeSheetView;

/// Synchronises the dope sheet's rows with the scene's selected nodes: once per event loop
/// iteration, by two events that the pane posts to itself.
class TimePaneNodeSelection
{
public:
    /// All borrowed.
    TimePaneNodeSelection(QWidget *pane, VxDopeSheetView *sheet, const TimePaneRows &rows);

    /// Requests a synchronisation, which is deferred while the pane is hidden.
    void update();
    void updateIfPending();
    /// True for one of the pane's own events, which is then handled.
    bool handle(const QEvent *event);
    /// Scrolls to the row of the primary selection.
    void ensureVisible();
    /// Synchronisation is deferred between the two, which may be nested.
    void block() { m_blockCount.ref(); }
    void unblock();

private:
    bool canPostEvents() const;
    void synchronise();

    QWidget *m_pane;
    VxDopeSheetView *m_sheet;
    const TimePaneRows &m_rows;
    QAtomicInt m_blockCount = 0;
    bool m_isPending = true;
    bool m_isPosted = false;
    bool m_ensureVisiblePosted = false;
};

#endif
