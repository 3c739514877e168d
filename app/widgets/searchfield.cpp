#include "widgets/searchfield.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QStyle>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>

SearchField::SearchField(const QString &what, QWidget *parent)
    : QLineEdit(parent)
    // Not the toolkit's clear button: its fade animation outlives a field that is destroyed
    // meanwhile.
    , m_clear(addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), TrailingPosition))
{
    setPlaceholderText(what);
    setAccessibleName(what);
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    if (vxApp && vxApp->getStyle()) {
        addAction(vxApp->getStyle()->icon(VxStyle::SP_VxSearch), LeadingPosition);
        connect(vxApp->getStyle(), &VxStyle::colorSchemeChanged, this, &SearchField::showState);
    }
    connect(this, &QLineEdit::textChanged, this, &SearchField::showState);
}

QSize SearchField::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 24, metrics.height() + 4};
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (isActive())
        clear();
    else
        Q_EMIT left();
}

void SearchField::showState()
{
    QPalette colours;
    if (isActive()) {
        const QPalette general = QApplication::palette();
        colours.setColor(QPalette::Base, general.color(QPalette::Highlight));
        colours.setColor(QPalette::Text, general.color(QPalette::HighlightedText));
    }
    setPalette(colours);
    m_clear->setVisible(isActive());
}
