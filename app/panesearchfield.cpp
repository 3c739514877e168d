#include "panesearchfield.h"

#include <QAction>
#include <QKeyEvent>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr char ChangedSlot[] = "handleDopesheetFilterChanged";
constexpr char ClearedSlot[] = "handleDopesheetFilterCleared";

} // namespace

bool PaneSearchField::canSearch(const VxPane *pane)
{
    const QMetaObject *meta = pane->metaObject();
    return meta->indexOfSlot("handleDopesheetFilterChanged(QString)") >= 0 &&
           meta->indexOfSlot("handleDopesheetFilterCleared()") >= 0;
}

PaneSearchField::PaneSearchField(VxPane *pane, QWidget *parent)
    : QLineEdit(parent)
    , m_pane(pane)
{
    setObjectName(QStringLiteral("PaneSearchField"));
    setPlaceholderText(tr("Search rows"));
    setAccessibleName(tr("Search rows"));
    setToolTip(tr("Shows only rows whose name contains the text. rx:: in front makes it a regular "
                  "expression (rx::ci:: ignores case), wc:: a wildcard pattern."));
    // Not the toolkit's clear button: its fading outlives a field that is destroyed meanwhile.
    m_clear = addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), TrailingPosition);
    m_clear->setToolTip(tr("Show all rows"));
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    if (vxApp && vxApp->getStyle())
        addAction(vxApp->getStyle()->icon(VxStyle::SP_VxSearch), LeadingPosition);
    connect(this, &QLineEdit::textChanged, this, &PaneSearchField::apply);
}

QSize PaneSearchField::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 24, metrics.height() + 4};
}

void PaneSearchField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (isActive())
        clear();
    else
        m_pane->setFocus(Qt::OtherFocusReason);
}

void PaneSearchField::apply(const QString &text)
{
    if (text.isEmpty())
        QMetaObject::invokeMethod(m_pane, ClearedSlot, Qt::DirectConnection);
    else
        QMetaObject::invokeMethod(m_pane, ChangedSlot, Qt::DirectConnection, Q_ARG(QString, text));
    showState();
}

void PaneSearchField::showState()
{
    QPalette colours;
    if (isActive()) {
        const QPalette general = m_pane->palette();
        colours.setColor(QPalette::Base, general.color(QPalette::Highlight));
        colours.setColor(QPalette::Text, general.color(QPalette::HighlightedText));
    }
    setPalette(colours);
    m_clear->setVisible(isActive());
}
