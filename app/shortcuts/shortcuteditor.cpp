#include "shortcuts/shortcuteditor.h"

#include "shortcuts/shortcutfield.h"
#include "shortcuts/shortcutmodel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int WarningSize = 20;     // pixels
constexpr int ShortcutLetters = 18; // of the shortcuts' column and field

QPushButton *makeButton(const char *name, const QString &text)
{
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    // Enter is for the dialog's own OK.
    button->setAutoDefault(false);
    return button;
}

QLabel *makeText(const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

/** Reserves space for that many lines, so that nothing moves when the text changes. */
void reserveLines(QLabel *label, int lines)
{
    label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
}

void keepRoomWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QString native(const QKeySequence &shortcut)
{
    return shortcut.toString(QKeySequence::NativeText);
}

} // namespace

ShortcutEditor::ShortcutEditor(const ShortcutList &list, QWidget *parent)
    : QWidget(parent)
    , m_model(new ShortcutModel(list, this))
    , m_search(new ShortcutSearch(this))
{
    setObjectName(QStringLiteral("ShortcutEditor"));
    m_search->setSourceModel(m_model);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(buildSearch());
    layout->addWidget(buildTree(), 1);
    layout->addWidget(buildDetails());
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ShortcutEditor::showCurrent);
    connect(m_model, &ShortcutModel::edited, this, &ShortcutEditor::showCurrent);
    connect(m_model, &ShortcutModel::edited, this, &ShortcutEditor::edited);
    showCurrent();
}

const ShortcutList &ShortcutEditor::list() const
{
    return m_model->list();
}

void ShortcutEditor::markApplied()
{
    m_model->markApplied();
}

QWidget *ShortcutEditor::buildSearch()
{
    auto *field = new QLineEdit;
    field->setObjectName(QStringLiteral("ShortcutSearchField"));
    field->setPlaceholderText(tr("Search by name, description or shortcut"));
    field->setAccessibleName(tr("Search"));
    if (vxApp && vxApp->getStyle())
        field->addAction(vxApp->getStyle()->icon(VxStyle::SP_VxSearch), QLineEdit::LeadingPosition);
    connect(field, &QLineEdit::textChanged, this, &ShortcutEditor::search);
    field->installEventFilter(this);
    setFocusProxy(field);
    return field;
}

QWidget *ShortcutEditor::buildTree()
{
    m_tree = new QTreeView;
    m_tree->setObjectName(QStringLiteral("ShortcutTree"));
    m_tree->setAccessibleName(tr("Commands"));
    m_tree->setModel(m_search);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(ShortcutModel::CommandColumn, QHeaderView::Stretch);
    m_tree->header()->resizeSection(ShortcutModel::ShortcutColumn,
                                    ShortcutLetters * fontMetrics().averageCharWidth());
    m_tree->expandAll();
    connect(m_tree, &QTreeView::doubleClicked, this, &ShortcutEditor::beginCapture);
    m_tree->installEventFilter(this);

    m_nothingFound = new QLabel(tr("No matching commands."), m_tree);
    m_nothingFound->setObjectName(QStringLiteral("ShortcutNothingFound"));
    m_nothingFound->setEnabled(false);
    m_nothingFound->setContentsMargins(12, 40, 12, 12);
    m_nothingFound->adjustSize();
    m_nothingFound->hide();
    return m_tree;
}

QWidget *ShortcutEditor::buildDetails()
{
    auto *details = new QWidget;
    auto *layout = new QVBoxLayout(details);
    layout->setContentsMargins(0, 0, 0, 0);
    m_title = makeText("ShortcutTitle");
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_description = makeText("ShortcutDescription");
    reserveLines(m_description, 3);
    layout->addWidget(m_title);
    layout->addWidget(m_description);
    layout->addLayout(buildShortcutLine());
    layout->addLayout(buildConflictLine());
    return details;
}

QLayout *ShortcutEditor::buildShortcutLine()
{
    auto *layout = new QHBoxLayout;
    m_field = new ShortcutField;
    m_field->setFixedWidth(ShortcutLetters * fontMetrics().averageCharWidth());
    auto *label = new QLabel(tr("&Shortcut:"));
    label->setBuddy(m_field);
    m_clear = makeButton("ShortcutClearBtn", tr("&Clear"));
    m_reset = makeButton("ShortcutResetBtn", tr("&Reset"));
    layout->addWidget(label);
    layout->addWidget(m_field);
    layout->addWidget(m_clear);
    layout->addWidget(m_reset);
    layout->addStretch(1);
    m_resetAll = makeButton("ShortcutResetAllBtn", tr("Reset &All"));
    m_resetAll->setToolTip(tr("Restores the default shortcuts of all commands."));
    connect(m_resetAll, &QPushButton::clicked, m_model, &ShortcutModel::resetAll);
    layout->addWidget(m_resetAll);
    connect(m_field, &ShortcutField::captured, this, &ShortcutEditor::propose);
    connect(m_clear, &QPushButton::clicked, this, [this] { propose(QKeySequence()); });
    connect(m_reset, &QPushButton::clicked, this,
            [this] { propose(list().at(current()).standard); });
    return layout;
}

