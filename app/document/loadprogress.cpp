#include "document/loadprogress.h"

#include "widgets/studiotext.h"
#include "widgets/usermessages.h"

#include <QLabel>
#include <QProgressDialog>
#include <vxcore/vxmainwindow.h>

namespace {

constexpr int PatienceMilliseconds = 500;

} // namespace

LoadProgress::LoadProgress(const UserMessages &messages, const QString &label)
{
    if (messages.isConsole())
        return;
    m_dialog = std::make_unique<QProgressDialog>(QString(), StudioText::tr("Cancel"), 0, 100,
                                                 messages.window());
    auto *text = new QLabel(label);
    text->setTextFormat(Qt::PlainText); // a file's name is no markup
    text->setAlignment(Qt::AlignCenter);
    m_dialog->setLabel(text);
    // Modal: only the cancel button gets input while events are processed.
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setMinimumDuration(PatienceMilliseconds);
    m_dialog->setAutoReset(false);
    m_dialog->setValue(0);
}

LoadProgress::~LoadProgress() = default;

VxFileProgress LoadProgress::function()
{
    if (!m_dialog)
        return {};
    return [dialog = m_dialog.get()](int percent) {
        dialog->setValue(percent);
        return !dialog->wasCanceled();
    };
}
