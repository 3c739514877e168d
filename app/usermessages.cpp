#include "usermessages.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <cstdio>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

namespace {

constexpr int NoticeMilliseconds = 15000;

void writeLine(std::FILE *file, const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file);
    std::fflush(file);
}

} // namespace

UserMessages::UserMessages(Mode mode)
    : m_mode(mode)
{
}

void UserMessages::setWindow(VxMainWindow *window)
{
    m_window = window;
}

VxMainWindow *UserMessages::window() const
{
    return m_window;
}

void UserMessages::showError(const QString &text) const
{
    if (isConsole())
        printError(text);
    else
        QMessageBox::warning(m_window, VxApp::getAppName(), text);
}

void UserMessages::showNotice(const QString &text) const
{
    printError(text);
    if (!isConsole() && m_window)
        m_window->showStatusMessage(text, NoticeMilliseconds);
}

void UserMessages::showStatus(const QString &text) const
{
    if (m_window)
        m_window->showStatusMessage(text, NoticeMilliseconds);
}

UserMessages::Choice UserMessages::askToSave(const QString &documentName) const
{
    if (isConsole())
        return Choice::Discard;
    const QString text = QCoreApplication::translate(
                             "UserMessages", "\"%1\" has changes that are not saved. Save them?")
                             .arg(documentName);
    switch (QMessageBox::question(m_window, VxApp::getAppName(), text,
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                  QMessageBox::Save)) {
    case QMessageBox::Save:
        return Choice::Save;
    case QMessageBox::Discard:
        return Choice::Discard;
    default:
        return Choice::Cancel;
    }
}

bool UserMessages::askToRevert(const QString &documentName) const
{
    if (isConsole())
        return true;
    const QString text = QCoreApplication::translate(
                             "UserMessages", "Go back to the saved \"%1\"? All changes since "
                                             "then are lost, and cannot be redone.")
                             .arg(documentName);
    return QMessageBox::question(m_window, VxApp::getAppName(), text,
                                 QMessageBox::Discard | QMessageBox::Cancel,
                                 QMessageBox::Cancel) == QMessageBox::Discard;
}

void UserMessages::print(const QString &text)
{
    writeLine(stdout, text);
}

void UserMessages::printError(const QString &text)
{
    writeLine(stderr, text);
}
