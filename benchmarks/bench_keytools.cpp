// The key tools where there is much to edit: 4.6 million keys of 1,530 channels, all selected in
// the dope sheet, each tool with an undo entry and its selection.
//
// Each line has the milliseconds of a tool (processor time, the best of several), those of a plain
// loop over arrays of the same size in the same run, the ratio, and the highest accepted ratio.
// Arguments: parts of names; only lines that contain one of them are measured.

#include "keytools/keytool.h"
#include "keytools/keytoolpreview.h"
#include "keytools/vxkeytablepane.h"
#include "largesheet.h"

#include <QTableView>
#include <memory>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxundostack.h>

namespace {

// The sheet's keys as the application's selection.
class SheetSelection : public VxKeySelectionSource
{
public:
    explicit SheetSelection(VxDopeSheetView *view)
        : m_view(view)
    {
        VxKeySelection::current()->addSource(this);
    }
    ~SheetSelection() override { VxKeySelection::current()->removeSource(this); }
    VxKeySelectionEntries entries() const override { return m_view->getKeyEntries(); }
    std::vector<VxKeySpan> spansOf(VxProperty *holder) const override
    {
        return m_view->getKeySpansOf(holder);
    }
    void set(const VxKeySelectionEntries &entries, bool clearsOthers) override
    {
        m_view->selectKeyEntries(entries, clearsOthers);
    }
    const std::vector<VxCopiedKeys> &copiedKeys() const override { return m_copied; }
    // As the timeline copies the selected keys.
    void copy()
    {
        for (const VxKeySelectionEntry &entry : entries()) {
            const auto *channel = static_cast<const VxFloatProperty *>(entry.holder);
            const VxKeyColumns<float> keys = channel->getKeys();
            VxCopiedKeys copied;
            copied.node = channel->getOwner()->getName();
            copied.property = channel->getName();
            copied.times.assign(keys.times, keys.times + keys.count);
            copied.values.assign(keys.values, keys.values + keys.count);
            copied.types.assign(copied.times.size(), VxKeyInterp::Linear);
            m_copied.push_back(copied);
        }
    }

private:
    VxDopeSheetView *m_view;
    std::vector<VxCopiedKeys> m_copied;
};

struct Case
{
    const char *tool;
    QVariantMap arguments;
    double mostRatio;           // 0: reported only
    const char *name = nullptr; // of the line; null: that of the tool
};

void measure(Table &table, Sheet &sheet, const Case &each, double loop)
{
    const KeyTool *tool = KeyTool::find(QLatin1String(each.tool));
    check(tool, each.tool);
    VxUndoStack *stack = vxApp->getUndoStack();
    const char *name = each.name ? each.name : each.tool;
    KeyToolResult result;
    table.measure(
        name, loop, each.mostRatio * loop,
        [&] {
            if (stack->count() > 0)
                stack->undo();
            stack->clear();
            sheet.selectAll();
            sheet.settle();
        },
        [&] { result = tool->runWith(each.arguments); });
    if (!table.wants(name))
        return;
    check(result.done && result.keys == Keys, qPrintable(result.message));
    if (result.after != Keys)
        std::printf("  %d keys afterwards, largest error %g\n", result.after, result.error);
    stack->undo();
    stack->clear();
}

// The pane with all selected keys as rows, from its creation to its picture.
void measureTable(Table &table, const char *name, int rows, double loop)
{
    if (!table.wants(name))
        return;
    std::unique_ptr<VxKeyTablePane> pane;
    table.measure(
        name, loop, 250, [&pane] { pane.reset(); },
        [&pane] {
            pane = std::make_unique<VxKeyTablePane>();
            pane->resize(900, 400);
            pane->show();
            QCoreApplication::processEvents();
            pane->repaint();
        });
    check(pane->findChild<QTableView *>()->model()->rowCount() == rows, "rows are missing");
}

// A step of a live preview on 1,530 channels with 300 keys each: the keys are restored and edited
// anew, and all change reports are handled, without painting. Most: thirty a second.
void measurePreview(Table &table, const char *name, const char *tool, const char *parameter,
                    double loop)
{
    if (!table.wants(name))
        return;
    Sheet sheet(300);
    const SheetSelection selection(&sheet.view);
    sheet.selectAll();
    sheet.settle();
    sheet.view.hide();
    KeyToolPreview preview;
    double amount = 1;
    table.measure(
        name, loop, 1000.0 / 30, [&amount] { amount += 1; },
        [&] {
            const KeyToolResult result =
                preview.show(*KeyTool::find(QLatin1String(tool)), {{parameter, amount}});
            check(result.done, qPrintable(result.message));
            QCoreApplication::processEvents();
        });
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Table table(QCoreApplication::arguments().mid(1));
    const Loops loops = measureLoops();
    measurePreview(table, "preview: move", "move", "by", loops.copies / 10);
    measurePreview(table, "preview: scaleTimes", "scaleTimes", "factor", loops.copies / 10);
    measurePreview(table, "preview: setValues", "setValues", "value", loops.copies / 10);
    Sheet sheet;
    SheetSelection selection(&sheet.view);
    const QVariantMap none;
    for (const Case &each : {
             Case{"move", {{"by", 7 * Step}}, 4},
             Case{"scaleTimes", {{"factor", 1.5}}, 4},
             Case{"snap", {{"step", 150}}, 4},
             Case{"reverse", none, 4},
             Case{"offset", {{"amount", 2}, {"end", End}}, 4},
             Case{"scaleValues", {{"factor", 1.5}}, 4},
             Case{"eulerFilter", none, 10},
             Case{"smoothGaussian", none, 10},
             Case{"smoothButterworth", none, 10},
             Case{"removeSpikes", none, 0},
             Case{"reduce", {{"error", 0.5}}, 0},
             Case{"reduce", {{"error", "30%"}}, 0, "reduce to a percentage"},
             Case{"reduce", {{"error", "10%"}, {"type", 1}}, 0, "reduce to a percentage, TCB"},
             Case{"convert", {{"type", 2}, {"error", 0.5}}, 0},
         })
        measure(table, sheet, each, loops.copies);
    sheet.selectAll();
    selection.copy();
    measure(table, sheet, {"pasteMirrored", none, 0}, loops.copies);
    // Rest poses that are not symmetrical: angles and translations depend on each other.
    QVector<VxNode *> bones;
    sheet.figure->getNodeChildren(bones, true);
    for (VxNode *bone : qAsConst(bones))
        bone->setRestPose(VxRestPose{0, 0, 0, 20, 30, 40, 1, 1, 1, 1});
    measure(table, sheet, {"pasteMirrored", none, 0, "pasteMirrored, dependent angles"},
            loops.copies);
    measureTable(table, "key table opened", Keys, loops.copies);
    KeyTool::find(QStringLiteral("selectEvery"))->runWith({{"n", 2}});
    table.measure(
        "every second key listed", loops.copies, 60, [] {},
        [] { check(!VxKeySelection::current()->entries().empty(), "no entries"); });
    measureTable(table, "key table opened, every second", Keys / 2, loops.copies);
    return 0;
}
