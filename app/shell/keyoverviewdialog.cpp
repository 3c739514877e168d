#include "shell/keyoverviewdialog.h"

#include "shell/keyoverview.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

constexpr QSize OverviewSize(640, 620); // pixels
constexpr int PageMargin = 10;          // pixels

} // namespace

KeyOverviewDialog::KeyOverviewDialog(QWidget *parent)
    : QDialog(parent)
    , m_page(new QTextBrowser)
{
    setObjectName(QStringLiteral("KeyOverviewDialog"));
    setWindowTitle(tr("Keyboard and Mouse"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_page->setObjectName(QStringLiteral("KeyOverviewPage"));
    m_page->setAccessibleName(windowTitle());
    m_page->document()->setDocumentMargin(PageMargin);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *change = box->addButton(tr("Change &Shortcuts..."), QDialogButtonBox::ActionRole);
    change->setAutoDefault(false);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(m_page, 1);
    layout->addWidget(box);
    setTabOrder(change, box->button(QDialogButtonBox::Close)); // from left to right
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(change, &QPushButton::clicked, this, &KeyOverviewDialog::changeRequested);
    resize(OverviewSize);
}

void KeyOverviewDialog::showShortcuts(const ShortcutList &shortcuts)
{
    const int place = m_page->verticalScrollBar()->value();
    m_page->setHtml(keyOverviewPage(shortcuts));
    m_page->verticalScrollBar()->setValue(place);
}
