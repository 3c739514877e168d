#ifndef TRANSPORTCONTROLS_H
#define TRANSPORTCONTROLS_H

#include <QtCore/QVector>
#include <QtGui/QIcon>

class QWidget;
class TimePaneStrip;
class VxBarButton;
class VxButtonBar;
class VxDopeSheetView;

/// The pane's bar of playback buttons: its buttons, their icons, their visibility by view mode, and
/// the skips that make an undo entry. The pane connects them.
class TransportControls
{
public:
    /// The widgets belong to parent.
    TransportControls(QWidget *parent, const TimePaneStrip &strip);

    VxButtonBar *bar() const { return m_bar; }
    /// Loop, skip to start, previous key, previous frame, play or pause, next frame, next key, skip
    /// to end: from left to right.
    enum Button {
        Loop,
        SkipToStart,
        PreviousKey,
        PreviousFrame,
        PlayPause,
        NextFrame,
        NextKey,
        SkipToEnd,
        ButtonCount
    };
    const QVector<VxBarButton *> &buttons() const { return m_buttons; }

    /// The buttons for single frames and keys, with their separators.
    void setStepsVisible(bool visible);
    /// Reads the icons from the style; those of loop and play/pause follow the scene.
    void updateIcons();
    void updatePlayIcon();
    void updateLoopIcon(bool loops);

    /// Recorded for undo if the time changes.
    static void skipToStart();
    static void skipToEnd();
    /// Among all keys of the selected nodes; without one, to that end of the play range.
    static void skipToPreviousKey();
    static void skipToNextKey();
    /// Among the keys that the dope sheet shows.
    static void skipToPreviousFilteredKey(VxDopeSheetView *sheet);
    static void skipToNextFilteredKey(VxDopeSheetView *sheet);

private:
    VxButtonBar *m_bar;
    QVector<VxBarButton *> m_buttons;
    QIcon m_loopOnIcon;
    QIcon m_loopOffIcon;
    QIcon m_playIcon;
    QIcon m_pauseIcon;
};

#endif
