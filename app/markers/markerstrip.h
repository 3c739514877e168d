#ifndef MARKERSTRIP_H
#define MARKERSTRIP_H

#include "markers/markerlayout.h"

#include <QWidget>
#include <memory>

class MarkerTimeScale;
class QLineEdit;
class QMenu;
class VxGestureGuard;
class VxPaneMgr;
class VxScene;
class VxUndoStackHold;

/// A thin strip of the scene's markers along the time axis.
///
/// A drag moves a marker, or an end of a span: it snaps to the current time and other markers, and
/// to frames; with Ctrl it does neither. Escape restores. A double click adds a marker, or renames
/// the one below the mouse. With the focus, Left, Right, Home and End select a marker, F2 and
/// Return rename it, Delete deletes it.
class MarkerStrip : public QWidget
{
    Q_OBJECT
public:
    static constexpr int SnapDistance = 6; ///< pixels

    /// Borrowed; panes, in which the time axis is found, may be null.
    MarkerStrip(VxScene *scene, VxPaneMgr *panes, QWidget *parent = nullptr);
    ~MarkerStrip() override;

    const MarkerTimeScale &scale() const { return *m_scale; }
    /// The visible markers, in the order in which they are painted. Valid until the next change of
    /// the markers or of the time scale.
    const QVector<MarkerShape> &shapes() const;

    /// The id of the selected marker; 0 for none.
    int selectedMarker() const { return m_selected; }
    void selectMarker(int id);
    /// Opens a text field on the marker.
    void editName(int id);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {1, sizeHint().height()}; }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void paintShape(QPainter *painter, const MarkerShape &shape) const;
    void paintTime(QPainter *painter);
    void dropShapes();
    void handleMarkersChanged();
    void followTime();
    QRect timeMark(int x) const;
    QRect timeArea() const;
    std::optional<MarkerHit> hitAt(const QPoint &pos) const;
    MarkerSnap snapFor(int id, const QPoint &pos, Qt::KeyboardModifiers modifiers) const;
    void dragTo(const QPoint &pos, Qt::KeyboardModifiers modifiers);
    void cancelDrag();
    void endDrag();
    void stepSelection(int steps);
    void fillMenu(QMenu *menu, int id, VxTime time);
    void fillColorMenu(QMenu *menu, int id);
    void askForColor(int id);
    QString helpAt(const QPoint &pos) const;
    void endNameEdit(bool accepts);

    struct Drag
    {
        MarkerHit hit;
        VxTimeRange span; // at the press
        int pressX = 0;
        std::unique_ptr<VxUndoStackHold> hold; // null until the mouse was moved
    };

    VxScene *const m_scene;
    MarkerTimeScale *m_scale;
    VxGestureGuard *m_guard;
    QLineEdit *m_nameEdit;
    int m_selected = 0;
    int m_edited = 0; // the marker that is being renamed
    mutable QVector<MarkerShape> m_shapes;
    mutable bool m_areShapesCurrent = false;
    int m_timeX = 0; // where the current time was painted last
    std::unique_ptr<Drag> m_drag;
};

#endif
