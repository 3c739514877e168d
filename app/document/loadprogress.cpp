#include "document/loadprogress.h"

#include "widgets/studiotext.h"
#include "widgets/usermessages.h"

#include <QLabel>
#include <QProgressDialog>
#include <vxcore/vxmainwindow.h>

namespace {

constexpr int PatienceMilliseconds = 500;

} // namespace

class LoadProgress::Private
{
public:
    std::unique_ptr<QProgressDialog> dialog; // null on the console
};

LoadProgress::LoadProgress(const UserMessages &messages, const QString &label)
    : d(std::make_unique<Private>())
{
    if (messages.isConsole())
        return;
    d->dialog = std::make_unique<QProgressDialog>(QString(), StudioText::tr("Cancel"), 0, 100,
                                                  messages.window());
    auto *text = new QLabel(label);
    text->setTextFormat(Qt::PlainText); // a file's name is no markup
    text->setAlignment(Qt::AlignCenter);
    d->dialog->setLabel(text);
    // Modal: only the cancel button gets input while events are processed.
    d->dialog->setWindowModality(Qt::ApplicationModal);
    d->dialog->setMinimumDuration(PatienceMilliseconds);
    d->dialog->setAutoReset(false);
    d->dialog->setValue(0);
}

LoadProgress::~LoadProgress() = default;

VxFileProgress LoadProgress::function()
{
    QProgressDialog *dialog = d->dialog.get();
    if (!dialog)
        return {};
    return [dialog](int percent) {
        dialog->setValue(percent);
        return !dialog->wasCanceled();
    };
}
