#ifndef TCBFIELDS_H
#define TCBFIELDS_H

#include <QtCore/QVector>
#include <functional>
#include <optional>

class QDoubleSpinBox;
class QString;
class QWidget;
class TimePaneStrip;
class VxDopeSheetView;

/// The pane's fields for tension, continuity and bias of the selected keys.
///
/// A field shows a rounded number. One that still shows its set number has the exact value, so that
/// entering one component does not round the others.
class TcbFields
{
public:
    /// sheet: holds the selected keys; borrowed. The fields are added to the layout of group, with
    /// labels, and belong to group.
    TcbFields(QWidget *group, const TimePaneStrip &strip, VxDopeSheetView *sheet);

    /// Tension, continuity, bias.
    QVector<QDoubleSpinBox *> boxes() const;
    /// Shows the common values of the selected keys; without keys the fields are disabled.
    void update();
    /// Runs an edit of the selected keys as an undo entry with a text.
    using EditKeys = std::function<void(const QString &text, const std::function<void()> &edit)>;
    /// Applies the fields' numbers to the selected keys. entered: the field that was entered or
    /// left, null for none. Does nothing for a field that was left unedited.
    void apply(const QDoubleSpinBox *entered, const EditKeys &editKeys);
    /// True while the fields are set or their numbers applied.
    bool isBusy() const { return m_isBusy; }
    void setSizes(int widest, int height);

private:
    /// The text last set in a field, and its exact number.
    struct Field
    {
        QDoubleSpinBox *box = nullptr;
        double shown = 0;
        float exact = 0;

        void show(std::optional<float> value);
        bool isEdited() const;
        /// The exact number of the field's present text.
        float entered();
    };
    static Field makeField(const char *name, QWidget *parent);

    VxDopeSheetView *m_sheet;
    Field m_tension;
    Field m_continuity;
    Field m_bias;
    bool m_isBusy = false;
};

#endif
