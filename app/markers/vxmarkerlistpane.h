#ifndef VXMARKERLISTPANE_H
#define VXMARKERLISTPANE_H

#include <functional>
#include <memory>
#include <vxcore/vxpane.h>

class QAbstractItemView;
class QModelIndex;

/// The pane "Marker List": the markers as a table. A click sets the current time to the marker,
/// cells are edited in place, Delete deletes the selected rows, a click on a header sorts.
class VxMarkerListPane : public VxPane
{
    Q_OBJECT
public:
    VxMarkerListPane();
    ~VxMarkerListPane() override;

    /// Never null; owned by the pane.
    QAbstractItemView *getTable() const;

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

    class Private;
    std::unique_ptr<Private> d;
};

#endif
