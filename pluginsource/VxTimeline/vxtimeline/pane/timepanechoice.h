#ifndef TIMEPANECHOICE_H
#define TIMEPANECHOICE_H

/// An action's choice, for the pane.
///
/// The pane synchronises the check marks of its choices with its state, and for key scope and
/// property types the check marks are the state. It refers to actions only as QAction, because the
/// actions include the pane and not vice versa; an action for one value of a choice therefore
/// implements this interface beside VxAction, and the pane finds it by a cast.
class TimePaneChoice
{
public:
    enum Family {
        ControlsPositionFamily, // value: VxTimePane::ControlsPosition
        ViewModeFamily,         // value: VxTimePane::ViewMode
        KeyScopeFamily,         // value: VxTimePane::KeyScope
        PropertyTypeFamily      // value: one flag of VxTimePane::PropertyType
    };

    virtual ~TimePaneChoice() = default;

    virtual Family family() const = 0;
    /// The value within the family, as the number of the pane's enumeration.
    virtual int value() const = 0;

protected:
    TimePaneChoice() = default;
    TimePaneChoice(const TimePaneChoice &) = default;
    TimePaneChoice &operator=(const TimePaneChoice &) = default;
};

#endif
