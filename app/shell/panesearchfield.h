#ifndef PANESEARCHFIELD_H
#define PANESEARCHFIELD_H

#include "widgets/searchfield.h"

class VxPane;

/// The field in a pane's title bar that narrows the rows of the pane.
///
/// A pane that can be searched has the slots handleDopesheetFilterChanged(QString) and
/// handleDopesheetFilterCleared(); the program knows panes by their slots alone. The focus goes
/// back to the pane when the field is left.
class PaneSearchField : public SearchField
{
    Q_OBJECT
public:
    /// True when the pane has the slots.
    static bool canSearch(const VxPane *pane);

    /// The pane is not owned and must outlive the field.
    explicit PaneSearchField(VxPane *pane, QWidget *parent = nullptr);

private:
    void apply(const QString &text);

    VxPane *m_pane;
};

#endif
