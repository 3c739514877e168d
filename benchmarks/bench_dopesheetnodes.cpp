// The dope sheet over many nodes: deep chains, nodes in one level and groups within groups, in a
// shown pane. Each line names what is done, its milliseconds (processor time), the milliseconds a
// thousand rows or nodes, and the bytes of memory a node that it leaves allocated.
//
// Arguments: parts of names; only lines that have one of them are measured.

#include "allkeytypes.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <memory>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

using Action = std::function<void()>;

double processorMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

double allocatedBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

// A pane over an empty scene, with the transform controls listed, or everything.
class Stage
{
public:
    explicit Stage(bool listsAll)
    {
        vxScene->clear();
        for (const int type : {1, 2, 4, 8}) {
            if (type < 8 || listsAll)
                m_types.push_back(std::make_unique<TypeAction>(type));
        }
        pane = std::make_unique<VxTimePane>();
        for (const auto &type : m_types)
            pane->registerAction(type.get());
        pane->resize(1200, 600);
        pane->show();
        QApplication::processEvents();
        view = pane->getDopeSheetView();
    }

    void openAll() const
    {
        pane->expandAll();
        paint();
    }
    void paint() const
    {
        QApplication::processEvents();
        pane->grab();
    }

    std::unique_ptr<VxTimePane> pane;
    VxDopeSheetView *view = nullptr;

private:
    std::vector<std::unique_ptr<TypeAction>> m_types;
};

VxNode *addChain(int count)
{
    VxNode *first = new VxNode(QStringLiteral("bone 0"));
    VxNode *last = first;
    for (int i = 1; i < count; ++i) {
        auto *node = new VxNode(QStringLiteral("bone %1").arg(i));
        last->addNodeChild(node);
        last = node;
    }
    vxScene->addNode(first);
    return first;
}

QVector<VxNode *> addLevel(int count)
{
    QVector<VxNode *> nodes;
    vxScene->beginLoad();
    for (int i = 0; i < count; ++i) {
        nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
        vxScene->addNode(nodes.last());
    }
    vxScene->endLoad();
    return nodes;
}

QStringList wantedNames;

bool isWanted(const QString &name)
{
    return wantedNames.isEmpty() ||
           std::any_of(wantedNames.cbegin(), wantedNames.cend(),
                       [&name](const QString &wanted) { return name.contains(wanted); });
}

void measure(const QString &name, int count, const Action &action)
{
    if (!isWanted(name))
        return;
    const double bytes = allocatedBytes();
    const double start = processorMilliseconds();
    action();
    const double took = processorMilliseconds() - start;
    std::printf("%-44s %10.1f ms %10.3f ms/1000 %9.0f bytes each\n", qPrintable(name), took,
                took * 1000 / count, (allocatedBytes() - bytes) / count);
    std::fflush(stdout);
}

void chain(int count)
{
    const QString name = QStringLiteral("chain of %1: ").arg(count);
    Stage stage(false);
    VxNode *first = nullptr;
    measure(name + QStringLiteral("add, open, paint"), count, [&] {
        first = addChain(count);
        stage.openAll();
    });
    if (!first)
        return;
    const auto filter = [&](const QString &what, const QString &text) {
        measure(name + what, count, [&] { stage.view->applyFilterText(text); });
    };
    vxScene->selectAllNodes(true);
    QApplication::processEvents();
    filter(QStringLiteral("filter, all nodes selected"), QStringLiteral("bone %1").arg(count - 1));
    filter(QStringLiteral("filter cleared"), QString());
    stage.view->selectAll();
    filter(QStringLiteral("filter, all rows selected"), QStringLiteral("bone %1").arg(count - 1));
    filter(QStringLiteral("filter cleared again"), QString());
    filter(QStringLiteral("filter that nothing matches"), QStringLiteral("leg"));
    filter(QStringLiteral("and cleared"), QString());
    vxScene->selectAllNodes(false);
    stage.openAll();
    measure(name + QStringLiteral("remove"), count, [&] { vxScene->removeNode(first); });
    measure(name + QStringLiteral("paint"), count, [&] { stage.paint(); });
    first = addChain(count);
    stage.openAll();
    stage.view->selectAll();
    stage.paint();
    measure(name + QStringLiteral("remove selected"), count, [&] { vxScene->removeNode(first); });
}

void chains()
{
    for (const int count : {200, 400, 1133, 4000})
        chain(count);
}

