#ifndef VXLOSTRELEASE_H
#define VXLOSTRELEASE_H

#include <QtTest>
#include <QtWidgets/QApplication>

/** The number of ways that vxLoseRelease() has. */
constexpr int VxLostReleaseWays = 5;

/**
 * Loses the release of a gesture, in one of several ways (0 .. VxLostReleaseWays - 1):
 * Escape, the widget is hidden, the focus is lost, another widget gets the release, another window
 * is activated. Afterwards the widget is visible and its window active, so that a focus widget
 * exists as after a click of the user. A driver of the mouse releases the button itself.
 */
inline void vxLoseRelease(QWidget *widget, int way)
{
    QWidget other;
    QApplication::setActiveWindow(widget->window()); // as a press does under a window manager
    switch (way) {
    case 0:
        QTest::keyClick(widget->window(), Qt::Key_Escape);
        return;
    case 1:
        widget->hide();
        widget->show();
        break;
    case 2:
        widget->setFocus();
        QVERIFY(widget->hasFocus());
        widget->clearFocus();
        return;
    case 3:
        QTest::mouseRelease(&other, Qt::LeftButton);
        return;
    default:
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    }
    other.hide();
    widget->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(widget->window()));
}

#endif
