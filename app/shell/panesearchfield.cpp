#include "shell/panesearchfield.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxscene.h>

PaneSearchField::PaneSearchField(VxPaneSearch *search, VxPane *pane, QWidget *parent)
    : SearchField(tr("Search rows"), parent)
{
    setObjectName(QStringLiteral("PaneSearchField"));
    setToolTip(tr("Shows only rows whose names contain the text. Prefix rx:: for a regular "
                  "expression (rx::ci:: ignores case) or wc:: for a wildcard pattern."));
    setText(search->text());
    setVisible(search->isAvailable());
    connect(this, &QLineEdit::textChanged, search, &VxPaneSearch::setText);
    connect(search, &VxPaneSearch::textChanged, this, &QLineEdit::setText);
    connect(search, &VxPaneSearch::availableChanged, this, &QWidget::setVisible);
    connect(this, &SearchField::left, pane, [pane] { pane->setFocus(Qt::OtherFocusReason); });
    // The text applies to the rows of the former document.
    connect(vxScene, &VxScene::sceneCleared, this, &QLineEdit::clear);
}
