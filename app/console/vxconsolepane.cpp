#include "console/vxconsolepane.h"

#include "console/consoleinput.h"
#include "console/consoleoutput.h"
#include "console/consolerunner.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QToolButton>
#include <vxcore/vxapp.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>

namespace {

const QString ProgramsKey = QStringLiteral("Programs");
constexpr int KeptPrograms = 50;

/** The lines of a program as typed, each after a prompt. */
QString withPrompts(const QString &program)
{
    return QStringLiteral("> ") +
           QString(program).replace(QLatin1Char('\n'), QLatin1String("\n  "));
}

} // namespace

VxConsolePane::VxConsolePane()
    : VxPane(tr("Script Console"))
    , m_output(new ConsoleOutput(this))
    , m_input(new ConsoleInput(vxApp->getScriptEngine(), this))
    , m_runner(new ConsoleRunner(vxApp->getScriptEngine(), this))
    , m_stop(makeButton("ConsoleStopBtn", tr("Stop"), tr("Stop the running script (Escape)")))
    , m_clear(makeButton("ConsoleClearBtn", tr("Clear"), tr("Clear the output")))
{
    applyFont();
    setFocusProxy(m_input);
    build();
    connect(vxApp->getScriptEngine(), &VxScriptEngine::printed, m_output,
            [this](const QString &text) { m_output->add(ConsoleOutput::Kind::Printed, text); });
    connect(m_input, &ConsoleInput::submitted, this, &VxConsolePane::run);
    connect(m_input, &ConsoleInput::escaped, m_runner, &ConsoleRunner::stop);
    connect(m_stop, &QToolButton::clicked, m_runner, &ConsoleRunner::stop);
    connect(m_clear, &QToolButton::clicked, m_output, &ConsoleOutput::clearAll);
    connect(m_runner, &ConsoleRunner::started, this, [this] { showRunning(true); });
    connect(m_runner, &ConsoleRunner::finished, this, [this] { showRunning(false); });
    connect(m_runner, &ConsoleRunner::failed, this, &VxConsolePane::showError);
    connect(m_runner, &ConsoleRunner::succeeded, this, [this](const QString &result) {
        if (!result.isEmpty())
            m_output->add(ConsoleOutput::Kind::Result, QStringLiteral("= ") + result);
    });
    showRunning(false);
}

/// The system's font of fixed width, in the size of all other texts.
void VxConsolePane::applyFont()
{
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QFontInfo(font()).pointSizeF());
    m_output->setFont(fixed);
    m_input->setFont(fixed);
    // One line, so that its minimum does not keep the dock area high.
    m_output->setMinimumHeight(m_output->fontMetrics().lineSpacing());
}

void VxConsolePane::changeEvent(QEvent *event)
{
    VxPane::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyFont();
}

void VxConsolePane::build()
{
    const int gap = vxApp->getStyle()->metric(VxStyle::PM_VxBaseMargin);
    auto *band = new QHBoxLayout;
    band->setContentsMargins(gap, gap, gap, gap);
    band->setSpacing(gap);
    band->addWidget(m_input, 1, Qt::AlignTop);
    band->addWidget(m_stop, 0, Qt::AlignTop);
    band->addWidget(m_clear, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_output, 1);
    layout->addLayout(band);
}

QToolButton *VxConsolePane::makeButton(const char *name, const QString &text, const QString &help)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(help);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

void VxConsolePane::run(const QString &program)
{
    m_output->add(ConsoleOutput::Kind::Program, withPrompts(program));
    if (!m_runner->run(program))
        m_output->add(ConsoleOutput::Kind::Error, tr("Another script is still running."));
    m_output->flush();
}

void VxConsolePane::showError(const VxScriptError &error)
{
    m_output->add(ConsoleOutput::Kind::Error, error.toString());
}

void VxConsolePane::showRunning(bool running)
{
    m_stop->setEnabled(running);
    m_input->setReadOnly(running);
}

void VxConsolePane::restoreSettings(VxSettings *settings)
{
    m_input->history().setEntries(settings->getStringListValue(ProgramsKey));
}

void VxConsolePane::saveSettings(VxSettings *settings) const
{
    const QStringList &programs = m_input->history().entries();
    settings->setStringListValue(ProgramsKey,
                                 programs.mid(qMax(0, programs.size() - KeptPrograms)));
}
