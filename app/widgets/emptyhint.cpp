#include "widgets/emptyhint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace {

constexpr int Margin = 12; // pixels

} // namespace

EmptyHint::EmptyHint(QAbstractItemView *view)
    : QLabel(view->viewport())
{
    setObjectName(QStringLiteral("EmptyHint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(Margin);
    setEnabled(false); // for the colour of absent content
    view->viewport()->installEventFilter(this);
    hide();
}

void EmptyHint::showMessage(const QString &text)
{
    setText(text);
    resize(parentWidget()->size());
    setVisible(!text.isEmpty());
}

bool EmptyHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == parent())
        resize(parentWidget()->size());
    return QLabel::eventFilter(watched, event);
}
