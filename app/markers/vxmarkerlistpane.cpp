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

VxMarkerListPane::VxMarkerListPane()
    : VxPane(tr("Marker List"))
    , m_model(new MarkerTableModel(vxScene, this))
    , m_sorted(new QSortFilterProxyModel(this))
{
    setMinimumSize(1, 1); // panes in the same place may be lower
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortRole(MarkerTableModel::SortRole);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    // Joins the pane after the buttons, which precede it for the Tab key.
    m_view = new QTableView;
    m_view->setObjectName(QStringLiteral("MarkerTable"));
    m_view->setAccessibleName(tr("Markers"));
    m_view->setModel(m_sorted);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setWordWrap(false);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->hide();
    fitRows();
    m_view->setColumnWidth(MarkerTableModel::Name, NameColumnWidth);
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_view->horizontalHeader()->setSortIndicator(MarkerTableModel::Start, Qt::AscendingOrder);
    m_view->setSortingEnabled(true);
    m_view->installEventFilter(this);
    m_hint = new EmptyHint(m_view);
    setFocusProxy(m_view);

    m_buttons = new QHBoxLayout;
    addButton("addMarker", tr("Add"), tr("Adds a marker at the current time."),
              [] { MarkerEdits::add(vxScene, vxScene->getTime()); });
    addButton("deleteMarkers", tr("Delete"), tr("Deletes the selected markers."),
              [this] { deleteSelected(); });
    m_buttons->addStretch();
    addButton("importMarkers", tr("Import..."), tr("Adds the markers of a CSV file."),
              [] { runCommand("StudioImportMarkers"); });
    addButton("exportMarkers", tr("Export..."), tr("Saves all markers to a CSV file."),
              [] { runCommand("StudioExportMarkers"); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(m_buttons);
    layout->addWidget(m_view);

    connect(m_view, &QTableView::clicked, this, &VxMarkerListPane::showTime);
    connect(m_model, &MarkerTableModel::refused, this, &vxShowStatusMessage);
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_selected = selectedIds(); });
    connect(m_sorted, &QAbstractItemModel::modelReset, this, &VxMarkerListPane::keepSelection);
    showCount();
}

void VxMarkerListPane::fitRows()
{
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() +
                                                    MarkerRowPadding);
    QHeaderView *columns = m_view->horizontalHeader();
    for (int i = 0; i < columns->count(); ++i)
        columns->resizeSection(i, qMax(columns->sectionSize(i), columns->sectionSizeHint(i)));
}

void VxMarkerListPane::changeEvent(QEvent *event)
{
    VxPane::changeEvent(event);
    // The table has the pane's font already.
    if (event->type() == QEvent::FontChange && m_view)
        fitRows();
}

void VxMarkerListPane::addButton(const char *name, const QString &text, const QString &help,
                                 const std::function<void()> &run)
{
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(help);
    button->setStatusTip(help);
    connect(button, &QPushButton::clicked, this, run);
    m_buttons->addWidget(button);
}

void VxMarkerListPane::showCount()
{
    m_hint->showMessage(m_model->rowCount() == 0 ? tr("The scene has no markers.") : QString());
}

QVector<int> VxMarkerListPane::selectedIds() const
{
    QVector<int> ids;
    for (const QModelIndex &index : m_view->selectionModel()->selectedRows())
        ids.append(m_model->markerAt(m_sorted->mapToSource(index).row()).id);
    return ids;
}

/** Selects the same markers in their new rows. */
void VxMarkerListPane::keepSelection()
{
    showCount();
    const QSet<int> ids(m_selected.cbegin(), m_selected.cend());
    QItemSelection rows;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (!ids.contains(m_model->markerAt(row).id))
            continue;
        const QModelIndex index = m_sorted->mapFromSource(m_model->index(row, 0));
        rows.append(QItemSelectionRange(index));
    }
    if (rows.isEmpty())
        return;
    if (!m_view->currentIndex().isValid())
        m_view->selectionModel()->setCurrentIndex(rows.first().topLeft(),
                                                  QItemSelectionModel::NoUpdate);
    m_view->selectionModel()->select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void VxMarkerListPane::showTime(const QModelIndex &index)
{
    const VxTimeRange span = m_model->markerAt(m_sorted->mapToSource(index).row()).span;
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
    if (watched != m_view || (!isPress && event->type() != QEvent::ShortcutOverride))
        return VxPane::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key != Qt::Key_Delete && !isReturn)
        return VxPane::eventFilter(watched, event);
    event->accept();
    if (isPress && !isReturn)
        deleteSelected();
    else if (isPress && m_view->currentIndex().isValid())
        showTime(m_view->currentIndex());
    return true;
}
