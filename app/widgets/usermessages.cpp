#include "widgets/usermessages.h"

#include "widgets/studiotext.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
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
        ask(QMessageBox::Warning, text, QMessageBox::Ok, QMessageBox::Ok);
}

void UserMessages::showNotice(const QString &text) const
{
    printError(text);
    if (!isConsole())
        showStatus(text);
}

void UserMessages::showStatus(const QString &text) const
{
    if (m_window)
        m_window->showStatusMessage(text, NoticeMilliseconds);
}

/** Shows a message box modally; returns the pressed button. */
int UserMessages::ask(int icon, const QString &text, int buttons, int defaultButton) const
{
    QMessageBox box(static_cast<QMessageBox::Icon>(icon), VxApp::getAppName(), text,
                    static_cast<QMessageBox::StandardButtons>(buttons), m_window);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(static_cast<QMessageBox::StandardButton>(defaultButton));
    return box.exec();
}

UserMessages::Choice UserMessages::askToSave(const QString &documentName) const
{
    if (isConsole())
        return Choice::Discard;
    const QString text = StudioText::tr("\"%1\" has unsaved changes. Save them?").arg(documentName);
    const int button =
        ask(QMessageBox::Question, text,
            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return button == QMessageBox::Save      ? Choice::Save
           : button == QMessageBox::Discard ? Choice::Discard
                                            : Choice::Cancel;
}

bool UserMessages::askToRevert(const QString &documentName) const
{
    if (isConsole())
        return true;
    const QString text =
        StudioText::tr("Revert \"%1\" to its saved version? All unsaved changes will be lost "
                       "and cannot be redone.")
            .arg(documentName);
    return ask(QMessageBox::Question, text, QMessageBox::Discard | QMessageBox::Cancel,
               QMessageBox::Cancel) == QMessageBox::Discard;
}

UserMessages::Overwrite UserMessages::askToOverwrite(const QString &text) const
{
    QMessageBox box(QMessageBox::Warning, VxApp::getAppName(), text,
                    QMessageBox::Save | QMessageBox::Cancel, m_window);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Save)->setText(StudioText::tr("Save &Anyway"));
    QPushButton *elsewhere = box.addButton(StudioText::tr("Save A&s..."), QMessageBox::AcceptRole);
    elsewhere->setObjectName(QStringLiteral("SaveAsButton"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == elsewhere                       ? Overwrite::SaveAs
           : box.clickedButton() == box.button(QMessageBox::Save) ? Overwrite::Save
                                                                  : Overwrite::Cancel;
}

bool UserMessages::askToReplace(const QString &fileName) const
{
    if (isConsole())
        return true;
    const QString text = StudioText::tr("%1 already exists. Do you want to replace it?")
                             .arg(QFileInfo(fileName).fileName());
    return ask(QMessageBox::Warning, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

bool UserMessages::askToDeleteCopy(const QString &documentName) const
{
    if (isConsole())
        return false;
    const QString text =
        StudioText::tr(
            "Delete the recovery copy of \"%1\"? Its unsaved changes will be lost permanently.")
            .arg(documentName);
    return ask(QMessageBox::Warning, text, QMessageBox::Discard | QMessageBox::Cancel,
               QMessageBox::Cancel) == QMessageBox::Discard;
}

UserMessages::Arrival UserMessages::askHowToOpen(const QString &motionName) const
{
    if (isConsole())
        return Arrival::Open;
    QMessageBox box(
        QMessageBox::Question, VxApp::getAppName(),
        StudioText::tr("Import the motion \"%1\" into this scene, or replace the scene with it?")
            .arg(motionName),
        QMessageBox::Cancel, m_window);
    box.setTextFormat(Qt::PlainText);
    QPushButton *importing = box.addButton(StudioText::tr("&Import"), QMessageBox::AcceptRole);
    importing->setObjectName(QStringLiteral("ImportButton"));
    QPushButton *opening = box.addButton(StudioText::tr("&Open"), QMessageBox::AcceptRole);
    opening->setObjectName(QStringLiteral("OpenButton"));
    box.setDefaultButton(importing);
    box.exec();
    return box.clickedButton() == importing ? Arrival::Import
           : box.clickedButton() == opening ? Arrival::Open
                                            : Arrival::Cancel;
}

void UserMessages::print(const QString &text)
{
    writeLine(stdout, text);
}

void UserMessages::printError(const QString &text)
{
    writeLine(stderr, text);
}
