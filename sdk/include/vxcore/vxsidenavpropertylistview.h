#ifndef VXSIDENAVPROPERTYLISTVIEW_H
#define VXSIDENAVPROPERTYLISTVIEW_H

#include <QtWidgets/QTreeView>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxPropertyListItemModel;

/// The property list of the Parameters pane: one row a property below the headings of the groups,
/// rows selectable one by one or several at once.
///
/// A value is changed by dragging it sideways (Ctrl: ten times as far, Shift: a tenth; Escape
/// reverts), by a click and typing or stepping, or, a switch, by a click; a click on the key mark
/// sets or deletes the key. Each of these is one undo entry. Where a row represents several
/// properties, typing sets the value of all of them, while dragging and stepping offset each from
/// its own value. Copy and paste use values as text. Closing a group hides rows, so that the rows
/// stay a flat list for all other code. Selection, scroll position and closed groups are kept by
/// name when the list is rebuilt, such as for another node.
class VXCORE_EXPORT VxSideNavPropertyListView : public QTreeView
{
    Q_OBJECT
public:
    explicit VxSideNavPropertyListView(QWidget *parent = nullptr);
    ~VxSideNavPropertyListView() override;

    /// The view's model when it is a property list; null otherwise.
    VxPropertyListItemModel *getPropertyListModel() const;
    void setModel(QAbstractItemModel *model) override;

    /// Whether the properties of a group (not those of groups below it) are hidden from view.
    bool isGroupCollapsed(const QString &path) const;
    void setGroupCollapsed(const QString &path, bool collapsed);
    /// The paths of the closed groups, including ones not listed at present.
    QStringList getCollapsedGroups() const;
    void setCollapsedGroups(const QStringList &paths);

    /// The user's width of the value column in pixels; 0 while none was set, and the list divides
    /// its width itself. In a narrow list the column may be narrower than that.
    int getValueWidth() const;
    void setValueWidth(int width);

Q_SIGNALS:
    /// A message that an edit could not be applied fully; empty when the user continues.
    void noticed(const QString &text);

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

protected Q_SLOTS:
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
