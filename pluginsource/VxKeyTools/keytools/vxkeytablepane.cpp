#include "keytools/vxkeytablepane.h"

#include "keytools/keytablemodel.h"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsettings.h>

namespace {

constexpr int RowPadding = 4; // pixels, of a row's height

/// A table that passes copy and paste to the pane.
class KeyTableView : public QTableView
{
public:
    explicit KeyTableView(VxKeyTablePane *pane)
        : m_pane(pane)
    {
    }

protected:
    // Claims the keys before commands of other panes.
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::ShortcutOverride) {
            auto *key = static_cast<QKeyEvent *>(event);
            if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste) ||
                key->matches(QKeySequence::SelectAll)) {
                event->accept();
                return true;
            }
        }
        return QTableView::event(event);
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Copy))
            m_pane->copyRows();
        else if (event->matches(QKeySequence::Paste))
            m_pane->pasteRows();
        else
            QTableView::keyPressEvent(event);
    }

private:
    VxKeyTablePane *m_pane;
};

} // namespace

/// Edits cells as text and passes the typed text to the pane.
class KeyTableDelegate : public QStyledItemDelegate
{
public:
    explicit KeyTableDelegate(VxKeyTablePane *pane)
        : QStyledItemDelegate(pane)
        , m_pane(pane)
    {
    }
    void setModelData(QWidget *editor, QAbstractItemModel *,
                      const QModelIndex &index) const override
    {
        const QString typed = static_cast<QLineEdit *>(editor)->text();
        if (typed != index.data().toString())
            m_pane->setCells(index, typed);
    }

private:
    VxKeyTablePane *m_pane;
};

class VxKeyTablePane::Private
{
public:
    explicit Private(VxKeyTablePane *pane)
        : view(new KeyTableView(pane))
    {
    }

    std::vector<int> selectedRows() const;

    KeyTableModel model;
    QTableView *view;
    QLineEdit *filter = new QLineEdit;
    QComboBox *unit = new QComboBox;
    QLabel *message = new QLabel;
    QTimer timer;
};

std::vector<int> VxKeyTablePane::Private::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange &range : view->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

VxKeyTablePane::VxKeyTablePane()
    : VxPane(tr("Key Table"))
    , d(std::make_unique<Private>(this))
{
    // Panes in the same place may be lower than the table's header and a row.
    setMinimumSize(1, 1);
    d->filter->setObjectName(QStringLiteral("filter"));
    d->filter->setPlaceholderText(tr("Filter by node or property"));
    d->filter->setClearButtonEnabled(true);
    d->filter->setAccessibleName(tr("Filter by node or property"));
    d->unit->setObjectName(QStringLiteral("unit"));
    d->unit->addItems(
        {tr("As in the Scene"), tr("Frames"), tr("Seconds"), tr("Ticks"), tr("Timecode")});
    d->unit->setToolTip(tr("Unit of times"));
    d->message->setObjectName(QStringLiteral("message"));
    d->message->setTextFormat(Qt::PlainText);
    d->message->setWordWrap(true);
    d->view->setObjectName(QStringLiteral("table"));
    d->view->setAccessibleName(tr("Keys"));
    d->view->setModel(&d->model);
    d->view->setItemDelegate(new KeyTableDelegate(this));
    d->view->setSelectionBehavior(QAbstractItemView::SelectRows);
    d->view->setWordWrap(false);
    QHeaderView *rows = d->view->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    fitRows();
    rows->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QHeaderView *columns = d->view->horizontalHeader();
    columns->setSortIndicator(-1, Qt::AscendingOrder);
    d->view->setSortingEnabled(true);
    auto *strip = new QHBoxLayout;
    strip->addWidget(d->filter);
    auto *unitLabel = new QLabel(tr("Times"));
    unitLabel->setBuddy(d->unit);
    strip->addWidget(unitLabel);
    strip->addWidget(d->unit);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(strip);
    layout->addWidget(d->view);
    layout->addWidget(d->message);

    connect(d->filter, &QLineEdit::textChanged, &d->model, &KeyTableModel::setFilter);
    connect(d->unit, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        d->model.setTimeUnit(index < 1 ? std::nullopt
                                       : std::make_optional(VxTimeDisplay::Unit(index - 1)));
    });
    // Listing the keys needs a pass: once per event loop iteration, and only while visible.
    d->timer.setSingleShot(true);
    connect(&d->timer, &QTimer::timeout, this, &VxKeyTablePane::refresh);
    const auto changed = [this] { d->timer.start(0); };
    if (const VxKeySelection *selection = VxKeySelection::current())
        connect(selection, &VxKeySelection::changed, this, changed);
    if (vxScene) {
        connect(vxScene, &VxScene::nodeSelectionListChanged, this, changed);
        connect(vxScene, &VxScene::playRangeChanged, this, changed);
        connect(vxScene, &VxScene::timeStepChanged, &d->model, &KeyTableModel::updateTimes);
        connect(VxSceneTimeDisplay::of(vxScene), &VxSceneTimeDisplay::changed, &d->model,
                &KeyTableModel::updateTimes);
    }
}

