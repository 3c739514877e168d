#ifndef ACTIONLIST_H
#define ACTIONLIST_H

#include <QString>

class QMenuBar;
class VxActionMgr;

/// Every action as a page of documentation, in Markdown: by menu, with their default shortcuts,
/// whatever the user has chosen. docs/actions.md is this page. Plain ASCII except for the actions'
/// own texts; without a line end after the last line.
QString actionListPage(const QMenuBar &menuBar, const VxActionMgr &actions);

#endif
