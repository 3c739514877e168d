#ifndef TIMEPANECHOICE_H
#define TIMEPANECHOICE_H

// What an action tells the pane about the choice it stands for.
//
// The pane keeps the check marks of its choices in step with its state, and for key scope and
// property types the check marks are the state. It knows actions only as QAction, because the
// actions include the pane and not the other way round; an action that stands for one value of a
// choice therefore implements this interface beside VxAction, and the pane finds it by a cast.
class TimePaneChoice
{
public:
    enum Family {
        ControlsPositionFamily, // value: VxTimePane::ControlsPosition
        ViewModeFamily,         // value: VxTimePane::ViewMode
        KeyScopeFamily,         // value: VxTimePane::KeyScope
        PropertyTypeFamily      // value: one flag of VxTimePane::PropertyType
    };

    virtual ~TimePaneChoice();

    virtual Family family() const = 0;
    // The value within the family, as the number of the pane's enumeration.
    virtual int value() const = 0;

protected:
    TimePaneChoice() = default;
    TimePaneChoice(const TimePaneChoice &) = default;
    TimePaneChoice &operator=(const TimePaneChoice &) = default;
};

#endif
