#ifndef VXDOPESHEETHEADERVIEW_H
#define VXDOPESHEETHEADERVIEW_H

#include <QtWidgets/QHeaderView>
#include <memory>

class DopeSheetRuler;
class VxDopeSheetItem;

/// The dope sheet's header: a plain section over the names, and the time ruler over the keys.
///
/// The ruler shows frame numbers, the play range and the current time on the scale of the rows
/// below, and the mouse sets the time in it. DopeSheetRuler computes the layout.
class VxDopeSheetHeaderView : public QHeaderView
{
    Q_OBJECT
public:
    explicit VxDopeSheetHeaderView(QWidget *parent);
    ~VxDopeSheetHeaderView() override;

    /// Never smaller than the minimum size.
    QSize sizeHint() const override;

    /// The row whose keys are marked in the ruler; not owned, null for none.
    void setKeySource(VxDopeSheetItem *item);
    VxDopeSheetItem *getKeySource() const;

public Q_SLOTS:
    void updateViewport();
    void handleSectionResized(int logicalIdx);
    void handleSectionMoved(int logicalIdx, int oldVisualIndex, int newVisualIndex);

protected:
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    /// The bevel, and the ruler on it. The names' section stays empty for the overlay of others.
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;

private:
    DopeSheetRuler ruler() const;
    bool isOnGrip(int x) const;
    bool isInKeysSection(int x) const;
    bool isOnMarker(int x) const;
    /// Updates the cursor while no button is pressed.
    void showHoverCursor(int x);
    void setTimeAt(int x) const;
    /// Drops a drag whose release was lost; the time is that of the press again.
    void dropGesture();
    /// False when the current paint event includes no part of rect.
    bool isToBePainted(const QRect &rect) const;
    void paintRuler(QPainter *painter, const QRect &rect) const;
    void paintMarks(QPainter *painter, const DopeSheetRuler &ruler, const QRect &rect) const;
    void paintLabels(QPainter *painter, const DopeSheetRuler &ruler, const QRect &rect) const;
    void paintKeys(QPainter *painter, const DopeSheetRuler &ruler, const QRect &rect) const;
    void paintMarker(QPainter *painter, const DopeSheetRuler &ruler, const QRect &rect) const;

    class Private;
    std::unique_ptr<Private> d;
};

#endif
