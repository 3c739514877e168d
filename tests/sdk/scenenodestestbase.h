#ifndef SCENENODESTESTBASE_H
#define SCENENODESTESTBASE_H

#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

/// A scene with a history, whose hierarchy is drawn as text: a node's name, and in brackets what is
/// below it.
class SceneNodesTestBase : public QObject
{
protected:
    void setUp();
    void tearDown();
    VxNode *add(const QString &name, VxNode *parent = nullptr);
    VxNode *find(const QString &name) const { return m_scene->findNode(name); }
    QString drawn() const;
    static QString drawn(const VxNode *node);
    /// A scene drawn as a(b(c) d) e.
    void buildSample();
    /// Checks the state after a change, undone and redone, twice.
    void checkUndo(const QString &before, const QString &after);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
};

inline void SceneNodesTestBase::setUp()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
}

inline void SceneNodesTestBase::tearDown()
{
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

inline VxNode *SceneNodesTestBase::add(const QString &name, VxNode *parent)
{
    auto *node = new VxNode(name);
    return m_scene->addNode(node, parent) ? node : nullptr;
}

inline QString SceneNodesTestBase::drawn(const VxNode *node)
{
    QStringList below;
    for (int i = 0; i < node->getNumNodeChildren(); ++i)
        below << drawn(node->getNodeChild(i));
    return below.isEmpty()
               ? node->getName()
               : QStringLiteral("%1(%2)").arg(node->getName(), below.join(QLatin1Char(' ')));
}

inline QString SceneNodesTestBase::drawn() const
{
    QStringList roots;
    const auto nodes = m_scene->getRootNodes();
    for (const VxNode *node : nodes)
        roots << drawn(node);
    return roots.join(QLatin1Char(' '));
}

inline void SceneNodesTestBase::buildSample()
{
    VxNode *a = add(QStringLiteral("a"));
    add(QStringLiteral("c"), add(QStringLiteral("b"), a));
    add(QStringLiteral("d"), a);
    add(QStringLiteral("e"));
    QCOMPARE(drawn(), QStringLiteral("a(b(c) d) e"));
}

inline void SceneNodesTestBase::checkUndo(const QString &before, const QString &after)
{
    QCOMPARE(drawn(), after);
    for (int round = 0; round < 2; ++round) {
        m_stack->undo();
        QCOMPARE(drawn(), before);
        QCOMPARE(m_scene->getNumNodes(), m_scene->getNodes().size());
        m_stack->redo();
        QCOMPARE(drawn(), after);
        QCOMPARE(m_scene->getNumNodes(), m_scene->getNodes().size());
    }
}

#endif
