#ifndef FOCUSKEYS_H
#define FOCUSKEYS_H

#include <QtCore/QObject>

class QKeySequence;
class QShortcutEvent;
class QWidget;

/// Which keys stay with the widget that has the focus although they are somebody's shortcut.
namespace FocusKeys {

/// A widget along a time axis sets this property to true: the keys that go along the axis then
/// belong to the shortcuts that step through time, and only those across it are its own.
constexpr char timeAxisProperty[] = "vxTimeAxis";

/** True when the widget needs the key for itself: text fields what they write and what moves their
 *  cursor, lists, trees, sliders and boxes what moves in them. Keys with Ctrl, Alt or Meta never
 *  are: a widget asks for those itself. tabbedTo: the focus came by the keyboard, so that a button
 *  cannot be pressed by anything but the space bar. */
bool areKept(const QWidget *widget, int key, Qt::KeyboardModifiers modifiers, bool tabbedTo);

} // namespace FocusKeys

/// Settles who gets a key when both the focus and a shortcut of the window want it.
///
/// Plain keys such as arrows and the space bar are shortcuts of the whole window, so that time can
/// be stepped through whatever was clicked last. Without this filter they would be missing
/// wherever somebody types or walks through a list; and a command of one pane that has the
/// shortcut of another command would leave both dead: the one nearest to the focus is meant.
class FocusKeyFilter : public QObject
{
public:
    /// Watches the whole application, when there is one.
    explicit FocusKeyFilter(QObject *parent);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    static bool runNearest(const QKeySequence &shortcut);

    bool m_tabbedTo = false;
};

#endif
