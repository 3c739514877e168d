#ifndef TIMEPANEKEYS_H
#define TIMEPANEKEYS_H

#include <functional>

class QDoubleSpinBox;
class QString;
class TimePaneChoices;
class TimePaneControls;
class VxDopeSheetView;
class VxTimePane;

/// The key commands: their holds and undo texts, the scope that applies, and the controls that show
/// the selected keys. The edits are implemented in the dope sheet view and in the keys folder.
class TimePaneKeys
{
public:
    /// All borrowed.
    TimePaneKeys(const VxTimePane *pane, VxDopeSheetView *sheet, TimePaneControls &controls,
                 TimePaneChoices &choices);

    /// All keys of the selected nodes at the current time.
    void createNodeKeys();
    void deleteNodeKeys();
    /// Below 1 asks the user for the number.
    void createFilteredKeys(int count);
    void deleteSelectedKeys();
    void copySelectedKeys();
    void pasteKeys();
    /// 0 Linear, 1 Constant, 2 TCB; anything else is refused with a warning.
    void setInterpType(int type);
    /// Applies the TCB fields to the selected keys. entered: see TcbFields::apply().
    void applyTcb(const QDoubleSpinBox *entered);

    /// Shows the common values of the selected keys in the TCB fields.
    void updateTcb();
    /// Enables actions and controls by the selected and the copied keys. Cheap without a change: a
    /// selection is reported once for each row.
    void updateStates();
    /// Both.
    void updateFields();
    /// Undo and redo may change the shown values.
    void handleUndo();

private:
    void makeFilteredKeys(int count) const;
    void editSelectedKeys(const QString &text, const std::function<void()> &edit) const;
    void showWhyNoKeys() const;

    const VxTimePane *m_pane;
    VxDopeSheetView *m_sheet;
    TimePaneControls &m_controls;
    TimePaneChoices &m_choices;
};

#endif
