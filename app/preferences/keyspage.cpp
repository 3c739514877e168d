#include "preferences/keyspage.h"

#include "shortcuts/shortcuteditor.h"

#include <QVBoxLayout>

KeysPage::KeysPage(const ShortcutList &list, Apply use, QWidget *parent)
    : PreferencesPage(parent)
    , m_editor(new ShortcutEditor(list))
    , m_use(std::move(use))
{
    setObjectName(QStringLiteral("KeysPage"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_editor);
    setFocusProxy(m_editor);
    connect(m_editor, &ShortcutEditor::edited, this, &KeysPage::edited);
}

bool KeysPage::isChanged() const
{
    return !m_editor->list().changes().isEmpty();
}

void KeysPage::apply()
{
    m_use(m_editor->list());
    m_editor->markApplied();
}
