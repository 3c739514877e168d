#include "notespane.h"

#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxsettings.h>

NotesPane::NotesPane()
    : VxPane(tr("Notes"))
    , m_text(new QPlainTextEdit)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_text);
}

void NotesPane::restoreSettings(VxSettings *settings)
{
    m_text->setPlainText(settings->getStringValue(QStringLiteral("Text")));
}

void NotesPane::saveSettings(VxSettings *settings) const
{
    settings->setStringValue(QStringLiteral("Text"), getText());
}

void NotesPane::addNote(const QString &text)
{
    m_text->appendPlainText(text);
}

QString NotesPane::getText() const
{
    return m_text->toPlainText();
}
