#ifndef LARGESHEET_H
#define LARGESHEET_H

// What the benchmarks of 4.6 million keys share: the table of results, floors, and the dope sheet
// of 1,530 channels with 3,000 keys each.

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/selectedkeys.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <testing/vxscenebuilder.h>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

constexpr int Channels = 1530;
constexpr int KeysAChannel = 3000;
constexpr int Keys = Channels * KeysAChannel;
constexpr VxTime Step = 160;
constexpr VxTime End = 2 * KeysAChannel * Step;
constexpr int AllTypes = 63;
constexpr int Repeats = 5;
constexpr int NameWidth = 200;

using Action = std::function<void()>;

inline double processorMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

/// The time of the best of several runs; prepare is not counted.
inline double best(const Action &prepare, const Action &action)
{
    double least = 1e9;
    for (int i = 0; i < Repeats; ++i) {
        prepare();
        const double start = processorMilliseconds();
        action();
        least = std::min(least, processorMilliseconds() - start);
    }
    return least;
}

inline void check(bool ok, const char *what)
{
    if (!ok)
        qFatal("%s", what);
}

/// The lines, as they are measured.
class Table
{
public:
    explicit Table(QStringList wanted)
        : m_wanted(std::move(wanted))
    {
        std::printf("%-34s %9s %9s %8s %9s\n", "", "ms", "loop", "ratio", "most");
    }

    bool wants(const char *name) const
    {
        return m_wanted.isEmpty() ||
               std::any_of(m_wanted.cbegin(), m_wanted.cend(), [name](const QString &part) {
                   return QLatin1String(name).contains(part);
               });
    }
    /// most: 0 for a line that is reported only.
    void add(const char *name, double milliseconds, double loop, double most)
    {
        std::printf("%-34s %9.3f %9.4f %8.1f", name, milliseconds, loop, milliseconds / loop);
        if (most > 0)
            std::printf(" %9.2f%s", most, milliseconds <= most ? "" : "  over");
        std::printf("\n");
        std::fflush(stdout);
    }
    void measure(const char *name, double loop, double most, const Action &prepare,
                 const Action &action)
    {
        if (wants(name))
            add(name, best(prepare, action), loop, most);
    }

private:
    QStringList m_wanted;
};

/// What plain loops take that go over as many arrays of the same size.
struct Loops
{
    double flags;  // every flag written
    double times;  // every time changed
    double copies; // time, value and type of every key copied into arrays made for that
    double types;  // every type written
    double single; // one key of one array
};

struct Column
{
    std::vector<VxTime> times = std::vector<VxTime>(KeysAChannel, 7);
    std::vector<float> values = std::vector<float>(KeysAChannel, 1.5f);
    std::vector<quint8> types = std::vector<quint8>(KeysAChannel, 0);
};

template <typename T> void keep(const T &value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

inline Loops measureLoops()
{
    std::vector<Column> columns(Channels);
    std::vector<Column> copy;
    quint8 written = 0;
    const auto nothing = [] {};
    const auto write = [&columns, &written] {
        ++written;
        for (Column &column : columns) {
            std::fill(column.types.begin(), column.types.end(), written);
            keep(column.types.data());
        }
    };
    const auto shift = [&columns, &written] {
        for (Column &column : columns) {
            for (VxTime &time : column.times)
                time += written;
            keep(column.times.data());
        }
    };
    Loops loops = {};
    loops.flags = loops.types = best(nothing, write);
    loops.times = best(nothing, shift);
    loops.copies = best([&copy] { copy = std::vector<Column>(); },
                        [&copy, &columns] {
                            copy.reserve(columns.size());
                            for (const Column &column : columns)
                                copy.push_back(column);
                            keep(copy.data());
                        });
    loops.single = best(nothing, [&columns] {
        columns.front().times[7] += 1;
        keep(columns.front().times.data());
    });
    return loops;
}

/// The view with its rows, all closed.
class Sheet
{
public:
    explicit Sheet(int keysAChannel = KeysAChannel)
        : model(AllTypes, 2, nullptr)
        , filter(nullptr)
        , view(nullptr)
    {
        VxSceneBuilder builder(vxScene);
        figure = builder.addSkeleton(QStringLiteral("figure"), Channels / 9);
        QVector<VxNode *> bones;
        figure->getNodeChildren(bones, true);
        builder.keyChannels(bones, keysAChannel, Step);
        vxScene->setAnimRange(VxTimeRange(0, End));
        vxScene->setPlayRange(VxTimeRange(0, End));
        model.addNode(figure, true);
        filter.setSourceModel(&model);
        view.setFilterModel(&filter);
        view.setModel(&filter);
        view.setColumnWidth(0, NameWidth);
        view.resize(1400, 800);
        TimelineMetrics::shared().zoom = 0.02;
        view.show();
        QCoreApplication::processEvents();
        firstChannel = channelOf(model.getRootItem());
        selectAll();
        check(collected() == Channels * keysAChannel, "the scene has other keys than it should");
        deselect();
    }

    void selectAll()
    {
        const QModelIndex top = filter.index(0, 0);
        view.setKeySelection(true, top, top);
    }
    void selectHalf()
    {
        const QModelIndex top = filter.index(0, 0);
        view.setKeySelection(true, top, top, KeysAChannel / 2 * Step);
    }
    void deselect()
    {
        const QModelIndex top = filter.index(0, 0);
        view.setKeySelection(false, top, top, VxTimeMin);
    }
    void selectOne()
    {
        deselect();
        firstChannel->setKeysSelected(true, Step, Step);
    }
    std::vector<SelectedKeys> selected() const
    {
        SelectedKeysCollector collector;
        gather(model.getRootItem(), &collector);
        return collector.keys();
    }
    qint64 collected() const
    {
        qint64 count = 0;
        for (const SelectedKeys &keys : selected())
            count += keys.indexes.size();
        return count;
    }
    /// The repaint.
    void settle()
    {
        view.viewport()->repaint();
        QCoreApplication::processEvents();
    }
    int topRowY() const { return view.visualRect(filter.index(0, 0)).center().y(); }
    /// Opens the rows above the first channel.
    int channelRowY()
    {
        const QModelIndex row = filter.mapFromSource(model.indexOf(firstChannel));
        view.scrollTo(row);
        return view.visualRect(row).center().y();
    }
    int xOf(VxTime time) const { return TimelineMetrics::shared().keyLeft(NameWidth, time, 0) + 2; }

    VxApp app;
    VxNode *figure = nullptr;
    VxDopeSheetModel model;
    VxDopeSheetFilterModel filter;
    VxDopeSheetView view;
    VxDopeSheetItem *firstChannel = nullptr;

private:
    static VxDopeSheetItem *channelOf(VxDopeSheetItem *item)
    {
        if (item->property() && item->hasKeys())
            return item;
        for (int i = 0; i < item->childCount(); ++i) {
            if (VxDopeSheetItem *found = channelOf(item->child(i)))
                return found;
        }
        return nullptr;
    }
    static void gather(VxDopeSheetItem *item, SelectedKeysCollector *collector)
    {
        collector->add(item);
        for (int i = 0; i < item->childCount(); ++i)
            gather(item->child(i), collector);
    }
};

#endif
