#ifndef KEYCONTROLS_H
#define KEYCONTROLS_H

#include <QtCore/QVector>

class QWidget;
class TimePaneStrip;
class VxBarButton;
class VxButtonBar;
class VxStyledButton;

/// The pane's buttons for keys: key graph, delete and create, the scope of key creation, copy and
/// paste. The pane connects their effects.
class KeyControls
{
public:
    /// The widgets belong to parent.
    KeyControls(QWidget *parent, const TimePaneStrip &strip);

    QWidget *group() const { return m_group; }
    VxBarButton *graphButton() const { return m_graph; }
    VxBarButton *deleteButton() const { return m_delete; }
    VxBarButton *createButton() const { return m_create; }
    VxStyledButton *scopeButton() const { return m_scope; }
    VxBarButton *copyButton() const { return m_copy; }
    VxBarButton *pasteButton() const { return m_paste; }
    /// All but the scope's, from left to right.
    QVector<VxBarButton *> barButtons() const;

    /// The bars that only the advanced view shows: key graph, copy and paste.
    void setAdvancedBarsVisible(bool visible);
    /// Enables the buttons by the selected and the copied keys.
    void setUsable(bool hasSelectedKeys, bool hasCopiedKeys);
    void updateIcons();

private:
    QWidget *m_group;
    VxButtonBar *m_graphBar = nullptr;
    VxButtonBar *m_copyPasteBar = nullptr;
    VxBarButton *m_graph = nullptr;
    VxBarButton *m_delete = nullptr;
    VxBarButton *m_create = nullptr;
    VxStyledButton *m_scope;
    VxBarButton *m_copy = nullptr;
    VxBarButton *m_paste = nullptr;
};

#endif
