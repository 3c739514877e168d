#ifndef TIMEPANEKEYCURSOR_H
#define TIMEPANEKEYCURSOR_H

#include "vxtimeline/dopesheet/sheetcursorrows.h"
#include "vxtimeline/keygraph/graphcursorrows.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class TimePaneViews;

/// The key cursor: a mode of dope sheet and key graph for the keyboard, painted over the views.
///
/// While it has the focus, the arrow keys move among keys and rows and Shift extends the selection;
/// a ring is around the key, and a line of text says what it is. All other keys are those of the
/// window: the gestures of the key tools move and scale the selected keys, and return the focus.
/// The mode ends by Escape and when the focus leaves the views.
class TimePaneKeyCursor : public QWidget
{
    Q_OBJECT
public:
    /// views: borrowed. Child of the widget that contains dope sheet and key graph.
    explicit TimePaneKeyCursor(const TimePaneViews &views);

    /// Begins in the key graph when it has the focus, else in the dope sheet, at the key nearest to
    /// the scene's time. Without rows a message says so.
    void begin();
    void finish();

    /// The line over the views.
    QString text() const;
    /// The ring around the key in pixels of this widget; empty where no key is visible.
    QRect ring() const { return m_ring; }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// The present key of a row.
    struct Place
    {
        AccessibleKeys::Source row; // null for an empty view
        int key = -1;               // -1 for none
    };
    Place place() const;
    bool handleKey(const QKeyEvent &event);
    bool handleMove(const QKeyEvent &event);
    void moveInRow(int key, bool extends);
    void moveRows(int rows, bool extends);
    void beginExtending(bool extends);
    void extendSelection();
    void change(AccessibleKeys::Change change);
    void switchView();
    void openMenu();
    void followKeys();
    void handleKeysChanged();
    void showPlace();
    void updateRing();
    QRect toLocal(const QRect &global) const;

    const TimePaneViews &m_views;
    mutable SheetCursorRows m_sheetRows;
    mutable GraphCursorRows m_graphRows;
    KeyCursorRows *m_rows;
    QPointer<QWidget> m_formerFocus;
    VxTime m_time = 0;       // of the key, and the wanted one in rows without keys
    VxTime m_anchorTime = 0; // of the extended selection
    bool m_isAtKey = false;  // there was a key at that time
    bool m_extends = false;  // the last step extended the selection
    QRect m_ring;
    QRect m_rowRect;
};

#endif
