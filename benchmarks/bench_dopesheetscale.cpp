// Editing by hand where there is much to edit: 1,530 channels of 3,000 keys, 4.6 million in all,
// each with a row of its own, every command with an undo entry.
//
// Each line names what is done, its milliseconds (processor time, the best of several), those of a
// plain loop over arrays of the same size in the same run, how many times that loop it takes, and
// the most it may take. Arguments: parts of names; only lines that have one of them are measured.

#include "largesheet.h"
#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/keys/keycreation.h"

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

// Sends mouse events to the view without waiting: painting is not measured.
class Hand
{
public:
    explicit Hand(QWidget *widget)
        : m_widget(widget)
    {
    }
    void press(const QPoint &at) const { send(QEvent::MouseButtonPress, at); }
    void moveTo(const QPoint &at) const { send(QEvent::MouseMove, at); }
    void release(const QPoint &at) const { send(QEvent::MouseButtonRelease, at); }

private:
    void send(QEvent::Type type, const QPoint &at) const
    {
        const bool moves = type == QEvent::MouseMove;
        const bool releases = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, m_widget->mapToGlobal(at),
                          moves ? Qt::NoButton : Qt::LeftButton,
                          releases ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_widget, &event);
    }

    QWidget *m_widget;
};

// An edit and its way back and forth, each held against the most that the edit may take.
class Edit
{
public:
    Edit(Table &table, Sheet &sheet)
        : m_table(table)
        , m_sheet(sheet)
    {
    }

    void measure(const char *name, double loop, double most, const Action &prepare,
                 const Action &action)
    {
        if (!m_table.wants(name))
            return;
        VxUndoStack *stack = vxApp->getUndoStack();
        double edit = 1e9;
        double undo = 1e9;
        double redo = 1e9;
        double picture = 1e9;
        for (int i = 0; i < Repeats; ++i) {
            stack->clear();
            prepare();
            m_sheet.settle();
            const auto timed = [](double *least, const Action &step) {
                const double start = processorMilliseconds();
                step();
                *least = std::min(*least, processorMilliseconds() - start);
            };
            timed(&edit, action);
            check(stack->count() == 1, "nothing changed");
            m_entryBytes = stack->memoryUsed();
            m_sheet.settle();
            timed(&undo, [stack] { stack->undo(); });
            timed(&picture, [this] { m_sheet.settle(); });
            timed(&redo, [stack] { stack->redo(); });
            m_sheet.settle();
            stack->undo();
            m_sheet.settle();
        }
        stack->clear();
        m_table.add(name, edit, loop, most);
        m_table.add("  undo", undo, loop, std::max(edit, 0.2));
        m_table.add("  redo", redo, loop, std::max(edit, 0.2));
        m_table.add("  the picture after that", picture, loop, 0);
    }
    // Of the last edit.
    qint64 entryBytes() const { return m_entryBytes; }

private:
    Table &m_table;
    Sheet &m_sheet;
    qint64 m_entryBytes = 0;
};

void held(const Action &command)
{
    VxUndoStackHold hold;
    command();
    hold.accept(QStringLiteral("command"));
}

void measureSelection(Table &table, Sheet &sheet, const Loops &loops)
{
    table.measure(
        "select all", loops.flags, 14, [&sheet] { sheet.deselect(); },
        [&sheet] { sheet.selectAll(); });
    const int y = sheet.topRowY();
    const Hand hand(sheet.view.viewport());
    const QPoint from(sheet.xOf(KeysAChannel / 2 * Step), y + 200);
    table.measure(
        "band over half", loops.flags, 14,
        [&] {
            sheet.deselect();
            hand.press(from);
            hand.moveTo(QPoint(1390, y));
            sheet.settle();
        },
        [&] { hand.release(QPoint(1390, y)); });
    sheet.deselect();
}

// Every second key of every channel: as many spans as there are selected keys.
void measureListing(Table &table, Sheet &sheet, const Loops &loops)
{
    sheet.selectAll();
    VxKeySelectionEntries alternating = sheet.view.getKeyEntries();
    for (VxKeySelectionEntry &entry : alternating) {
        entry.spans.clear();
        for (int i = 0; i < KeysAChannel; i += 2)
            entry.spans.push_back({i, i + 1});
    }
    sheet.view.selectKeyEntries(alternating, true);
    std::size_t spans = 0;
    table.measure(
        "list every second key", loops.flags, 60, [] {},
        [&] {
            spans = 0;
            for (const VxKeySelectionEntry &entry : sheet.view.getKeyEntries())
                spans += entry.spans.size();
        });
    if (table.wants("list every second key"))
        check(spans == std::size_t(Keys / 2), "another number of keys is listed");
    table.measure(
        "select every second key", loops.flags, 60, [&sheet] { sheet.deselect(); },
        [&] { sheet.view.selectKeyEntries(alternating, true); });
    sheet.deselect();
}

