#include "scenetree/sceneedits.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/figurelines.h"

#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

/// What a user does to nodes, over the scene drawn as a(b(c) d e) f g.
class tst_SceneEdits : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void renaming_data();
    void renaming();
    void removing_data();
    void removing();
    void moving_data();
    void moving();
    void movedNodesStayInPlace();
    void movedNodesKeepTheirValues();
    void nodesThatCannotKeepTheirTransformAreNamed();
    void picturesBeforeAndAfter();
    void visibility();
    void topmostNodes();

private:
    QVector<VxNode *> nodes(const QString &names) const;
    QString drawn() const;
    static QString drawn(const VxNode *node);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxUndoStack> m_stack;
    QScopedPointer<VxScene> m_scene;
};

void tst_SceneEdits::init()
{
    m_guard.reset(new VxWarningGuard);
    m_stack.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    const auto add = [this](const char *name, const char *parent) {
        m_scene->addNode(new VxNode(QString::fromLatin1(name)),
                         m_scene->findNode(QString::fromLatin1(parent)));
    };
    add("a", "");
    add("b", "a");
    add("c", "b");
    add("d", "a");
    add("e", "a");
    add("f", "");
    add("g", "");
    QCOMPARE(drawn(), QString("a(b(c) d e) f g"));
}

void tst_SceneEdits::cleanup()
{
    m_stack->clear();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

QVector<VxNode *> tst_SceneEdits::nodes(const QString &names) const
{
    QVector<VxNode *> list;
    for (const QString &name : names.split(' ', Qt::SkipEmptyParts))
        list.append(m_scene->findNode(name));
    return list;
}

QString tst_SceneEdits::drawn(const VxNode *node)
{
    QStringList below;
    for (int i = 0; i < node->getNumNodeChildren(); ++i)
        below << drawn(node->getNodeChild(i));
    return below.isEmpty() ? node->getName() : node->getName() + '(' + below.join(' ') + ')';
}

QString tst_SceneEdits::drawn() const
{
    QStringList roots;
    for (const VxNode *node : m_scene->getRootNodes())
        roots << drawn(node);
    return roots.join(' ');
}

void tst_SceneEdits::renaming_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("after");
    QTest::newRow("another name") << "hip"
                                  << "hip";
    QTest::newRow("blanks around it") << "  hip\t"
                                      << "hip";
    QTest::newRow("the same") << "a"
                              << "a";
    QTest::newRow("nothing") << ""
                             << "a";
    QTest::newRow("blanks alone") << "   "
                                  << "a";
}

void tst_SceneEdits::renaming()
{
    QFETCH(QString, label);
    QFETCH(QString, after);
    VxNode *node = m_scene->findNode("a");
    QCOMPARE(SceneEdits::rename(node, label), after != "a");
    QCOMPARE(node->getLabel(), after);
    QCOMPARE(m_stack->count(), after == "a" ? 0 : 1);
    if (m_stack->count() == 0)
        return;
    QCOMPARE(m_stack->undoText(), QString("Rename \"a\""));
    m_stack->undo();
    QCOMPARE(node->getLabel(), QString("a"));
}

void tst_SceneEdits::removing_data()
{
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("text");
    QTest::newRow("one") << "d"
                         << "a(b(c) e) f g"
                         << "Delete \"d\"";
    QTest::newRow("one with what is below") << "b"
                                            << "a(d e) f g"
                                            << "Delete \"b\"";
    QTest::newRow("one and what is below it") << "c b"
                                              << "a(d e) f g"
                                              << "Delete \"b\"";
    QTest::newRow("several") << "g b e"
                             << "a(d) f"
                             << "Delete 3 Nodes";
    QTest::newRow("all") << "a f g"
                         << ""
                         << "Delete 3 Nodes";
    QTest::newRow("none") << ""
                          << "a(b(c) d e) f g"
                          << "";
}

void tst_SceneEdits::removing()
{
    QFETCH(QString, removed);
    QFETCH(QString, text);
    const QString before = drawn();
    QCOMPARE(SceneEdits::remove(m_scene.data(), nodes(removed)), !text.isEmpty());
    QTEST(drawn(), "after");
    QCOMPARE(m_stack->undoText(), text);
    m_stack->undo();
    QCOMPARE(drawn(), before);
    m_stack->redo();
    QTEST(drawn(), "after");
}

