#ifndef VXDOPESHEETVIEW_H
#define VXDOPESHEETVIEW_H

#include "vxtimeline/keys/vxkeymessage.h"

#include <QtCore/QItemSelection>
#include <QtCore/QVector>
#include <QtWidgets/QTreeView>
#include <functional>
#include <memory>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxtime.h>

class VxDopeSheetFilterModel;
class VxDopeSheetItem;
class VxDopeSheetModel;
class VxKeyCommunication;
class VxNode;

/// The dope sheet: names in column 0, and in column 1 a time line for each row with its keys.
///
/// The view maps time to pixels through TimelineMetrics, as its header and delegates do. The rows'
/// items store the key selection; the view changes it and exchanges it with the key graph over a
/// key message bus. It opens no undo hold for the key commands: the caller does.
///
/// Scripts see the order and argument names of signals and slots: keep them.
class VxDopeSheetView : public QTreeView
{
    Q_OBJECT
public:
    enum Column { NameColumn = 0, KeysColumn = 1 };

    explicit VxDopeSheetView(QWidget *parent);
    ~VxDopeSheetView() override;

    void setModel(QAbstractItemModel *model) override;
    /// The model does not report which rows have changed: this only repaints everything.
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

    /// The bus for key selections; not owned, null for none.
    void setKeyCommunication(VxKeyCommunication *bus);
    VxKeyCommunication *getKeyCommunication() const;

    /// The proxy of the text filter; not owned, null for none.
    void setFilterModel(VxDopeSheetFilterModel *filterModel);
    VxDopeSheetFilterModel *getFilterModel() const;
    /// The model of all rows, behind the filter; null while there is none.
    const VxDopeSheetModel *getSourceModel() const;
    /// Shows the rows with matching names, and their ancestors, which are opened. A leading "rx::"
    /// makes the text a case-sensitive regular expression, "rx::ci::" one that ignores case, "wc::"
    /// a wildcard pattern for the whole name; any other text is searched for anywhere in the name,
    /// ignoring case. Empty shows every row. Does nothing without a proxy. Rows that are shown
    /// again are open and selected as before, and the scene's selection stays.
    void applyFilterText(const QString &text);
    /// Calls change(), which may filter the rows or reset the model: remaining rows are open and
    /// selected as before, and the scene's selection stays.
    void keepRowsDuring(const std::function<void()> &change);
    /// Calls renew(), which may replace the model by another one of the same scene. Rows and keys
    /// that still exist afterwards are open and selected as before, at the same scroll position.
    void renewModel(const std::function<void()> &renew);

    /// The width of the keys column after the header's next layout: a header reports that a
    /// stretched section changes before it has its new size.
    int getKeysWidth() const;

    /// Until the next layout, opening and closing rows only changes a set.
    using QTreeView::scheduleDelayedItemsLayout;

    /// Whether a row is selected, whatever the column of the index.
    bool isRowSelected(const QModelIndex &index) const;
    /// True while the view itself changes the scene's selection.
    bool isChangingSelection() const;
    /// Selects only the rows of the scene's selected nodes.
    void showSceneSelection();
    /// Opens the ancestors of a node's row and scrolls to it; ignored for a node without a row.
    void ensureNodeVisible(VxNode *node);
    /// Opens the rows of a node's properties that have keys, and returns them; none without a row.
    QItemSelection openKeyedProperties(VxNode *node);

    /// For delegates: false when the present paint event does not include any part of rect. True
    /// outside of paint events.
    bool isToBePainted(const QRect &rect) const;

    /// The item of a row of the view's model, whatever the column; null for none.
    VxDopeSheetItem *getItem(const QModelIndex &index) const;
    /// The row of an item of the source model in the view's model; invalid when the filter leaves
    /// it out, and for null.
    QModelIndex findIndex(const VxDopeSheetItem *item) const;
    /// The first row of a node in the view's model; invalid when it has none.
    QModelIndex findNodeIndex(VxNode *node) const;
    /// The properties of the selected rows, each once, in the order of the rows.
    QVector<VxProperty *> getSelectedProperties() const;

