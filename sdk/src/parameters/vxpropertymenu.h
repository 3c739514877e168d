#ifndef VXPROPERTYMENU_H
#define VXPROPERTYMENU_H

#include <QtCore/QVector>
#include <QtWidgets/QMenu>

class VxProperty;

/// The context menu of a property list: commands on the keys and values of some rows, each with
/// one or several properties. Commands without an effect at the scene's time are disabled.
class VxPropertyMenu : public QMenu
{
    Q_OBJECT
public:
    explicit VxPropertyMenu(const QVector<QVector<VxProperty *>> &rows, QWidget *parent = nullptr);

Q_SIGNALS:
    /// A message that an edit could not be applied fully.
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
