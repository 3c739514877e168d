#include "widgets/previewdialog.h"

#include <vxcore/vxundostackhold.h>

PreviewDialog::PreviewDialog(const QString &entry, QWidget *parent)
    : QDialog(parent)
    , m_entry(entry)
{
}

PreviewDialog::~PreviewDialog()
{
    restore();
}

void PreviewDialog::begin()
{
    m_hold = std::make_unique<VxUndoStackHold>();
}

void PreviewDialog::restore()
{
    if (m_hold)
        m_hold->rollBack();
    m_hold.reset();
}

void PreviewDialog::accept()
{
    if (m_hold)
        m_hold->accept(m_entry);
    m_hold.reset();
    QDialog::accept();
}

void PreviewDialog::reject()
{
    restore();
    QDialog::reject();
}