    /// The row that the context menu was opened on.
    void setContextIndex(const QModelIndex &index);
    QModelIndex getContextIndex() const;
    bool hasContextItem() const;
    bool hasItemSelection() const;
    bool hasSelectedKeys() const;
    /// Whether any selected key can be edited: it is in a row that the text filter shows, open or
    /// closed, and its property is not locked. Else the reason.
    enum EditableKeys { SomeEditable, NoneSelected, AllFilteredOut, AllLocked };
    EditableKeys getEditableKeys() const;
    /// The selected keys of all rows, filtered out or not: one entry a key holder.
    VxKeySelectionEntries getKeyEntries() const;
    std::vector<VxKeySpan> getKeySpansOf(VxProperty *holder) const;
    /// Selects exactly these keys in all rows of their holders; with clearsOthers no keys of others
    /// stay selected. The key graph is not informed.
    void selectKeyEntries(const VxKeySelectionEntries &entries, bool clearsOthers);
    bool hasCopiedKeys() const;
    /// A key that was selected in several rows counts once.
    int numCopiedKeys() const;
    const std::vector<VxCopiedKeys> &copiedKeys() const;
    /// Like pasteKeys(). False when no key was set: none was copied, their rows are not listed, or
    /// all of these are locked.
    bool pasteCopiedKeys();

    /// Open or close the context item: itself; with all below; with those below that have (no)
    /// keys. Nothing without a context item.
    void expandContextItem();
    void expandFromContextItem();
    void expandKeyedFromContextItem();
    void collapseContextItem();
    void collapseFromContextItem();
    void collapseNonKeyedFromContextItem();

    /// True when all selected TCB keys share a value, which the argument receives.
    bool getCommonTension(float *tension) const;
    bool getCommonContinuity(float *continuity) const;
    bool getCommonBias(float *bias) const;

    /// Whether the view follows the selection of the Parameters pane.
    void setMonitorParametersPane(bool onOff);
    bool getMonitorParametersPane() const;

Q_SIGNALS:
    /// The properties of the selected rows; add is false when they replace those sent before.
    void propertyHitListChanged(QVector<VxProperty *> propList, bool add);
    /// A change of the row selection was applied to the scene.
    void itemSelectionChanged();
    void keySelectionChanged();
    void copyContextChanged(bool hasItems);

public Q_SLOTS:
    /// Repaints rows and header.
    void doUpdate();
    /// Copies the selected keys, replacing the former copy.
    void copyKeys();
    /// Sets the copied keys on the rows of the same paths, the earliest one at the current time.
    void pasteKeys() { pasteCopiedKeys(); }
    void deleteKeys();
    /// Of the selected keys of float properties; their tension, continuity and bias stay.
    void setInterpType(int type);
    /// Of those selected keys that are TCB keys.
    void setTCB(float t, float c, float b);
    /// Set the time to that of the nearest key more than half a frame away: of the primary node's
    /// row, or, without one, of all rows.
    void skipToPreviousKey();
    void skipToNextKey();
    void clearSelectedKeys();
    /// Selects or deselects the keys of the rows from startIndex to endIndex, in the order in which
    /// they are shown; a closed last row includes all rows below it. Times: startTime included,
    /// endTime not; equal ones select the keys at just that time. An invalid startIndex is replaced
    /// by the context item, an invalid endIndex by startIndex.
    void setKeySelection(bool yesNo, QModelIndex startIndex = QModelIndex(),
                         QModelIndex endIndex = QModelIndex(), VxTime startTime = -1,
                         VxTime endTime = VxTimeMax);
    /// Both have no effect.
    VxDopeSheetItem *searchNext() { return nullptr; }
    VxDopeSheetItem *searchPrevious() { return nullptr; }
    void timeChanged(VxTime time);
    void timerKick();
    void handleAppStarting();
    void handleGraphChannelListChanged(QVector<VxProperty *> propList);
    void handleKeyMessage(const VxKeyMessage &message);
    void handleSelectionChanged(const QItemSelection &selected, const QItemSelection &deselected);

private Q_SLOTS:
    void finishRemoval();

protected:
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    /// Screen readers get the object of the row: the base class reports the number of a cell.
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    /// As the tree view does it, from left to right.
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    /// Alt+Right and Alt+Left open and close the current row, the second time with all rows below
    /// it.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setOpen(const QModelIndex &index, bool open);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
