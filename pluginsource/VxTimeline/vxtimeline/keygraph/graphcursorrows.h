#ifndef GRAPHCURSORROWS_H
#define GRAPHCURSORROWS_H

#include "vxtimeline/keys/keycursorrows.h"

#include <QtCore/QPointer>

class VxKeyGraphView;
class VxProperty;

/// The channels of the key graph, in the order of their labels.
class GraphCursorRows : public KeyCursorRows
{
public:
    /// Borrowed.
    explicit GraphCursorRows(VxKeyGraphView *view);

    QWidget *area() const override;
    bool isEmpty() const override;
    AccessibleKeys::Source row() override;
    bool showsKeys() override;
    bool move(int rows) override;
    void reveal(int key) override;
    void setAnchor() override;
    std::vector<AccessibleKeys::Source> fromAnchor() override;

private:
    int count() const;
    /// The channel of a property; 0 when there is none any more, -1 for an empty graph.
    int find(const VxProperty *property) const;
    int index() const { return find(m_property); }

    VxKeyGraphView *m_view;
    QPointer<VxProperty> m_property; // of the present channel
    QPointer<VxProperty> m_anchor;
};

#endif