QLayout *ShortcutEditor::buildConflictLine()
{
    auto *layout = new QHBoxLayout;
    m_conflict = makeText("ShortcutConflict");
    m_conflict->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    reserveLines(m_conflict, 2);
    m_reassign = makeButton("ShortcutTakeOverBtn", tr("&Reassign"));
    m_warning = new QLabel;
    m_warning->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(WarningSize));
    for (QWidget *widget : {static_cast<QWidget *>(m_warning), static_cast<QWidget *>(m_reassign)})
        keepRoomWhenHidden(widget);
    layout->addWidget(m_warning);
    layout->addWidget(m_conflict, 1);
    layout->addWidget(m_reassign);
    connect(m_reassign, &QPushButton::clicked, this, &ShortcutEditor::reassign);
    return layout;
}

int ShortcutEditor::current() const
{
    const QModelIndex row = m_tree->currentIndex();
    return row.isValid() ? row.data(ShortcutModel::CommandRole).toInt() : -1;
}

void ShortcutEditor::selectCommand(int command)
{
    const QModelIndex row = m_search->mapFromSource(m_model->indexOf(command));
    m_tree->setCurrentIndex(row);
    m_tree->scrollTo(row);
}

void ShortcutEditor::showCurrent()
{
    clearConflict();
    const int command = current();
    const bool isCommand = command >= 0;
    const ShortcutCommand shown = isCommand ? list().at(command) : ShortcutCommand();
    m_title->setText(isCommand ? shown.text : tr("Choose a command to change its shortcut."));
    m_description->setText(shown.isFixed() && isCommand
                               ? tr("The shortcut of this command cannot be changed.")
                               : shown.description);
    m_field->setShortcut(shown.current);
    m_field->setPlaceholderText(shown.isFixed() ? QString() : tr("Press a key"));
    m_field->setEnabled(!shown.isFixed());
    m_clear->setEnabled(!shown.isFixed() && !shown.current.isEmpty());
    m_reset->setEnabled(isCommand && !list().isStandard(command));
    m_reset->setToolTip(shown.standard.isEmpty() ? tr("Default: none")
                                                 : tr("Default: %1").arg(native(shown.standard)));
    m_resetAll->setEnabled(!list().areStandard());
}

void ShortcutEditor::propose(const QKeySequence &shortcut)
{
    const int command = current();
    if (command < 0 || list().at(command).isFixed())
        return;
    clearConflict();
    m_field->setShortcut(shortcut);
    if (list().holderOf(shortcut, command) < 0)
        m_model->assign(command, shortcut);
    else
        explainConflict(shortcut);
}

void ShortcutEditor::explainConflict(const QKeySequence &shortcut)
{
    const ShortcutCommand &holder = list().at(list().holderOf(shortcut, current()));
    const QString whose =
        tr("%1 is assigned to \"%2\" (%3).").arg(native(shortcut), holder.text, holder.group);
    m_warning->show();
    if (holder.isFixed()) {
        m_conflict->setText(whose + QLatin1Char(' ') + tr("It cannot be reassigned."));
        return;
    }
    m_conflict->setText(whose + QLatin1Char(' ') +
                        tr("Reassigning it leaves that command without a shortcut."));
    m_pending = shortcut;
    m_reassign->show();
}

void ShortcutEditor::clearConflict()
{
    m_pending = QKeySequence();
    m_conflict->clear();
    m_warning->hide();
    m_reassign->hide();
}

void ShortcutEditor::reassign()
{
    m_field->setFocus(Qt::OtherFocusReason);
    m_model->assign(current(), QKeySequence(m_pending));
}

void ShortcutEditor::search(const QString &text)
{
    const int before = current();
    m_search->setText(text);
    m_tree->expandAll();
    m_nothingFound->setVisible(m_search->rowCount() == 0);
    if (before >= 0)
        selectCommand(before);
    showCurrent();
}

void ShortcutEditor::beginCapture()
{
    if (m_field->isEnabled())
        m_field->setFocus(Qt::OtherFocusReason);
}

/** Down moves from the search to the matches, Enter from a command to its field. */
bool ShortcutEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent *>(event)->key();
        if (watched == m_tree && (key == Qt::Key_Return || key == Qt::Key_Enter) &&
            current() >= 0) {
            beginCapture();
            return true;
        }
        if (watched != m_tree && key == Qt::Key_Down) {
            m_tree->setFocus(Qt::OtherFocusReason);
            if (current() < 0)
                m_tree->setCurrentIndex(m_search->index(0, 0, m_search->index(0, 0)));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
