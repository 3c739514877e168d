#ifndef KEYSPAGE_H
#define KEYSPAGE_H

#include "preferences/preferencespage.h"

#include <functional>

class ShortcutEditor;
class ShortcutList;

/// The shortcuts of all commands.
class KeysPage : public PreferencesPage
{
    Q_OBJECT
public:
    using Apply = std::function<void(const ShortcutList &)>;

    /// use: applies the changes of a list.
    KeysPage(const ShortcutList &list, Apply use, QWidget *parent = nullptr);

    QString title() const override { return tr("Keys"); }
    bool isChanged() const override;
    void apply() override;

private:
    ShortcutEditor *m_editor;
    const Apply m_use;
};

#endif
