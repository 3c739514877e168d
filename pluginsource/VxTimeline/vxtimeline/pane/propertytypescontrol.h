#ifndef PROPERTYTYPESCONTROL_H
#define PROPERTYTYPESCONTROL_H

class QWidget;
class TimePaneStrip;
class VxFilterMenu;
class VxStyledButton;

/// The pane's button that shows the property types with rows, and its menu to set them.
class PropertyTypesControl
{
public:
    /// The widgets belong to parent.
    PropertyTypesControl(QWidget *parent, const TimePaneStrip &strip);

    QWidget *group() const { return m_group; }
    VxStyledButton *button() const { return m_button; }
    VxFilterMenu *menu() const { return m_menu; }

    /// Shows a letter for each of the types: flags of VxTimePane::PropertyType.
    void showTypes(int types);

private:
    QWidget *m_group;
    VxStyledButton *m_button;
    VxFilterMenu *m_menu;
};

#endif
