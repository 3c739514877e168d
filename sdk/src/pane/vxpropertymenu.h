#ifndef PANE_VXPROPERTYMENU_H
#define PANE_VXPROPERTYMENU_H

#include <QtCore/QVector>
#include <QtWidgets/QMenu>

class VxProperty;

/// The context menu of a property list: commands on the keys and values of some properties. What
/// makes no sense for them at the scene's time is disabled.
class VxPropertyMenu : public QMenu
{
    Q_OBJECT
public:
    explicit VxPropertyMenu(const QVector<VxProperty *> &properties, QWidget *parent = nullptr);

private:
    void addKeyCommands(bool editable);
    void addSkips();
    void addSkip(const QString &text, bool after);
    void addValueCommands(bool editable);

    QVector<VxProperty *> m_properties;
};

#endif
