#ifndef INTERPCONTROLS_H
#define INTERPCONTROLS_H

#include "vxtimeline/pane/tcbfields.h"

class QPalette;
class VxStyledButton;

/// The pane's controls for the interpolation of the selected keys: a button with the menu of types,
/// and the fields for tension, continuity and bias.
class InterpControls
{
public:
    /// The widgets belong to parent. sheet: holds the selected keys; borrowed.
    InterpControls(QWidget *parent, const TimePaneStrip &strip, VxDopeSheetView *sheet);

    QWidget *group() const { return m_group; }
    VxStyledButton *typeButton() const { return m_type; }
    TcbFields &tcb() { return m_tcb; }
    const TcbFields &tcb() const { return m_tcb; }

    /// Draws the button's icon in the colours of a palette, and gives it the style's size.
    void updateIcon(const QPalette &palette);

private:
    static VxStyledButton *makeTypeButton(QWidget *group, const TimePaneStrip &strip);

    QWidget *m_group;
    VxStyledButton *m_type;
    TcbFields m_tcb;
};

#endif
