#ifndef PREVIEWDIALOG_H
#define PREVIEWDIALOG_H

#include <QDialog>
#include <memory>

class VxUndoStackHold;

/// A dialog that shows its changes of the scene at once. Accepting it keeps them as one undo entry;
/// otherwise they are reverted.
class PreviewDialog : public QDialog
{
    Q_OBJECT
public:
    ~PreviewDialog() override;

public Q_SLOTS:
    void accept() override;
    void reject() override;

protected:
    /// entry: the text of the undo entry.
    PreviewDialog(const QString &entry, QWidget *parent);

    /// Changes from now on belong to the entry.
    void begin();
    /// Reverts the changes.
    void restore();

private:
    const QString m_entry;
    std::unique_ptr<VxUndoStackHold> m_hold; // null without changes
};

#endif