void tst_SceneEdits::moving_data()
{
    QTest::addColumn<QString>("moved");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("after"); // empty: nothing changes
    QTest::addColumn<QString>("text");
    QTest::newRow("below another, last") << "f"
                                         << "a" << -1 << "a(b(c) d e f) g"
                                         << "Reparent \"f\"";
    QTest::newRow("below another, first") << "f"
                                          << "a" << 0 << "a(f b(c) d e) g"
                                          << "Reparent \"f\"";
    QTest::newRow("to the top level") << "c"
                                      << "" << 1 << "a(b d e) c f g"
                                      << "Reparent \"c\"";
    QTest::newRow("to the front") << "e"
                                  << "a" << 0 << "a(e b(c) d) f g"
                                  << "Reorder \"e\"";
    QTest::newRow("before the next one but one") << "b"
                                                 << "a" << 2 << "a(d b(c) e) f g"
                                                 << "Reorder \"b\"";
    QTest::newRow("to the end") << "b"
                                << "a" << -1 << "a(d e b(c)) f g"
                                << "Reorder \"b\"";
    QTest::newRow("before itself") << "d"
                                   << "a" << 1 << ""
                                   << "";
    QTest::newRow("behind itself") << "d"
                                   << "a" << 2 << ""
                                   << "";
    QTest::newRow("the last one to the end") << "e"
                                             << "a" << -1 << ""
                                             << "";
    QTest::newRow("beyond the end") << "f"
                                    << "a" << 99 << "a(b(c) d e f) g"
                                    << "Reparent \"f\"";
    QTest::newRow("two of one parent") << "e b"
                                       << "a" << 2 << "a(d b(c) e) f g"
                                       << "Reorder 2 Nodes";
    QTest::newRow("two of one parent to its end") << "b d"
                                                  << "a" << -1 << "a(e b(c) d) f g"
                                                  << "Reorder 2 Nodes";
    QTest::newRow("from several places") << "g c e"
                                         << "a" << 1 << "a(b c e g d) f"
                                         << "Reparent 3 Nodes";
    QTest::newRow("descendants move along") << "c b"
                                            << "f" << -1 << "a(d e) f(b(c)) g"
                                            << "Reparent \"b\"";
    QTest::newRow("below itself") << "b"
                                  << "b" << -1 << ""
                                  << "";
    QTest::newRow("below its own child") << "b"
                                         << "c" << -1 << ""
                                         << "";
    QTest::newRow("one of two below its own child") << "g b"
                                                    << "c" << -1 << ""
                                                    << "";
    QTest::newRow("no node") << ""
                             << "a" << 0 << ""
                             << "";
}

void tst_SceneEdits::moving()
{
    QFETCH(QString, moved);
    QFETCH(QString, parent);
    QFETCH(int, index);
    QFETCH(QString, after);
    QFETCH(QString, text);
    const QString before = drawn();
    if (after.isEmpty())
        after = before;
    QCOMPARE(SceneEdits::move(m_scene.data(), nodes(moved), m_scene->findNode(parent), index),
             after != before);
    QCOMPARE(drawn(), after);
    QCOMPARE(m_stack->count(), after == before ? 0 : 1);
    QCOMPARE(m_stack->undoText(), text);
    m_stack->undo();
    QCOMPARE(drawn(), before);
    m_stack->redo();
    QCOMPARE(drawn(), after);
}

void tst_SceneEdits::movedNodesStayInPlace()
{
    for (VxNode *node : nodes("a c f")) {
        node->getXPosControl()->setStoredValue(float(node->getLabel().at(0).unicode()));
        node->getYRotControl()->setStoredValue(30);
    }
    VxNode *c = nodes("c").first();
    VxNode *g = nodes("g").first();
    g->getXPosControl()->setKey(0, 5, 0);
    g->getXPosControl()->setKey(160, 9, 0);
    m_scene->setTime(160);
    const QMatrix4x4 before[] = {c->getWorldTransform(160), g->getWorldTransform(160),
                                 g->getWorldTransform(0)};
    const auto isInPlace = [&] {
        return qFuzzyCompare(before[0], c->getWorldTransform(160)) &&
               qFuzzyCompare(before[1], g->getWorldTransform(160)) &&
               qFuzzyCompare(before[2], g->getWorldTransform(0));
    };
    QVector<VxNode *> displaced;
    QVERIFY(SceneEdits::move(m_scene.data(), nodes("c g"), nodes("f").first(), -1,
                             SceneEdits::Kept::WorldPlace, &displaced));
    QCOMPARE(drawn(), QString("a(b d e) f(c g)"));
    QVERIFY(isInPlace());
    QVERIFY(displaced.isEmpty());
    QVERIFY(g->getXPosControl()->getKeyValue(0) != 5);
    QCOMPARE(m_stack->count(), 1);
    m_stack->undo();
    QVERIFY(isInPlace());
    QCOMPARE(g->getXPosControl()->getKeyValue(0), 5.0f);
    QCOMPARE(g->getZPosControl()->getNumKeys(), 0);
    m_stack->redo();
    QVERIFY(isInPlace());
}

