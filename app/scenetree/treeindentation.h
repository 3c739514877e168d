#ifndef TREEINDENTATION_H
#define TREEINDENTATION_H

#include <QObject>
#include <QTimer>
#include <QVector>

class QTreeView;

/// Lets a deep tree in a narrow pane be read: as long as names would be cut off, levels stand
/// closer together than the style has them, down to a limit. It looks at the rows that are open
/// once per turn of the event loop, whenever rows open, close, come or go, or the room changes.
class TreeIndentation : public QObject
{
    Q_OBJECT
public:
    /// What a row needs beside its indentation.
    struct Row
    {
        int depth; ///< levels before the name, from 1
        int width; ///< of icon and name, pixels
    };

    /// The view must have its model; it is borrowed, and becomes the parent. Its present
    /// indentation is the widest.
    explicit TreeIndentation(QTreeView *view);

    /// The widest indentation, from least to most, with which all rows fit into a room of that many
    /// pixels; least when none does. Half of the room is enough for a long name: it is its own
    /// fault, not that of the levels.
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
