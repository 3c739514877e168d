#ifndef PANE_VXPROPERTYMENU_H
#define PANE_VXPROPERTYMENU_H

#include <QtCore/QVector>
#include <QtWidgets/QMenu>

class VxProperty;

/// The context menu of a property list: commands on the keys and values of some rows, each of which
/// stands for some properties. What makes no sense for them at the scene's time is disabled.
class VxPropertyMenu : public QMenu
{
    Q_OBJECT
public:
    explicit VxPropertyMenu(const QVector<QVector<VxProperty *>> &rows, QWidget *parent = nullptr);

Q_SIGNALS:
    /// Something could not be done as it was meant, in words.
    void noticed(const QString &text);

private:
    void addKeyCommands(bool editable);
    void addSkips();
    void addSkip(const QString &text, bool after);
    void addValueCommands(bool editable);

    QVector<QVector<VxProperty *>> m_rows;
    QVector<VxProperty *> m_properties; // of all rows
};

#endif
