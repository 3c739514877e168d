#include "shell/panesearchfield.h"

#include <vxcore/vxpane.h>

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
    : SearchField(tr("Search rows"), parent)
    , m_pane(pane)
{
    setObjectName(QStringLiteral("PaneSearchField"));
    setToolTip(tr("Shows only rows whose names contain the text. Prefix rx:: for a regular "
                  "expression (rx::ci:: ignores case) or wc:: for a wildcard pattern."));
    connect(this, &QLineEdit::textChanged, this, &PaneSearchField::apply);
    connect(this, &SearchField::left, pane, [pane] { pane->setFocus(Qt::OtherFocusReason); });
}

void PaneSearchField::apply(const QString &text)
{
    if (text.isEmpty())
        QMetaObject::invokeMethod(m_pane, ClearedSlot, Qt::DirectConnection);
    else
        QMetaObject::invokeMethod(m_pane, ChangedSlot, Qt::DirectConnection, Q_ARG(QString, text));
}
