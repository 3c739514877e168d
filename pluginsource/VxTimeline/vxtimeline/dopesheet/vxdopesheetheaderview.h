#ifndef VXDOPESHEETHEADERVIEW_H
#define VXDOPESHEETHEADERVIEW_H

#include <QtWidgets/QHeaderView>
#include <memory>

// The dope sheet's header: a plain section over the names, and the time ruler over the keys.
class VxDopeSheetHeaderView : public QHeaderView
{
    Q_OBJECT
public:
    explicit VxDopeSheetHeaderView(QWidget *parent);
    ~VxDopeSheetHeaderView() override;

    // Never smaller than the minimum size.
    QSize sizeHint() const override;

public Q_SLOTS:
    void updateViewport();
    void handleSectionResized(int logicalIdx);
    void handleSectionMoved(int logicalIdx, int oldVisualIndex, int newVisualIndex);

protected:
    void leaveEvent(QEvent *event) override;
    // The bevel alone: what a section says is laid over it or drawn as the ruler.
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
