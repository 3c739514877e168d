#ifndef VXKEYTABLEPANE_H
#define VXKEYTABLEPANE_H

#include "keytools/keysmenuaction.h"

#include <memory>
#include <vxcore/vxpane.h>

class QModelIndex;

/// A pane with the selected keys as a table: node, property, time, value, type and TCB parameters.
///
/// A cell takes a value or a change such as +10 or 150%; with several rows selected it is set in
/// all of them. Rows are copied and pasted as text with tabs, as spreadsheets use it. A click on a
/// header sorts.
class VxKeyTablePane : public VxPane
{
    Q_OBJECT
public:
    VxKeyTablePane();
    ~VxKeyTablePane() override;

    /// Stores the unit of times.
    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;

public Q_SLOTS:
    /// Shows only keys of nodes or properties whose names contain the text.
    void setFilter(const QString &text);
    /// Copies the selected rows to the clipboard.
    void copyRows();
    /// Sets cells by the clipboard's text, from the current cell on; text of whole rows from the
    /// current row on. False when nothing was set.
    bool pasteRows();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class KeyTableDelegate;
    bool setCells(const QModelIndex &index, const QString &typed);
    void refresh();
    void fitRows();
    bool isCurrent();

    class Private;
    std::unique_ptr<Private> d;
};

/// Shows the key table.
class VxKeyTableAction : public KeysMenuAction
{
    Q_OBJECT
public:
    VxKeyTableAction();

protected:
    void executeAction() override;
};

#endif
