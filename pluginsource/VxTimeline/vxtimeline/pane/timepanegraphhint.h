#ifndef TIMEPANEGRAPHHINT_H
#define TIMEPANEGRAPHHINT_H

#include <QtWidgets/QLabel>

class VxKeyGraphView;

/// A sentence in the middle of a key graph without curves, which explains how to show some. It is
/// transparent for mouse events and never covers the labels of the axes. Not part of the view,
/// which paints only its channels.
class TimePaneGraphHint : public QLabel
{
    Q_OBJECT
public:
    /// Becomes the view's child. The view must have its graph.
    explicit TimePaneGraphHint(VxKeyGraphView *view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    bool m_isEmpty = true; // the graph has no channels
};

#endif