void measureDrag(Table &table, Sheet &sheet, const Loops &loops)
{
    const auto preview = [&](const char *name, double loop, double most) {
        if (!table.wants(name))
            return;
        KeyDrag drag;
        for (const SelectedKeys &keys : sheet.selected())
            drag.add(keys);
        VxUndoStackHold hold;
        VxTime offset = Step;
        drag.moveTo(offset, VxCollision::WaitBeside);
        const auto settled = [&sheet] { sheet.settle(); };
        table.measure(name, loop, most, settled, [&] {
            offset += Step;
            drag.moveTo(offset, VxCollision::WaitBeside);
        });
        drag.moveTo(0, VxCollision::WaitBeside);
        hold.cancel();
    };
    sheet.selectAll();
    preview("preview of all", loops.times, 60);
    sheet.deselect();
    sheet.selectHalf();
    preview("preview of half", loops.times, 60);
    sheet.selectOne();
    preview("preview of one key", loops.single, 0.2);
    sheet.deselect();
}

void measureDrops(Table &table, Sheet &sheet, Edit &edit, const Loops &loops)
{
    const int y = sheet.topRowY();
    const Hand hand(sheet.view.viewport());
    const QPoint from(sheet.xOf(0), y);
    const auto press = [&] {
        hand.press(from);
        hand.moveTo(from + QPoint(30, 0));
    };
    const auto release = [&] { hand.release(from + QPoint(60, 0)); };
    table.measure(
        "press on all", loops.times, 0,
        [&] {
            sheet.deselect();
            sheet.selectAll();
            sheet.settle();
        },
        press);
    hand.release(from);
    edit.measure(
        "drop of all", loops.copies, 100,
        [&] {
            sheet.deselect();
            sheet.selectAll();
            press();
        },
        release);
    if (table.wants("drop of all"))
        std::printf("%-34s %9.2f\n", "  bytes a key in its entry",
                    double(edit.entryBytes()) / Keys);
    sheet.deselect();
    const QPoint one(sheet.xOf(1500 * Step), sheet.channelRowY());
    sheet.settle();
    edit.measure(
        "drop of one key", loops.single, 0.2,
        [&] {
            sheet.deselect();
            hand.press(one);
            hand.moveTo(one + QPoint(30, 0));
        },
        [&] { hand.release(one + QPoint(60, 0)); });
    if (table.wants("drop of one key"))
        check(sheet.collected() == 1, "another number of keys was dragged");
    sheet.view.collapseAll();
    sheet.settle();
}

void measureCommands(Table &table, Sheet &sheet, Edit &edit, const Loops &loops)
{
    const auto all = [&sheet] {
        sheet.deselect();
        sheet.selectAll();
    };
    const auto half = [&sheet] {
        sheet.deselect();
        sheet.selectHalf();
    };
    const auto one = [&sheet] { sheet.selectOne(); };
    const auto deleteKeys = [&sheet] { held([&sheet] { sheet.view.deleteKeys(); }); };
    edit.measure("delete all", loops.copies, 60, all, deleteKeys);
    edit.measure("delete half", loops.copies, 60, half, deleteKeys);
    edit.measure("delete one key", loops.single, 0.2, one, deleteKeys);

    table.measure("copy all", loops.copies, 60, all, [&sheet] { sheet.view.copyKeys(); });
    const auto paste = [&sheet] { held([&sheet] { sheet.view.pasteKeys(); }); };
    const auto copyAll = [&] {
        all();
        sheet.view.copyKeys();
        vxScene->setTime(KeysAChannel * Step);
    };
    edit.measure("paste all", loops.copies, 150, copyAll, paste);
    vxScene->setTime(0);

    const auto retype = [&sheet] {
        held([&sheet] { sheet.view.setInterpType(VxKeyInterp::Constant); });
    };
    edit.measure("set interpolation of all", loops.copies, 40, all, retype);
    edit.measure("set interpolation of one key", loops.single, 0.2, one, retype);
    sheet.deselect();

    edit.measure(
        "new key on every channel", loops.copies, 8,
        [] { vxScene->setTime(KeysAChannel / 2 * Step + 70); },
        [&sheet] {
            held([&sheet] {
                const VxChangeBlock block;
                const VxTime now = vxScene->getTime();
                KeyCreation::setNodeKeys(sheet.figure, AllTypes, true, now, {now});
            });
        });
}

void measureSkips(Table &table, Sheet &sheet, const Loops &loops)
{
    const auto prepare = [&sheet] {
        vxScene->setTime(KeysAChannel / 2 * Step);
        sheet.settle();
    };
    table.measure("next key", loops.single, 0.2, prepare, [&sheet] { sheet.view.skipToNextKey(); });
    table.measure("previous key", loops.single, 0.2, prepare,
                  [&sheet] { sheet.view.skipToPreviousKey(); });
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Table table(QCoreApplication::arguments().mid(1));
    const Loops loops = measureLoops();
    Sheet sheet;
    Edit edit(table, sheet);
    measureSelection(table, sheet, loops);
    measureListing(table, sheet, loops);
    measureDrag(table, sheet, loops);
    measureDrops(table, sheet, edit, loops);
    measureCommands(table, sheet, edit, loops);
    measureSkips(table, sheet, loops);
    return 0;
}
