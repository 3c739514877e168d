#ifndef VXKEYTOOLSPANE_H
#define VXKEYTOOLSPANE_H

#include <QtCore/QVariant>
#include <memory>
#include <vxcore/vxpane.h>

/// A pane with the key tools: the list of tools, fields for the parameters of the chosen one, its
/// targets, and its result. What is typed is shown in all views; Return in a field, or the button,
/// runs the tool, and Escape restores the keys (KeyToolPreview).
class VxKeyToolsPane : public VxPane
{
    Q_OBJECT
    Q_PROPERTY(QString tool READ getTool WRITE setTool)
public:
    VxKeyToolsPane();
    ~VxKeyToolsPane() override;

    /// The name of the chosen tool, such as "retime".
    QString getTool() const;

    /// Stores the last typed texts of each tool.
    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;

public Q_SLOTS:
    /// Chooses a tool by its name and selects the text of its first field; other names are
    /// ignored.
    void setTool(const QString &name);
    /// Sets a field's text as if typed. False when the tool has no such parameter.
    bool setField(const QString &parameter, const QString &text);
    /// Runs the tool with the fields' values. False when it changed nothing.
    bool apply();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showTool();
    void showTargets();
    void keepFields();
    void preview(QWidget *field);
    QVariantMap typedArguments() const;

    class Private;
    std::unique_ptr<Private> d;
};

#endif
