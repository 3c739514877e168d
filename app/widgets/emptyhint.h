#ifndef EMPTYHINT_H
#define EMPTYHINT_H

#include <QLabel>

class QAbstractItemView;

/// A sentence in the middle of an empty list or tree that explains why. It is transparent for mouse
/// events and follows the view's size.
class EmptyHint : public QLabel
{
    Q_OBJECT
public:
    /// The hint is a child of the view, and initially hidden.
    explicit EmptyHint(QAbstractItemView *view);

    /// Shows a sentence; an empty one hides the hint.
    void showMessage(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

#endif
