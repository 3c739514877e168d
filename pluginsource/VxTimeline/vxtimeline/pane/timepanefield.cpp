#include "vxtimeline/pane/timepanefield.h"

#include "vxtimeline/pane/fieldtextfit.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QLineEdit>

namespace {

constexpr int FieldWidth = 40; // pixels

} // namespace

TimePaneField::TimePaneField(const QString &name, int minimum, int maximum, QWidget *parent)
    : QSpinBox(parent)
{
    setObjectName(name);
    setButtonSymbols(NoButtons);
    setAlignment(Qt::AlignCenter);
    setRange(minimum, maximum);
    setFixedWidth(FieldWidth);
    setLocale(QLocale::c());
    new FieldTextFit(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &TimePaneField::handleTextEdited);
    connect(this, &QSpinBox::editingFinished, this, &TimePaneField::showWithheld);
}

void TimePaneField::setAcceptsOutOfRange(bool accepts)
{
    m_acceptsOutOfRange = accepts;
}

void TimePaneField::setDefersCorrection(bool defers)
{
    m_defersCorrection = defers;
}

void TimePaneField::showNumber(int shown)
{
    m_shown.reset();
    m_withheld.reset();
    if (m_defersCorrection && m_typing && number(shown) < shown) {
        m_withheld = shown;
        return;
    }
    const QSignalBlocker blocker(this);
    setValue(shown);
    m_shown = value();
}

void TimePaneField::showWithheld()
{
    if (m_withheld)
        showNumber(*m_withheld);
}

void TimePaneField::showReplacement(int shown)
{
    showNumber(shown);
    selectAll();
}

bool TimePaneField::isUntouched() const
{
    return m_shown == value();
}

// A spin box signals only a changed value, which a number out of range need not cause.
void TimePaneField::handleTextEdited()
{
    m_shown.reset();
    m_typing = m_inKeyPress;
    const int typed = number(minimum() - 1);
    if (m_acceptsOutOfRange && (typed < minimum() || typed > maximum()))
        Q_EMIT valueChanged(value());
}

void TimePaneField::keyPressEvent(QKeyEvent *event)
{
    m_inKeyPress = true;
    QSpinBox::keyPressEvent(event);
    m_inKeyPress = m_typing = false;
}

int TimePaneField::number(int fallback, bool *ok) const
{
    bool isNumber = false;
    const int parsed = text().toInt(&isNumber, 10);
    if (ok)
        *ok = isNumber;
    return isNumber ? parsed : fallback;
}

QValidator::State TimePaneField::validate(QString &text, int &position) const
{
    bool isNumber = text.isEmpty();
    if (!isNumber)
        text.toInt(&isNumber, 10);
    return m_acceptsOutOfRange && isNumber ? QValidator::Acceptable
                                           : QSpinBox::validate(text, position);
}

int TimePaneField::valueFromText(const QString &text) const
{
    return text.toInt(nullptr, 10);
}
