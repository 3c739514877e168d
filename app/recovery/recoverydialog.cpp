#include "recovery/recoverydialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <vxcore/vxtextstyle.h>

namespace {

constexpr QSize DialogSize(740, 300); // pixels
constexpr int NameWidth = 280;        // pixels

enum Column { NameColumn, TimeColumn, FolderColumn, NumColumns };

} // namespace

RecoveryDialog::RecoveryDialog(const QVector<RecoveryCopy> &copies, QWidget *parent)
    : QDialog(parent)
    , m_copies(copies)
{
    setObjectName(QStringLiteral("RecoveryDialog"));
    setWindowTitle(tr("Recover Documents"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    auto *text = new QLabel(tr("The program ended before these documents were saved. Recovery "
                               "copies were made at the times shown below."));
    text->setWordWrap(true);
    layout->addWidget(text);
    buildList();
    layout->addWidget(m_list, 1);
    buildButtons();
    resize(DialogSize);
}

void RecoveryDialog::buildList()
{
    m_list = new QTreeWidget;
    m_list->setObjectName(QStringLiteral("RecoveryList"));
    m_list->setAccessibleName(tr("Documents"));
    m_list->setColumnCount(NumColumns);
    m_list->setHeaderLabels({tr("Document"), tr("Copied"), tr("Folder")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setAllColumnsShowFocus(true);
    for (const RecoveryCopy &copy : qAsConst(m_copies))
        addRow(copy);
    m_list->header()->resizeSection(NameColumn, NameWidth);
    m_list->resizeColumnToContents(TimeColumn);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &RecoveryDialog::recoverCurrent);
}

void RecoveryDialog::addRow(const RecoveryCopy &copy)
{
    auto *row = new QTreeWidgetItem(m_list);
    const QString folder =
        copy.documentFile.isEmpty()
            ? tr("not saved yet")
            : QDir::toNativeSeparators(QFileInfo(copy.documentFile).absolutePath());
    row->setText(NameColumn, copy.title);
    row->setText(TimeColumn, QLocale().toString(copy.time, QLocale::ShortFormat));
    row->setText(FolderColumn, folder);
    row->setToolTip(NameColumn, vxToolTipText(copy.title));
    row->setToolTip(FolderColumn, vxToolTipText(folder));
    row->setToolTip(TimeColumn, QLocale().toString(copy.time, QLocale::LongFormat));
}

void RecoveryDialog::buildButtons()
{
    auto *box = new QDialogButtonBox;
    m_recover = box->addButton(tr("&Recover"), QDialogButtonBox::ActionRole);
    m_recover->setObjectName(QStringLiteral("RecoverButton"));
    m_recover->setToolTip(tr("Opens the copy; saving it replaces the document"));
    m_recover->setDefault(true);
    m_discard = box->addButton(tr("&Discard"), QDialogButtonBox::ActionRole);
    m_discard->setObjectName(QStringLiteral("DiscardButton"));
    m_discard->setToolTip(tr("Deletes the copy; the document itself stays as last saved"));
    m_discard->setAutoDefault(false);
    QPushButton *later = box->addButton(tr("&Later"), QDialogButtonBox::RejectRole);
    later->setObjectName(QStringLiteral("LaterButton"));
    later->setToolTip(tr("Keeps all copies and asks again at the next start"));
    later->setAutoDefault(false);
    connect(m_recover, &QPushButton::clicked, this, &RecoveryDialog::recoverCurrent);
    connect(m_discard, &QPushButton::clicked, this, &RecoveryDialog::discardCurrent);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(box);
}

int RecoveryDialog::currentIndex() const
{
    return m_list->indexOfTopLevelItem(m_list->currentItem());
}

void RecoveryDialog::recoverCurrent()
{
    const int index = currentIndex();
    if (index < 0)
        return;
    const RecoveryCopy copy = m_copies.at(index);
    hide(); // before other dialogs open
    Q_EMIT recoverRequested(copy);
    accept();
}

void RecoveryDialog::discardCurrent()
{
    const int index = currentIndex();
    if (index >= 0)
        Q_EMIT discardRequested(RecoveryCopy(m_copies.at(index)));
}

void RecoveryDialog::removeCopy(const QString &id)
{
    const auto found = std::find_if(m_copies.cbegin(), m_copies.cend(),
                                    [&id](const RecoveryCopy &copy) { return copy.id == id; });
    if (found == m_copies.cend())
        return;
    const int index = int(found - m_copies.cbegin());
    m_copies.remove(index);
    delete m_list->takeTopLevelItem(index);
    if (m_copies.isEmpty())
        accept();
}
