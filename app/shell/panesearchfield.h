#ifndef PANESEARCHFIELD_H
#define PANESEARCHFIELD_H

#include "widgets/searchfield.h"

class VxPane;
class VxPaneSearch;

/// The field in a pane's title bar that edits the search of the pane. It is hidden while the search
/// is not available, and cleared when the scene is cleared for another document. Leaving it moves
/// the focus to the pane.
class PaneSearchField : public SearchField
{
    Q_OBJECT
public:
    /// Search and pane are not owned and must outlive the field.
    PaneSearchField(VxPaneSearch *search, VxPane *pane, QWidget *parent = nullptr);
};

#endif
