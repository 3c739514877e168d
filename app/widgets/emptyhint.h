#ifndef EMPTYHINT_H
#define EMPTYHINT_H

#include <QLabel>

class QAbstractItemView;

/// A sentence in the middle of a list or tree that shows nothing, which says why. It takes no mouse
/// and goes along with the view's size.
class EmptyHint : public QLabel
{
    Q_OBJECT
public:
    /// The hint is the view's child, and hidden at first.
    explicit EmptyHint(QAbstractItemView *view);

    /// Shows a sentence; an empty one hides the hint.
    void tell(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

#endif
