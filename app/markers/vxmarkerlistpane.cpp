#include "markers/vxmarkerlistpane.h"

#include "markers/markeredits.h"
#include "markers/markertablemodel.h"
#include "widgets/emptyhint.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QSet>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>
#include <functional>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int MarkerRowPadding = 4; // pixels, of a row's height
constexpr int NameColumnWidth = 220;

/** Triggers a command of the program's menus. */
void runCommand(const char *name)
{
    const VxMainWindow *window = vxApp->getInterface();
    QAction *command = window ? window->getActionMgr()->findCommand(QLatin1String(name)) : nullptr;
    if (command)
        command->trigger();
}

} // namespace

class VxMarkerListPane::Private
{
public:
    MarkerTableModel *model = nullptr;
    QSortFilterProxyModel *sorted = nullptr;
    QTableView *view = nullptr;
    EmptyHint *hint = nullptr;
    QHBoxLayout *buttons = nullptr;
    QVector<int> selected; // ids, while the model is reset
};

VxMarkerListPane::VxMarkerListPane()
    : VxPane(tr("Marker List"))
    , d(std::make_unique<Private>())
{
    setMinimumSize(1, 1); // panes in the same place may be lower
    d->model = new MarkerTableModel(vxScene, this);
    d->sorted = new QSortFilterProxyModel(this);
    d->sorted->setSourceModel(d->model);
    d->sorted->setSortRole(MarkerTableModel::SortRole);
    d->sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    // Joins the pane after the buttons, which precede it for the Tab key.
    d->view = new QTableView;
    d->view->setObjectName(QStringLiteral("MarkerTable"));
    d->view->setAccessibleName(tr("Markers"));
    d->view->setModel(d->sorted);
    d->view->setSelectionBehavior(QAbstractItemView::SelectRows);
    d->view->setWordWrap(false);
    d->view->setFrameShape(QFrame::NoFrame);
    d->view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    d->view->verticalHeader()->hide();
    fitRows();
    d->view->setColumnWidth(MarkerTableModel::Name, NameColumnWidth);
    d->view->horizontalHeader()->setStretchLastSection(true);
    d->view->horizontalHeader()->setSortIndicator(MarkerTableModel::Start, Qt::AscendingOrder);
    d->view->setSortingEnabled(true);
    d->view->installEventFilter(this);
    d->hint = new EmptyHint(d->view);
    setFocusProxy(d->view);

    d->buttons = new QHBoxLayout;
    addButton("addMarker", tr("Add"), tr("Adds a marker at the current time."),
              [] { MarkerEdits::add(vxScene, vxScene->getTime()); });
    addButton("deleteMarkers", tr("Delete"), tr("Deletes the selected markers."),
              [this] { deleteSelected(); });
    d->buttons->addStretch();
    addButton("importMarkers", tr("Import..."), tr("Adds the markers of a CSV file."),
              [] { runCommand("StudioImportMarkers"); });
    addButton("exportMarkers", tr("Export..."), tr("Saves all markers to a CSV file."),
              [] { runCommand("StudioExportMarkers"); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(d->buttons);
    layout->addWidget(d->view);

    connect(d->view, &QTableView::clicked, this, &VxMarkerListPane::showTime);
    connect(d->model, &MarkerTableModel::refused, this, [](const QString &message) {
        if (VxMainWindow *window = vxApp->getInterface())
            window->showStatusMessage(message);
    });
    connect(d->model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { d->selected = selectedIds(); });
    connect(d->sorted, &QAbstractItemModel::modelReset, this, &VxMarkerListPane::keepSelection);
    showCount();
}

VxMarkerListPane::~VxMarkerListPane() = default;

void VxMarkerListPane::fitRows()
{
    d->view->verticalHeader()->setDefaultSectionSize(d->view->fontMetrics().height() +
                                                     MarkerRowPadding);
    QHeaderView *columns = d->view->horizontalHeader();
    for (int i = 0; i < columns->count(); ++i)
        columns->resizeSection(i, qMax(columns->sectionSize(i), columns->sectionSizeHint(i)));
}

void VxMarkerListPane::changeEvent(QEvent *event)
{
    VxPane::changeEvent(event);
    // The table has the pane's font already.
    if (event->type() == QEvent::FontChange && d && d->view)
        fitRows();
}

QAbstractItemView *VxMarkerListPane::getTable() const
{
    return d->view;
}

void VxMarkerListPane::addButton(const char *name, const QString &text, const QString &help,
                                 const std::function<void()> &run)
{
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(help);
    button->setStatusTip(help);
    connect(button, &QPushButton::clicked, this, run);
    d->buttons->addWidget(button);
}

void VxMarkerListPane::showCount()
{
    d->hint->showMessage(d->model->rowCount() == 0 ? tr("The scene has no markers.") : QString());
}

QVector<int> VxMarkerListPane::selectedIds() const
{
    QVector<int> ids;
    for (const QModelIndex &index : d->view->selectionModel()->selectedRows())
        ids.append(d->model->markerAt(d->sorted->mapToSource(index).row()).id);
    return ids;
}

/** Selects the same markers in their new rows. */
void VxMarkerListPane::keepSelection()
{
    showCount();
    const QSet<int> ids(d->selected.cbegin(), d->selected.cend());
    QItemSelection rows;
    for (int row = 0; row < d->model->rowCount(); ++row) {
        if (!ids.contains(d->model->markerAt(row).id))
            continue;
        const QModelIndex index = d->sorted->mapFromSource(d->model->index(row, 0));
        rows.append(QItemSelectionRange(index));
    }
    if (rows.isEmpty())
        return;
    if (!d->view->currentIndex().isValid())
        d->view->selectionModel()->setCurrentIndex(rows.first().topLeft(),
                                                   QItemSelectionModel::NoUpdate);
    d->view->selectionModel()->select(rows,
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void VxMarkerListPane::showTime(const QModelIndex &index)
{
    const VxTimeRange span = d->model->markerAt(d->sorted->mapToSource(index).row()).span;
    vxScene->setTime(index.column() == MarkerTableModel::End ? span.getEnd() : span.getStart());
}

void VxMarkerListPane::deleteSelected()
{
    const QVector<int> ids = selectedIds();
    if (!ids.isEmpty())
        MarkerEdits::remove(vxScene, ids);
}

/** Claims Delete before commands of other panes, and shows the time of the current row. */
bool VxMarkerListPane::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if (watched != d->view || (!isPress && event->type() != QEvent::ShortcutOverride))
        return VxPane::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key != Qt::Key_Delete && !isReturn)
        return VxPane::eventFilter(watched, event);
    event->accept();
    if (isPress && !isReturn)
        deleteSelected();
    else if (isPress && d->view->currentIndex().isValid())
        showTime(d->view->currentIndex());
    return true;
}
