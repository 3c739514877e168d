#ifndef TIMEPANEGRAPHHINT_H
#define TIMEPANEGRAPHHINT_H

#include <QtWidgets/QLabel>

class VxKeyGraphView;

// A sentence in the middle of a key graph without curves, which says how to get some. It takes no
// mouse, and is apart from the view: what the view paints is a picture of its channels alone.
class TimePaneGraphHint : public QLabel
{
    Q_OBJECT
public:
    // Becomes the view's child. The view must have its graph.
    explicit TimePaneGraphHint(VxKeyGraphView *view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void centre();
};

#endif
