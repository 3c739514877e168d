#ifndef BATCHDIALOGS_H
#define BATCHDIALOGS_H

#include <QObject>

class QDialog;

/// Answers every modal dialog and menu of a run without a user at once: a message box by its Cancel
/// button (else No, else its Escape button), any other dialog by rejecting it. The text is written
/// to standard error, so that a script's author sees the question.
///
/// Covers the dialogs of all modules during its lifetime.
class BatchDialogs : public QObject
{
    Q_OBJECT
public:
    explicit BatchDialogs(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void answer(QDialog *dialog);
};

#endif
