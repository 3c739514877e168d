#ifndef ACTIONLIST_H
#define ACTIONLIST_H

#include <QString>

class QMenuBar;
class VxActionMgr;

/// Every action as a page of documentation, in Markdown: by the menus they stand in, with their
/// default shortcuts, whatever the user has chosen. docs/actions.md is this page.
/// Plain ASCII but for what the actions say themselves; without a line end behind the last line.
QString actionListPage(const QMenuBar &menuBar, const VxActionMgr &actions);

#endif
