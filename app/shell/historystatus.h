#ifndef HISTORYSTATUS_H
#define HISTORYSTATUS_H

#include <QObject>

class UserMessages;
class VxUndoStack;

/// Shows the last command, undo or redo in the status line.
class HistoryStatus : public QObject
{
    Q_OBJECT
public:
    /// Both are borrowed and must outlive the object.
    HistoryStatus(VxUndoStack *history, const UserMessages *messages, QObject *parent);

    /// The sentence for a step from one index of a history to another.
    static QString sentence(const VxUndoStack &history, int from, int to);
};

#endif
