#include "document/exportdialog.h"

#include "document/figurechoice.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxskeleton.h>

namespace {

QString rangeText(const QString &name, const VxTimeRange &range, const VxScene &scene)
{
    const VxTimeDisplay display = VxSceneTimeDisplay::displayOf(&scene);
    const QString text = display.unit == VxTimeDisplay::Frames
                             ? ExportDialog::tr("%1 (frames %2 to %3)")
                             : ExportDialog::tr("%1 (%2 to %3)");
    return text.arg(name, display.text(range.getStart(), scene.getTimeStep()),
                    display.text(range.getEnd(), scene.getTimeStep()));
}

} // namespace

ExportDialog::ExportDialog(const VxScene &scene, QWidget *parent)
    : QDialog(parent)
{
    const QVector<VxSkeleton *> figures = FigureChoice::figures(scene);
    m_figures = {figures.begin(), figures.end()};
    setWindowTitle(tr("Export Motion"));
    m_what = makeBox(QStringLiteral("exportWhat"),
                     QStringList{tr("Whole scene")} + FigureChoice::names(figures));
    m_what->setCurrentIndex(figures.indexOf(FigureChoice::targetFigure(scene)) + 1);
    m_range = makeBox(QStringLiteral("exportRange"),
                      {rangeText(tr("Animation range"), scene.getAnimRange(), scene),
                       rangeText(tr("Play range"), scene.getPlayRange(), scene)});
    m_rows =
        makeBox(QStringLiteral("exportRows"), {tr("One row per key"), tr("One row per frame")});
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Choose File..."));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("Export:"), m_what);
    layout->addRow(tr("Range:"), m_range);
    layout->addRow(tr("CSV files:"), m_rows);
    layout->addRow(buttons);
}

QComboBox *ExportDialog::makeBox(const QString &name, const QStringList &items)
{
    auto *box = new QComboBox(this);
    box->setObjectName(name);
    box->addItems(items);
    return box;
}

VxMotionExportOptions ExportDialog::options() const
{
    VxMotionExportOptions options;
    options.playRangeOnly = m_range->currentIndex() == 1;
    options.hasRowPerFrame = m_rows->currentIndex() == 1;
    return options;
}

bool ExportDialog::isOfFigure() const
{
    return m_what->currentIndex() > 0;
}

VxSkeleton *ExportDialog::figure() const
{
    return m_figures.value(m_what->currentIndex() - 1);
}