void tst_SceneEdits::movedNodesKeepTheirValues()
{
    nodes("f").first()->getXPosControl()->setStoredValue(40);
    VxNode *g = nodes("g").first();
    g->getXPosControl()->setStoredValue(2);
    QVERIFY(
        SceneEdits::move(m_scene.data(), {g}, nodes("f").first(), -1, SceneEdits::Kept::Values));
    QCOMPARE(g->getXPosControl()->getStoredValue(), 2.0f);
    QCOMPARE(g->getWorldTransform(0).column(3).x(), 42.0f);
}

void tst_SceneEdits::nodesThatCannotKeepTheirTransformAreNamed()
{
    nodes("f").first()->getScaleControl()->setStoredValue(0);
    QVector<VxNode *> displaced;
    QVERIFY(SceneEdits::move(m_scene.data(), nodes("g c"), nodes("f").first(), -1,
                             SceneEdits::Kept::WorldPlace, &displaced));
    QCOMPARE(displaced, nodes("c g"));
    QCOMPARE(nodes("g").first()->getScaleControl()->getStoredValue(), 1.0f);
}

/** What a viewport draws of the nodes that moved is where it was before. */
void tst_SceneEdits::picturesBeforeAndAfter()
{
    for (VxNode *node : m_scene->getNodes()) {
        node->setOrigin({1, 2, float(node->getLabel().size())});
        node->getZRotControl()->setStoredValue(25);
        node->getXRotControl()->setKey(0, -40, 0);
        node->getXRotControl()->setKey(1600, 80, 0);
    }
    m_scene->setTime(480);
    const auto places = [this] {
        QMap<QString, FigureLines::Axes> byName;
        for (const FigureLines::Axes &axes : FigureLines::collect(*m_scene, 480).axes)
            byName.insert(axes.node->getName(), axes);
        return byName;
    };
    const auto before = places();
    QCOMPARE(before.size(), 7);
    QVERIFY(SceneEdits::move(m_scene.data(), nodes("b f"), nodes("e").first(), 0));
    QCOMPARE(drawn(), QString("a(d e(b(c) f)) g"));
    const auto after = places();
    for (const QString &name : before.keys()) {
        QVERIFY2((after[name].at - before[name].at).length() < 1e-4f, qPrintable(name));
        for (size_t i = 0; i < 3; ++i)
            QVERIFY2((after[name].directions[i] - before[name].directions[i]).length() < 1e-4f,
                     qPrintable(name));
    }
}

void tst_SceneEdits::visibility()
{
    const QVector<VxNode *> three = nodes("a b f");
    three.at(1)->setVisible(false);
    QVERIFY(SceneEdits::setVisible(three, false));
    QCOMPARE(m_stack->undoText(), QString("Hide 2 Nodes")); // one was hidden already
    QVERIFY(!SceneEdits::setVisible(three, false));
    QVERIFY(SceneEdits::setVisible(nodes("f"), true));
    QCOMPARE(m_stack->undoText(), QString("Show \"f\""));
    QCOMPARE(m_stack->count(), 2);
    m_stack->setIndex(0);
    QVERIFY(three.at(0)->isVisible() && !three.at(1)->isVisible() && three.at(2)->isVisible());
}

void tst_SceneEdits::topmostNodes()
{
    QCOMPARE(SceneEdits::topmost(m_scene.data(), nodes("g c d b")), nodes("b d g"));
    QCOMPARE(SceneEdits::topmost(m_scene.data(), nodes("c a")), nodes("a"));
    QVERIFY(SceneEdits::topmost(m_scene.data(), {}).isEmpty());
}

VX_TEST_MAIN(tst_SceneEdits)
#include "tst_sceneedits.moc"
