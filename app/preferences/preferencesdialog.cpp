#include "preferences/preferencesdialog.h"

#include "preferences/preferencespage.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <algorithm>

namespace {

// In letters and lines of text, so that larger texts have a larger dialog.
constexpr int Letters = 110;
constexpr int Lines = 32;
constexpr double LargestShare = 0.9; // of the screen

QSize firstSize(const QWidget *dialog)
{
    const QFontMetrics metrics = dialog->fontMetrics();
    const QSize wanted(Letters * metrics.averageCharWidth(), Lines * metrics.lineSpacing());
    return wanted.boundedTo(dialog->screen()->availableSize() * LargestShare);
}

} // namespace

PreferencesDialog::PreferencesDialog(const QVector<PreferencesPage *> &pages, QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget)
    , m_stack(new QStackedWidget)
    , m_pages(pages)
{
    setObjectName(QStringLiteral("PreferencesDialog"));
    setWindowTitle(tr("Preferences"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_list->setObjectName(QStringLiteral("PreferencesPages"));
    m_list->setAccessibleName(tr("Pages"));
    m_list->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_list->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *columns = new QHBoxLayout;
    columns->addWidget(m_list);
    columns->addWidget(m_stack, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    for (PreferencesPage *page : pages)
        addPage(page);
    // After the pages, which precede them for the Tab key.
    buildButtons();
    layout->addWidget(m_buttons);
    connect(m_list, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_list->setCurrentRow(0);
    resize(firstSize(this));
    showState();
}

PreferencesDialog::~PreferencesDialog() = default;

void PreferencesDialog::addPage(PreferencesPage *page)
{
    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    m_stack->addWidget(area);
    m_list->addItem(page->title());
    connect(page, &PreferencesPage::edited, this, &PreferencesDialog::showState);
}

void PreferencesDialog::buildButtons()
{
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                     QDialogButtonBox::Apply);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &PreferencesDialog::apply);
}

void PreferencesDialog::showPage(const QString &name)
{
    for (int i = 0; i < m_pages.size(); ++i) {
        if (m_pages.at(i)->objectName() != name)
            continue;
        m_list->setCurrentRow(i);
        m_pages.at(i)->setFocus(Qt::OtherFocusReason);
    }
}

bool PreferencesDialog::hasChanges() const
{
    return std::any_of(m_pages.begin(), m_pages.end(),
                       [](const PreferencesPage *page) { return page->isChanged(); });
}

void PreferencesDialog::showState()
{
    m_buttons->button(QDialogButtonBox::Apply)->setEnabled(hasChanges());
}

void PreferencesDialog::apply()
{
    if (!hasChanges())
        return;
    for (PreferencesPage *page : m_pages) {
        if (page->isChanged())
            page->apply();
    }
    Q_EMIT applied();
    showState();
}

void PreferencesDialog::accept()
{
    apply();
    QDialog::accept();
}
