#ifndef VXCONSOLEPANE_H
#define VXCONSOLEPANE_H

#include <vxcore/vxpane.h>

class ConsoleInput;
class ConsoleOutput;
class ConsoleRunner;
class QToolButton;
struct VxScriptError;

/// The pane "Script Console": a field for programs, above it their output, results and errors.
/// Programs that were run are saved with the pane's settings.
class VxConsolePane : public VxPane
{
    Q_OBJECT
public:
    VxConsolePane();

    /// All never null; owned by the pane.
    ConsoleInput *getInput() const { return m_input; }
    ConsoleOutput *getOutput() const { return m_output; }
    ConsoleRunner *getRunner() const { return m_runner; }

    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void applyFont();
    QToolButton *makeButton(const char *name, const QString &text, const QString &help);
    void run(const QString &program);
    void showError(const VxScriptError &error);
    void showRunning(bool running);

    ConsoleOutput *m_output;
    ConsoleInput *m_input;
    ConsoleRunner *m_runner;
    QToolButton *m_stop;
    QToolButton *m_clear;
};

#endif
