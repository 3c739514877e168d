#include "document/importdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace {

/// The lines of a report; the preferred size shows them all.
class ReportText : public QPlainTextEdit
{
public:
    explicit ReportText(QWidget *parent)
        : QPlainTextEdit(parent)
    {
        setObjectName(QStringLiteral("importReport"));
        setAccessibleName(ImportDialog::tr("Import Report"));
        setReadOnly(true);
        setTabChangesFocus(true);
        setMinimumSize(360, 120);
    }

    QSize sizeHint() const override
    {
        constexpr int Width = 600;
        QTextDocument text(toPlainText());
        text.setDefaultFont(font());
        text.setTextWidth(Width);
        const int frame = 2 * frameWidth();
        // The editor shows a scroll bar until it has room for whole lines below the last one.
        const int spare = 2 * fontMetrics().lineSpacing();
        return {Width + frame, int(std::ceil(text.size().height())) + frame + spare};
    }
};

/** Resizes a dialog to its preferred size as far as the screen has room for it and its frame. */
void fitToScreen(QDialog *dialog)
{
    const QSize room = dialog->screen()->availableSize() - QSize(40, 40);
    dialog->resize(dialog->sizeHint().boundedTo(room));
}

} // namespace

ImportDialog::ImportDialog(VxMotionImport *import, const QString &fileName, QWidget *parent)
    : QDialog(parent)
    , m_import(import)
    , m_fileName(fileName)
{
    setWindowTitle(tr("Import %1").arg(QFileInfo(fileName).fileName()));
    m_report = new ReportText(this);
    m_numbers = new QLabel(this);
    m_numbers->setObjectName(QStringLiteral("importNumbers"));
    m_numbers->setTextFormat(Qt::PlainText);
    m_numbers->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    m_accept = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_report, 1);
    layout->addWidget(makeAnimations());
    layout->addWidget(makeChoices());
    layout->addWidget(m_numbers);
    layout->addWidget(buttons);
    showReport();
    fitToScreen(this);
}

/** In two columns. */
QCheckBox *ImportDialog::addChoice(const char *name, const QString &text, bool isOffered,
                                   QWidget *group)
{
    auto *box = new QCheckBox(text, group);
    box->setObjectName(QLatin1String(name));
    box->setVisible(isOffered);
    auto *grid = static_cast<QGridLayout *>(group->layout());
    if (isOffered)
        grid->addWidget(box, grid->count() / 2, grid->count() % 2);
    return box;
}

/** Hidden when there is no choice. */
QWidget *ImportDialog::makeAnimations()
{
    auto *group = new QWidget(this);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(tr("&Animation"), group);
    m_animation = new QComboBox(group);
    label->setBuddy(m_animation);
    row->addWidget(label);
    row->addWidget(m_animation, 1);
    m_animation->setObjectName(QStringLiteral("importAnimation"));
    m_animation->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_animation->addItem(tr("All animations, one after another"));
    for (const VxImportedClip &clip : m_import->report().clips)
        m_animation->addItem(clip.name);
    group->setVisible(m_animation->count() > 2);
    connect(m_animation, QOverload<int>::of(&QComboBox::activated), this,
            &ImportDialog::readAnimation);
    return group;
}

QWidget *ImportDialog::makeChoices()
{
    auto *group = new QWidget(this);
    auto *grid = new QGridLayout(group);
    grid->setContentsMargins(0, 0, 0, 0);
    // BVH motion begins at 0 and has no choice of animations.
    m_startsAtZero = addChoice("importStartsAtZero", tr("Move the first key to time 0"),
                               !m_import->report().clips.empty(), group);
    m_snapsToFrames = addChoice("importSnapsToFrames", tr("Snap keys to frames"), true, group);
    m_matchesRate = addChoice("importMatchesRate", tr("Set the scene to the file's frame rate"),
                              !m_import->setsRate(), group);
    m_rotationsOnly = addChoice("importRotationsOnly", tr("Rotations only"), true, group);
    connect(m_startsAtZero, &QCheckBox::toggled, this, &ImportDialog::readAnimation);
    for (const QCheckBox *box : {m_snapsToFrames, m_matchesRate, m_rotationsOnly})
        connect(box, &QCheckBox::toggled, this, &ImportDialog::showReport);
    return group;
}

/** By number, because animations may have equal names. */
void ImportDialog::readAnimation()
{
    VxMotionBuildOptions options;
    const int index = m_animation->currentIndex();
    options.clipNumber = qMax(0, index);
    options.startsAtZero = m_startsAtZero->isChecked();
    m_import->setOptions(options);
    VxFileError error;
    const bool isLoaded = m_import->load(m_fileName, &error);
    m_accept->setEnabled(isLoaded);
    if (isLoaded)
        showReport();
    else
        m_numbers->setText(error.text());
}

void ImportDialog::showReport()
{
    m_report->setPlainText(m_import->report(choices()).lines().join(QLatin1Char('\n')));
    updateStartsAtZero();
    const bool hasRate = m_import->report().sourceRate > 0.0;
    m_matchesRate->setEnabled(hasRate);
    m_matchesRate->setToolTip(hasRate ? QString() : tr("The file's frame rate is unknown."));
    showNumbers();
}

/** The choice is disabled, with the reason, where it would change nothing. */
void ImportDialog::updateStartsAtZero()
{
    const VxImportReport &report = m_import->report();
    const auto numImported = std::count_if(report.clips.begin(), report.clips.end(),
                                           [](const VxImportedClip &c) { return c.isImported; });
    QString reason;
    if (numImported > 1)
        reason = tr("Several animations always begin at time 0.");
    else if (report.firstKey == 0.0)
        reason = tr("The first key is at time 0 already.");
    m_startsAtZero->setEnabled(reason.isEmpty());
    m_startsAtZero->setToolTip(reason);
}

void ImportDialog::showNumbers()
{
    const VxImportNumbers numbers = m_import->numbers(choices());
    QString text =
        tr("%n keys, %1 of them between frames.", nullptr, numbers.keys).arg(numbers.offFrame);
    if (numbers.largestMove > 0)
        text += QLatin1Char(' ') + tr("Keys move by up to %n ticks.", nullptr, numbers.largestMove);
    if (numbers.merged > 0)
        text +=
            QLatin1Char(' ') + tr("%n keys are dropped because another key is on the same frame.",
                                  nullptr, numbers.merged);
    if (numbers.leftOut > 0)
        text += QLatin1Char(' ') + tr("%n keys are left out.", nullptr, numbers.leftOut);
    m_numbers->setText(text);
}

VxImportChoices ImportDialog::choices() const
{
    VxImportChoices choices;
    choices.snapsToFrames = m_snapsToFrames->isChecked();
    choices.matchesRate = m_matchesRate->isChecked();
    choices.rotationsOnly = m_rotationsOnly->isChecked();
    return choices;
}

bool ImportDialog::ask(QWidget *parent, VxMotionImport *import, const QString &fileName,
                       VxImportChoices *choices)
{
    ImportDialog dialog(import, fileName, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    *choices = dialog.choices();
    return true;
}

void showImportReport(const VxImportReport &report, QWidget *parent)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("importReportDialog"));
    dialog.setWindowTitle(ImportDialog::tr("Import Report"));
    auto *text = new ReportText(&dialog);
    text->setPlainText(report.lines().join(QLatin1Char('\n')));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    fitToScreen(&dialog);
    dialog.exec();
}
