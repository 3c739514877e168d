#ifndef TREEINDENTATION_H
#define TREEINDENTATION_H

#include <QObject>
#include <QTimer>
#include <QVector>

class QTreeView;

/// Keeps a deep tree readable in a narrow pane: while names would be cut off, the indentation is
/// narrower than the style's, down to a limit. It measures the open rows once per event loop
/// iteration after rows were opened, closed, added or removed, or the width changed.
class TreeIndentation : public QObject
{
    Q_OBJECT
public:
    /// The space that a row needs.
    struct Row
    {
        int depth; ///< levels before the name, from 1
        int width; ///< of icon and name, pixels
    };

    /// The view must have its model; it is borrowed, and becomes the parent. Its present
    /// indentation is the widest.
    explicit TreeIndentation(QTreeView *view);

    /// The widest indentation, from least to most, with which all rows fit into a width of `room`
    /// pixels; least when none does. A name counts with at most half of the room.
    static int fitting(const QVector<Row> &rows, int room, int most, int least);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    QTreeView *const m_view;
    const int m_most;
    QTimer m_timer;
};

#endif
