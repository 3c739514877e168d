#include "preferences/generalpage.h"

#include "document/documentcontroller.h"
#include "io/vxbackups.h"
#include "preferences/animations.h"
#include "preferences/languagesetting.h"
#include "recovery/autosave.h"
#include "recovery/recoveryjournal.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxstyle.h>

namespace {

// The value of the field that means the desktop's own size: below the smallest one.
constexpr int DesktopTextSize = VxStyle::SmallestTextSize - 1;
constexpr int MaxMinutes = 60;

} // namespace

GeneralPage::GeneralPage(const Targets &targets, QWidget *parent)
    : PreferencesPage(parent)
    , m_targets(targets)
{
    setObjectName(QStringLiteral("GeneralPage"));
    auto *layout = new QFormLayout(this);
    layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    addLanguage(layout);
    addLook(layout);
    addDocuments(layout);
    setFocusProxy(m_language);
}

QComboBox *GeneralPage::addBox(QFormLayout *layout, const QString &label, const char *name,
                               const QStringList &items, int current)
{
    auto *box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->addItems(items);
    box->setCurrentIndex(current);
    layout->addRow(label, box);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &GeneralPage::edited);
    return box;
}

QSpinBox *GeneralPage::addNumber(QFormLayout *layout, const QString &label, const char *name,
                                 int least, int most, int value)
{
    auto *box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(least, most);
    box->setValue(value);
    layout->addRow(label, box);
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, &GeneralPage::edited);
    return box;
}

void GeneralPage::addLanguage(QFormLayout *layout)
{
    const QStringList codes = VxLanguage::available();
    QStringList names{tr("System (%1)").arg(VxLanguage::nativeName(VxLanguage::system()))};
    for (const QString &code : codes)
        names += VxLanguage::nativeName(code);
    m_language = addBox(layout, tr("&Language:"), "PreferencesLanguage", names,
                        1 + codes.indexOf(LanguageSetting::code(*m_targets.settings)));
    m_language->setToolTip(tr("Used from the next start on."));
}

void GeneralPage::addLook(QFormLayout *layout)
{
    const VxStyle *style = m_targets.style;
    m_palette = addBox(layout, tr("&Palette:"), "PreferencesPalette",
                       {tr("Dark"), tr("Light"), tr("High contrast")},
                       static_cast<int>(style->colorScheme()));
    m_textSize = addNumber(layout, tr("&Text size:"), "PreferencesTextSize", DesktopTextSize,
                           VxStyle::LargestTextSize,
                           style->textSize() > 0 ? style->textSize() : DesktopTextSize);
    m_textSize->setSpecialValueText(tr("As on the desktop"));
    m_textSize->setSuffix(tr(" points"));
    m_curveColors = addBox(layout, tr("&Curve colours:"), "PreferencesCurveColors",
                           {tr("Red, green and blue"), tr("Colour-blind safe")},
                           static_cast<int>(style->curveColors()));
    m_animation = addBox(layout, tr("&Animation:"), "PreferencesAnimation",
                         {tr("As on the desktop"), tr("Always"), tr("Never")},
                         static_cast<int>(m_targets.animations->choice()));
}

void GeneralPage::addDocuments(QFormLayout *layout)
{
    m_backups = addNumber(layout, tr("&Backups of a file:"), "PreferencesBackups", 0,
                          VxBackups::MaxCount, m_targets.document->backups());
    m_backups->setSpecialValueText(tr("None"));
    m_minutes =
        addNumber(layout, tr("&Recovery copies every:"), "PreferencesRecoveryMinutes", 0,
                  qMax(MaxMinutes, m_targets.autoSave->minutes()), m_targets.autoSave->minutes());
    m_minutes->setSpecialValueText(tr("Never"));
    m_minutes->setSuffix(tr(" minutes"));
    m_entries = addNumber(layout, tr("Undo steps in a copy:"), "PreferencesRecoveryEntries", 0,
                          RecoveryJournal::LargestKeptEntries, m_targets.journal->keptEntries());
    m_entries->setToolTip(tr("The steps that can be undone after a recovery, at least."));
}

/// 0 for the desktop's.
int GeneralPage::textSize() const
{
    return m_textSize->value() == DesktopTextSize ? 0 : m_textSize->value();
}

bool GeneralPage::isChanged() const
{
    const QStringList codes = VxLanguage::available();
    return m_language->currentIndex() !=
               1 + codes.indexOf(LanguageSetting::code(*m_targets.settings)) ||
           m_palette->currentIndex() != static_cast<int>(m_targets.style->colorScheme()) ||
           textSize() != m_targets.style->textSize() ||
           m_curveColors->currentIndex() != static_cast<int>(m_targets.style->curveColors()) ||
           m_animation->currentIndex() != static_cast<int>(m_targets.animations->choice()) ||
           m_backups->value() != m_targets.document->backups() ||
           m_minutes->value() != m_targets.autoSave->minutes() ||
           m_entries->value() != m_targets.journal->keptEntries();
}

void GeneralPage::apply()
{
    LanguageSetting::setCode(m_targets.settings,
                             VxLanguage::available().value(m_language->currentIndex() - 1));
    m_targets.style->setColorScheme(static_cast<VxStyle::ColorScheme>(m_palette->currentIndex()));
    m_targets.style->setCurveColors(
        static_cast<VxStyle::CurveColors>(m_curveColors->currentIndex()));
    m_targets.style->setTextSize(textSize());
    m_targets.animations->setChoice(static_cast<Animations::Choice>(m_animation->currentIndex()));
    m_targets.document->setBackups(m_backups->value());
    m_targets.autoSave->setMinutes(m_minutes->value());
    m_targets.journal->setKeptEntries(m_entries->value());
}
