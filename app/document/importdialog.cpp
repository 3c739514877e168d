#include "document/importdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPlainTextEdit *makeText(QWidget *parent)
{
    auto *text = new QPlainTextEdit(parent);
    text->setObjectName(QStringLiteral("importReport"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setMinimumSize(520, 260);
    return text;
}

} // namespace

ImportDialog::ImportDialog(VxMotionImport *import, const QString &fileName, QWidget *parent)
    : QDialog(parent)
    , m_import(import)
    , m_fileName(fileName)
{
    setWindowTitle(tr("Import %1").arg(QFileInfo(fileName).fileName()));
    m_report = makeText(this);
    m_numbers = new QLabel(this);
    m_numbers->setObjectName(QStringLiteral("importNumbers"));
    m_numbers->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    m_accept = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_report, 1);
    layout->addWidget(makeChoices());
    layout->addWidget(m_numbers);
    layout->addWidget(buttons);
    showReport();
}

QCheckBox *ImportDialog::addChoice(const QString &name, const QString &text, QWidget *group)
{
    auto *box = new QCheckBox(text, group);
    box->setObjectName(name);
    group->layout()->addWidget(box);
    return box;
}

QWidget *ImportDialog::makeChoices()
{
    auto *group = new QWidget(this);
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    m_animation = new QComboBox(group);
    m_animation->setObjectName(QStringLiteral("importAnimation"));
    m_animation->addItem(tr("All animations, one after another"));
    for (const VxImportedClip &clip : m_import->report().clips)
        m_animation->addItem(clip.name);
    m_animation->setVisible(m_animation->count() > 2);
    layout->addWidget(m_animation);
    m_startsAtZero =
        addChoice(QStringLiteral("importStartsAtZero"), tr("Move the first key to time 0"), group);
    // BVH motion begins at 0 and has no choice of animations.
    m_startsAtZero->setVisible(m_animation->count() > 1);
    m_snapsToFrames =
        addChoice(QStringLiteral("importSnapsToFrames"), tr("Snap keys to frames"), group);
    m_matchesRate = addChoice(QStringLiteral("importMatchesRate"),
                              tr("Set the scene to the file's frame rate"), group);
    m_matchesRate->setVisible(!m_import->setsRate());
    m_rotationsOnly = addChoice(QStringLiteral("importRotationsOnly"), tr("Rotations only"), group);
    connect(m_animation, QOverload<int>::of(&QComboBox::activated), this,
            &ImportDialog::readAnimation);
    connect(m_startsAtZero, &QCheckBox::toggled, this, &ImportDialog::readAnimation);
    for (const QCheckBox *box : {m_snapsToFrames, m_matchesRate, m_rotationsOnly})
        connect(box, &QCheckBox::toggled, this, &ImportDialog::showNumbers);
    return group;
}

/** By number, because animations may have equal names. */
void ImportDialog::readAnimation()
{
    VxMotionBuildOptions options;
    const int index = m_animation->currentIndex();
    options.clip = index > 0 ? QString::number(index) : QString();
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
    m_report->setPlainText(m_import->report().lines().join(QLatin1Char('\n')));
    showNumbers();
}

void ImportDialog::showNumbers()
{
    const VxImportNumbers numbers = m_import->numbers(choices());
    QString text =
        tr("%1 keys, %2 of them between frames.").arg(numbers.keys).arg(numbers.offFrame);
    if (numbers.largestMove > 0)
        text += QLatin1Char(' ') + tr("Keys move by up to %1 ticks.").arg(numbers.largestMove);
    if (numbers.merged > 0)
        text +=
            QLatin1Char(' ') + tr("%1 keys are dropped because another key lies on the same frame.")
                                   .arg(numbers.merged);
    if (numbers.leftOut > 0)
        text += QLatin1Char(' ') + tr("%1 keys are left out.").arg(numbers.leftOut);
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
    QPlainTextEdit *text = makeText(&dialog);
    text->setPlainText(report.lines().join(QLatin1Char('\n')));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog.exec();
}
