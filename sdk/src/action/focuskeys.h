#ifndef FOCUSKEYS_H
#define FOCUSKEYS_H

#include <QtCore/QObject>

class QKeySequence;
class QWidget;

/// The keys that are left to the focused widget although they are shortcuts.
namespace FocusKeys {

/// A widget along a time axis sets this property to true: the keys along the axis then belong to
/// the shortcuts that step through time, and only those across it are its own.
constexpr char timeAxisProperty[] = "vxTimeAxis";

/** True when the widget needs the key for itself: text fields for typing and cursor movement,
 *  lists, trees, sliders and boxes for navigation. Never for keys with Ctrl, Alt or Meta, which a
 *  widget claims itself. tabbedTo: the focus was moved by the keyboard, so that a button needs the
 *  space bar. */
bool areKept(const QWidget *widget, int key, Qt::KeyboardModifiers modifiers, bool tabbedTo);

} // namespace FocusKeys

/// Decides between the focused widget and a shortcut of the window for a key.
///
/// Plain keys such as arrows and the space bar are shortcuts of the whole window, so that they step
/// through time wherever the last click was. Without this filter they would be missing for typing
/// and for navigation in lists; and a command of one pane that has the shortcut of another command
/// would disable both: the one nearest to the focus runs.
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