VxKeyTablePane::~VxKeyTablePane() = default;

void VxKeyTablePane::restoreSettings(VxSettings *settings)
{
    const int unit = d->unit->findText(settings->getStringValue(QStringLiteral("TimeUnit")));
    d->unit->setCurrentIndex(qMax(0, unit));
}

void VxKeyTablePane::saveSettings(VxSettings *settings) const
{
    settings->setStringValue(QStringLiteral("TimeUnit"), d->unit->currentText());
}

void VxKeyTablePane::setFilter(const QString &text)
{
    d->filter->setText(text);
}

void VxKeyTablePane::fitRows()
{
    d->view->verticalHeader()->setDefaultSectionSize(d->view->fontMetrics().height() + RowPadding);
    QHeaderView *columns = d->view->horizontalHeader();
    for (int i = 0; i < columns->count(); ++i)
        columns->resizeSection(i, qMax(columns->sectionSize(i), columns->sectionSizeHint(i)));
}

void VxKeyTablePane::changeEvent(QEvent *event)
{
    VxPane::changeEvent(event);
    if (event->type() == QEvent::FontChange && d && d->view)
        fitRows();
}

void VxKeyTablePane::showEvent(QShowEvent *event)
{
    VxPane::showEvent(event);
    refresh();
}

void VxKeyTablePane::refresh()
{
    if (!isVisible())
        return;
    d->model.refresh();
    d->message->setText(tr("Shows %1.").arg(d->model.rows().targets().description()));
}

// Typed and pasted texts are for the keys that the table shows.
bool VxKeyTablePane::isCurrent()
{
    if (!d->model.isStale())
        return true;
    refresh();
    d->message->setText(tr("The keys have changed meanwhile; nothing was set."));
    return false;
}

bool VxKeyTablePane::setCells(const QModelIndex &index, const QString &typed)
{
    if (!isCurrent())
        return false;
    std::vector<int> rows = d->selectedRows();
    if (!std::binary_search(rows.begin(), rows.end(), index.row()))
        rows = {index.row()};
    const KeyToolResult result =
        KeyTableCells::setColumn(d->model.rows(), rows, KeyTableColumn(index.column()), typed);
    refresh();
    d->message->setText(result.message);
    return result.done;
}

void VxKeyTablePane::copyRows()
{
    QGuiApplication::clipboard()->setText(
        KeyTableCells::copied(d->model.rows(), d->selectedRows(), d->model.timeDisplay()));
}

bool VxKeyTablePane::pasteRows()
{
    const QModelIndex current = d->view->currentIndex();
    const QString text = QGuiApplication::clipboard()->text();
    if (!current.isValid() || text.isEmpty() || !isCurrent())
        return false;
    const bool isWholeRow =
        text.leftRef(text.indexOf(QLatin1Char('\n'))).count(QLatin1Char('\t')) + 1 ==
        KeyTableColumns;
    const KeyToolResult result = KeyTableCells::paste(
        d->model.rows(), current.row(),
        isWholeRow ? KeyTableColumn::Node : KeyTableColumn(current.column()), text);
    refresh();
    d->message->setText(result.message);
    return result.done;
}

VxKeyTableAction::VxKeyTableAction()
    : KeysMenuAction(tr("Key Table"), tr("Shows the selected keys as a table."))
{
}

void VxKeyTableAction::executeAction()
{
    showPane(QStringLiteral("VxKeyTablePane"));
}
