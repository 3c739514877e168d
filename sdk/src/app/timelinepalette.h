#ifndef TIMELINEPALETTE_H
#define TIMELINEPALETTE_H

#include <QtCore/QObject>
#include <QtGui/QPalette>

class QMainWindow;

/// Gives a main window the colours of time lines. Time lines are drawn with the window's palette:
/// the role Dark for their baseline and ticks, HighlightedText on a selected row. In the window's
/// own palette both are faint, so that a row without keys looks empty and key marks are prominent;
/// its child widgets keep the application's colours for these roles.
class TimelinePalette : public QObject
{
public:
    explicit TimelinePalette(QMainWindow *window);

    /// The application's palette with faint colours for these two roles.
    static QPalette faint(const QPalette &palette);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply() const;
    static void applyTo(QWidget *child);

    QMainWindow *m_window;
};

#endif
