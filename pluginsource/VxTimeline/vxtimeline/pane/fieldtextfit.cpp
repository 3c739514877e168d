#include "vxtimeline/pane/fieldtextfit.h"

#include <QtCore/QEvent>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QLineEdit>
#include <algorithm>

namespace {

constexpr double SmallestSize = 0.7; // of the font's size
constexpr int NarrowestStretch = 50; // percent
// A line edit keeps two pixels free on either side of its text, and the cursor needs one.
constexpr int TextPadding = 5;

} // namespace

QFont fontForWidth(const QFont &font, int textWidth, int width)
{
    if (textWidth <= width || textWidth <= 0)
        return font;
    const double share = std::max(width, 1) / double(textWidth);
    const double size = std::max(share, SmallestSize);
    QFont result = font;
    if (font.pointSizeF() > 0)
        result.setPointSizeF(font.pointSizeF() * size);
    else
        result.setPixelSize(std::max(int(font.pixelSize() * size), 1));
    if (share < size)
        result.setStretch(std::max(int(100 * share / size), NarrowestStretch));
    return result;
}

FieldTextFit::FieldTextFit(QAbstractSpinBox *field)
    : QObject(field)
    , m_field(field)
    , m_edit(field->findChild<QLineEdit *>())
{
    m_edit->installEventFilter(this);
}

bool FieldTextFit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_edit && event->type() == QEvent::Paint)
        fit();
    return QObject::eventFilter(watched, event);
}

void FieldTextFit::fit()
{
    const QFont font = m_field->font();
    const int textWidth = QFontMetrics(font).horizontalAdvance(m_edit->text());
    const QFont fitting = fontForWidth(font, textWidth, m_edit->width() - TextPadding);
    if (m_edit->font() != fitting)
        m_edit->setFont(fitting);
}
