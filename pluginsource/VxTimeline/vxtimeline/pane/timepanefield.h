#ifndef TIMEPANEFIELD_H
#define TIMEPANEFIELD_H

#include <QtWidgets/QSpinBox>
#include <optional>

/// A narrow number field of the pane's strip: a spin box without arrows.
///
/// A field may accept numbers out of range: then such a number, and the empty text, can be typed
/// and are reported like any other, because the pane handles them itself. A plain spin box would
/// refuse the last digit. Numbers are read and shown in the digits 0 to 9 in every locale.
///
/// A field may defer its correction: the first digits of a number are a smaller one, and when the
/// pane raises that to its minimum, the field keeps the digits until the number is finished. Else
/// no number could be typed whose beginning is too small.
///
/// The shown number may differ from the exact one: frames are truncated, and a field has limits. So
/// an untouched number changes nothing when the field is left.
class TimePaneField : public QSpinBox
{
    Q_OBJECT
public:
    TimePaneField(const QString &name, int minimum, int maximum, QWidget *parent);

    /// Both off initially.
    void setAcceptsOutOfRange(bool accepts);
    void setDefersCorrection(bool defers);

    /// Shows a number without any signal; a field that defers its correction may do so later.
    void showNumber(int shown);
    /// The same for a number that replaces an invalid one: it is selected, so that further typing
    /// replaces it.
    void showReplacement(int shown);
    /// True while the last shown number has not been edited or stepped.
    bool isUntouched() const;
    /// The text as a whole number in base 10, or the fallback for an invalid text.
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
    bool m_typing = false; // the current key press has changed the text
    std::optional<int> m_shown;
    std::optional<int> m_withheld;
};

#endif