// Nodes of one level that are removed one by one, as a script does it.
void siblings()
{
    for (const int count : {1000, 4000, 16000, 64000}) {
        for (const QString &how :
             {QStringLiteral("closed"), QStringLiteral("open"), QStringLiteral("open, selected")}) {
            for (const bool forward : {true, false}) {
                const QString name =
                    QStringLiteral("%1 siblings, %2: ").arg(QString::number(count), how);
                if (!isWanted(name))
                    continue;
                Stage stage(false);
                QVector<VxNode *> nodes;
                measure(name + QStringLiteral("add"), count, [&] {
                    for (int i = 0; i < count; ++i) {
                        nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
                        vxScene->addNode(nodes.last());
                    }
                    stage.paint();
                });
                if (how != QLatin1String("closed"))
                    stage.openAll();
                if (how.endsWith(QLatin1String("selected")))
                    stage.view->selectAll();
                stage.paint();
                if (!forward)
                    std::reverse(nodes.begin(), nodes.end());
                measure(name + (forward ? QStringLiteral("remove first to last")
                                        : QStringLiteral("remove last to first")),
                        count, [&] {
                            for (VxNode *node : qAsConst(nodes))
                                vxScene->removeNode(node);
                            stage.paint();
                        });
            }
        }
    }
}

// Nodes without a key: all at the top level, or ten below each.
void levels(bool asTree)
{
    const int count = 100000;
    const double before = allocatedBytes();
    const QString name =
        asTree ? QStringLiteral("100000 nodes in a tree: ") : QStringLiteral("100000 nodes: ");
    Stage stage(false);
    const auto step = [&](const char *what, const Action &action) {
        measure(name + QLatin1String(what), count, [&] {
            action();
            stage.paint();
        });
    };
    const auto filter = [&](const char *what, const QString &text) {
        step(what, [&] { stage.view->applyFilterText(text); });
    };
    step("add, paint", [&] {
        vxScene->beginLoad();
        QVector<VxNode *> nodes;
        for (int i = 0; i < count; ++i) {
            nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
            vxScene->addNode(nodes.last(), asTree && i > 0 ? nodes.at((i - 1) / 10) : nullptr);
        }
        vxScene->endLoad();
    });
    step("select all in the scene", [] { vxScene->selectAllNodes(true); });
    step("deselect all", [] { vxScene->selectAllNodes(false); });
    step("select all rows", [&] { stage.view->selectAll(); });
    filter("filter, one match", QStringLiteral("node 99999"));
    filter("filter, many matches", QStringLiteral("9"));
    filter("filter, no match", QStringLiteral("leg"));
    filter("filter cleared", QString());
    std::printf("%s%.0f bytes a node in all\n", qPrintable(name),
                (allocatedBytes() - before) / count);
    filter("filter, a match in each node", QStringLiteral("x translate"));
    filter("filter cleared again", QString());
    step("clear", [] { vxScene->clear(); });
}

// 400 groups a node, in paths as deep as they may be.
void groups()
{
    const int count = 1000;
    QString path;
    for (int i = 0; i < 56; ++i)
        path += QStringLiteral("/g");
    const double before = allocatedBytes();
    Stage stage(true);
    QVector<VxNode *> nodes;
    measure(QStringLiteral("1000 nodes, 400 groups: add"), count, [&] {
        nodes = addLevel(count);
        for (VxNode *node : qAsConst(nodes)) {
            for (int i = 0; i < 7; ++i)
                node->addProperty(new VxFloatProperty(QStringLiteral("value %1").arg(i), 0.0f),
                                  QStringLiteral("/top %1").arg(i) + path);
        }
        QApplication::processEvents();
    });
    measure(QStringLiteral("1000 nodes, 400 groups: open, paint"), count, [&] { stage.openAll(); });
    measure(QStringLiteral("1000 nodes, 400 groups: select all"), count, [&] {
        stage.view->selectAll();
        stage.paint();
    });
    measure(QStringLiteral("1000 nodes, 400 groups: deselect all"), count, [&] {
        stage.view->clearSelection();
        stage.paint();
    });
    std::printf("1000 nodes, 400 groups: %.0f bytes a node in all\n",
                (allocatedBytes() - before) / count);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    VxApp app;
    wantedNames = QApplication::arguments().mid(1);
    const auto wants = [](const char *part) {
        return wantedNames.isEmpty() ||
               wantedNames.join(QLatin1Char(' ')).contains(QLatin1String(part));
    };
    if (wants("chain"))
        chains();
    if (wants("siblings"))
        siblings();
    if (wants("100000")) {
        levels(false);
        levels(true);
    }
    if (wants("groups"))
        groups();
    return 0;
}
