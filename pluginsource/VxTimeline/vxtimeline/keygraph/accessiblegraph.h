#ifndef ACCESSIBLEGRAPH_H
#define ACCESSIBLEGRAPH_H

#include "vxtimeline/keys/accessiblekeys.h"

#include <QtWidgets/QAccessibleWidget>

class VxKeyGraphView;

/// The key graph as a list: its children are the channels, each a list of keys, followed by its
/// buttons.
class AccessibleGraph : public QAccessibleWidget
{
public:
    explicit AccessibleGraph(VxKeyGraphView *view);

    /// The keys of the channel at an index; it must exist.
    static AccessibleKeys::Source keysOf(VxKeyGraphView *view, int channel);

    QAccessibleInterface *child(int index) const override;
    /// The button or the channel with a key there; null for none.
    QAccessibleInterface *childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    VxKeyGraphView *view() const;
    int channelCount() const;
};

#endif
