#ifndef ACCESSIBLESHEET_H
#define ACCESSIBLESHEET_H

#include "vxtimeline/keys/accessiblekey.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAccessibleWidget>

class VxDopeSheetView;

/// The dope sheet as a tree: its children are the rows at the top level, followed by its widgets,
/// the ruler and the playhead among them.
class AccessibleSheet : public QAccessibleWidget
{
public:
    explicit AccessibleSheet(VxDopeSheetView *sheet);

    /// The object of a row; null for null and while the text filter leaves it out.
    static QAccessibleInterface *rowOf(VxDopeSheetView *sheet, VxDopeSheetItem *item);
    static AccessibleKeys::Source keysOf(VxDopeSheetView *sheet, VxDopeSheetItem *item);
    /// The number of levels above a row.
    static int levelOf(const VxDopeSheetItem *item);

    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessible::State state() const override;

private:
    VxDopeSheetView *sheet() const;
};

/// A row: its list of keys, and when it is open the rows below it.
class AccessibleRow : public AccessiblePart
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleRow)
public:
    AccessibleRow(VxDopeSheetView *sheet, VxDopeSheetItem *item);

    VxDopeSheetItem *item() const { return m_item; }

    bool isValid() const override;
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    /// Press selects the row, Toggle opens or closes it; further ones select all of its keys or
    /// none, and scroll to it and make it the current row.
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    bool canOpen() const;
    bool isOpen() const;

    QPointer<VxDopeSheetView> m_sheet;
    QPointer<VxDopeSheetItem> m_item;
};

#endif
