#ifndef VXMARKERLISTPANE_H
#define VXMARKERLISTPANE_H

#include <functional>
#include <vxcore/vxpane.h>

class EmptyHint;
class MarkerTableModel;
class QHBoxLayout;
class QModelIndex;
class QSortFilterProxyModel;
class QTableView;

/// The pane "Marker List": the markers as a table. A click sets the current time to the marker,
/// cells are edited in place, Delete deletes the selected rows, a click on a header sorts.
class VxMarkerListPane : public VxPane
{
    Q_OBJECT
public:
    VxMarkerListPane();

public Q_SLOTS:
    /// Deletes the markers of the selected rows.
    void deleteSelected();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fitRows();
    void showTime(const QModelIndex &index);
    void showCount();
    void keepSelection();
    QVector<int> selectedIds() const;
    void addButton(const char *name, const QString &text, const QString &help,
                   const std::function<void()> &run);

    MarkerTableModel *const m_model;
    QSortFilterProxyModel *const m_sorted;
    QTableView *m_view = nullptr;
    EmptyHint *m_hint = nullptr;
    QHBoxLayout *m_buttons = nullptr;
    QVector<int> m_selected; // ids, while the model is reset
};

#endif
