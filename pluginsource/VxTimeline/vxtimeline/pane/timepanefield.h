#ifndef TIMEPANEFIELD_H
#define TIMEPANEFIELD_H

#include <QtWidgets/QSpinBox>
#include <optional>

// A narrow number field of the pane's strip: a spin box without arrows.
//
// A field may accept numbers out of range: then such a number, and the empty text, can be typed and
// are reported like any other, because the pane has an answer of its own to them. A plain spin box
// would refuse the last digit. Numbers are read and shown in the digits 0 to 9 everywhere.
//
// A field may defer its correction: the first digits of a number are a smaller one, and when the
// pane answers to that with the least it allows, the field leaves the digits alone until the number
// is finished. Else no number could be typed whose beginning is too small.
//
// What a field shows may be less than the exact number: frames are cut, and a field has limits. So
// a number that was shown and not touched changes nothing when the field is left.
class TimePaneField : public QSpinBox
{
    Q_OBJECT
public:
    TimePaneField(const QString &name, int minimum, int maximum, QWidget *parent);
    ~TimePaneField() override;

    // Neither to begin with.
    void setAcceptsOutOfRange(bool accepts);
    void setDefersCorrection(bool defers);

    // Shows a number without any signal; a field that defers its correction may do so later.
    void showNumber(int shown);
    // The same for a number in place of an invalid one: it is selected, so that what is typed next
    // replaces it.
    void showStandIn(int shown);
    // True while the number that was shown last has not been typed over or stepped.
    bool isUntouched() const;
    // The text as a whole number in base 10, or the fallback when it is none.
    int number(int fallback, bool *ok = nullptr) const;

protected:
    QValidator::State validate(QString &text, int &position) const override;
    int valueFromText(const QString &text) const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void handleTextEdited();
    void showWithheld();

    bool m_acceptsOutOfRange = false;
    bool m_defersCorrection = false;
    bool m_inKeyPress = false;
    bool m_typing = false; // the key press at hand has changed the text
    std::optional<int> m_shown;
    std::optional<int> m_withheld;
};

#endif
