#ifndef TIMEPANEFIELD_H
#define TIMEPANEFIELD_H

#include <QtWidgets/QSpinBox>

// A narrow number field of the pane's strip: a spin box without arrows.
//
// A field may be lenient: then a number that is out of range, and the empty text, can be typed and
// are told like any other, because the pane has an answer of its own to them. A plain spin box
// would not let the last digit in.
class TimePaneField : public QSpinBox
{
    Q_OBJECT
public:
    TimePaneField(const QString &name, int minimum, int maximum, QWidget *parent);
    ~TimePaneField() override;

    // Not to begin with.
    void setLenient(bool lenient);

    // Shows a number without telling anyone.
    void showNumber(int number);
    // The text as a whole number in base 10, or the fallback when it is none.
    int number(int fallback, bool *ok = nullptr) const;

protected:
    QValidator::State validate(QString &text, int &position) const override;
    int valueFromText(const QString &text) const override;

private:
    bool m_lenient = false;
};

#endif
