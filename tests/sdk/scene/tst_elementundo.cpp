#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QtTest>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

// Beside a node's ten transform controls.
constexpr int Controls = 10;

/// Runs a change as one entry of the history.
template <class Change> void asEntry(const char *text, Change change)
{
    VxUndoStackHold hold;
    change();
    hold.accept(QString::fromLatin1(text));
}

} // namespace

/// Adding and removing properties and objects with undo, in a scene with one node.
class TestElementUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anAddedPropertyIsUndone();
    void aRemovedPropertyIsRestoredWithItsKeysAndIndex();
    void removalOutsideOfAHoldDestroys();
    void addingAndRemovingInOneHoldMakesNoEntry();
    void placesAreExactAfterInterleavedChanges();
    void theHistoryDestroysWhatItKeeps();
    void anObjectIsExchanged();
    void anObjectSetAndReplacedInOneHold();
    void restoringTheFormerObjectMakesNoEntry();
    void aRemovedObjectOfADestroyedNode();
    void redoReportsTheRemovalAgain();
    void aSubElementIsUndone();
    void subElementsOfANewObject();
    void theHistoryDestroysSubElementsItKeeps();
    void aSubElementDestroyedByOthers();
    void theSceneReportsEveryChange();
    void randomEditsAreUndoneExactly();

private:
    VxFloatProperty *add(const char *name, VxElement *element = nullptr);
    QStringList names() const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
    VxNode *m_node = nullptr;
};

void TestElementUndo::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    m_node = new VxNode(QStringLiteral("node"));
    m_scene->addNode(m_node);
}

void TestElementUndo::cleanup()
{
    m_stack->clear();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

VxFloatProperty *TestElementUndo::add(const char *name, VxElement *element)
{
    auto *property = new VxFloatProperty(QString::fromLatin1(name));
    (element ? element : m_node)->addProperty(property, QStringLiteral("/Extra"));
    return property;
}

/// The names of the properties behind the transform controls.
QStringList TestElementUndo::names() const
{
    QStringList list;
    for (int i = Controls; i < m_node->getNumProperties(); ++i)
        list << m_node->getProperty(i)->getName();
    return list;
}

void TestElementUndo::anAddedPropertyIsUndone()
{
    QPointer<VxFloatProperty> property;
    asEntry("Add Property", [&] { property = add("grip"); });
    property->setKey(160, 2, 0);
    m_stack->undo();
    QCOMPARE(names(), QStringList());
    QVERIFY(property && !property->getOwner());
    QVERIFY(!m_node->findProperty(QStringLiteral("grip")));
    m_stack->redo();
    QCOMPARE(names(), QStringList({"grip"}));
    QCOMPARE(m_node->findProperty(QStringLiteral("grip")), property.data());
    QCOMPARE(property->getPath(), QString("/Extra"));
    QCOMPARE(property->getNumKeys(), 1);
    QCOMPARE(property->parent(), m_node);
}

void TestElementUndo::aRemovedPropertyIsRestoredWithItsKeysAndIndex()
{
    add("first");
    VxFloatProperty *middle = add("middle");
    add("last");
    middle->setKey(0, 1, 0);
    middle->setKey(160, 5, 2, 0.5f, 0, 0);
    const QPointer<VxFloatProperty> guard(middle);
    const QSignalSpy removed(m_node, &VxElement::propertyRemoved);
    asEntry("Remove Property", [&] { QVERIFY(m_node->removeProperty(middle)); });
    QCOMPARE(removed.count(), 1);
    QCOMPARE(names(), QStringList({"first", "last"}));
    QVERIFY(guard);
    m_stack->undo();
    QCOMPARE(names(), QStringList({"first", "middle", "last"}));
    QCOMPARE(middle->getNumKeys(), 2);
    QCOMPARE(middle->getValue(160), 5.0f);
    QVERIFY(m_node->getPropertyGroups()->collectAllProperties().contains(middle));
    m_stack->redo();
    QCOMPARE(names(), QStringList({"first", "last"}));
}

void TestElementUndo::removalOutsideOfAHoldDestroys()
{
    const QPointer<VxFloatProperty> property(add("grip"));
    QVERIFY(m_node->removeProperty(property));
    QVERIFY(!property);
    QCOMPARE(m_stack->count(), 0);
}

void TestElementUndo::addingAndRemovingInOneHoldMakesNoEntry()
{
    QPointer<VxFloatProperty> property;
    asEntry("Nothing", [&] {
        property = add("grip");
        m_node->removeProperty(property);
    });
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(!property);
}

void TestElementUndo::placesAreExactAfterInterleavedChanges()
{
    VxFloatProperty *a = add("a");
    VxFloatProperty *b = add("b");
    asEntry("Shuffle", [&] {
        m_node->removeProperty(a);
        m_node->removeProperty(b);
        m_node->addProperty(a, QStringLiteral("/Extra"));
        add("c");
        m_node->addProperty(b, QStringLiteral("/Extra"));
    });
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(names(), QStringList({"a", "c", "b"}));
        m_stack->undo();
        QCOMPARE(names(), QStringList({"a", "b"}));
        m_stack->redo();
    }
}

void TestElementUndo::theHistoryDestroysWhatItKeeps()
{
    QPointer<VxFloatProperty> removed(add("removed"));
    QPointer<VxObject> object(new VxObject(QStringLiteral("shape")));
    m_node->setObject(object);
    asEntry("Remove", [&] {
        m_node->removeProperty(removed);
        m_node->setObject(nullptr);
    });
    QVERIFY(removed && object);
    QVERIFY(m_stack->memoryUsed() > 0);
    m_stack->clear();
    QVERIFY(!removed && !object);
    QCOMPARE(m_node->getObject(), nullptr);
}

void TestElementUndo::anObjectIsExchanged()
{
    auto *first = new VxObject(QStringLiteral("first"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    first->addSubElement(morph);
    m_node->setObject(first);
    morph->getValueControl()->setKey(320, 1, 0);
    auto *second = new VxObject(QStringLiteral("second"));
    QSignalSpy changed(m_node, &VxNode::objectChanged);
    asEntry("Replace Object", [&] { m_node->setObject(second); });
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_node->getObject(), second);
    QCOMPARE(first->getNode(), nullptr);
    m_stack->undo();
    QCOMPARE(m_node->getObject(), first);
    QCOMPARE(morph->getValueControl()->getNumKeys(), 1);
    QVERIFY(m_node->getPropertyGroups()->collectAllProperties().contains(morph->getValueControl()));
    m_stack->redo();
    QCOMPARE(m_node->getObject(), second);
    QCOMPARE(changed.count(), 3);
    // Key edits of before the exchange still find their property.
    m_stack->undo();
    asEntry("Key", [&] { morph->getValueControl()->setKey(480, 0.5f, 0); });
    asEntry("Replace Object", [&] { m_node->setObject(nullptr); });
    m_stack->undo();
    m_stack->undo();
    QCOMPARE(morph->getValueControl()->getNumKeys(), 1);
}

void TestElementUndo::anObjectSetAndReplacedInOneHold()
{
    const QPointer<VxObject> passing(new VxObject(QStringLiteral("passing")));
    auto *last = new VxObject(QStringLiteral("last"));
    asEntry("Replace Object", [&] {
        m_node->setObject(passing);
        m_node->setObject(last);
    });
    QVERIFY(!passing);
    QCOMPARE(m_stack->count(), 1);
    m_stack->undo();
    QVERIFY(!m_node->getObject());
    m_stack->redo();
    QCOMPARE(m_node->getObject(), last);
}

void TestElementUndo::restoringTheFormerObjectMakesNoEntry()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    m_node->setObject(object);
    asEntry("Nothing", [&] {
        m_node->setObject(nullptr);
        m_node->setObject(object);
    });
    QCOMPARE(m_stack->count(), 0);
    QCOMPARE(m_node->getObject(), object);
    asEntry("Remove", [&] {
        m_node->setObject(nullptr);
        m_node->setObject(object);
        m_node->setObject(nullptr);
    });
    m_stack->undo();
    QCOMPARE(m_node->getObject(), object);
}

void TestElementUndo::aRemovedObjectOfADestroyedNode()
{
    const QPointer<VxObject> object(new VxObject(QStringLiteral("shape")));
    m_node->setObject(object);
    asEntry("Remove", [&] { m_node->setObject(nullptr); });
    m_scene->removeNode(m_node);
    QVERIFY(object);
    m_stack->undo(); // has no receiver
    m_stack->clear();
    QVERIFY(!object);
}

void TestElementUndo::redoReportsTheRemovalAgain()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    m_node->setObject(object);
    const QSignalSpy reported(morph, &VxElement::aboutToBeRemoved);
    asEntry("Remove", [&] { m_node->setObject(nullptr); });
    QCOMPARE(reported.count(), 1);
    m_stack->undo();
    m_stack->redo();
    QCOMPARE(reported.count(), 2);
}

void TestElementUndo::aSubElementIsUndone()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    m_node->setObject(object);
    object->addSubElement(new VxMorph(QStringLiteral("first")));
    auto *smile = new VxMorph(QStringLiteral("smile"));
    auto *frown = new VxMorph(QStringLiteral("frown"));
    asEntry("Add Morphs", [&] {
        object->addSubElement(smile);
        object->addSubElement(frown);
    });
    smile->getValueControl()->setKey(160, 1, 0);
    QCOMPARE(m_stack->count(), 1);
    const QSignalSpy left(smile, &VxElement::aboutToBeRemoved);
    QSignalSpy reported(m_scene.get(), &VxScene::nodePropertiesChanged);
    m_stack->undo();
    QCOMPARE(object->getNumSubElements(), 1);
    QCOMPARE(left.count(), 1);
    QVERIFY(!smile->getOwnerElement() && !smile->parent());
    QVERIFY(
        !m_node->getPropertyGroups()->collectAllProperties().contains(smile->getValueControl()));
    QVERIFY(reported.count() > 0);
    QVERIFY(m_stack->memoryUsed() > qint64(sizeof(VxMorph)));
    reported.clear();
    m_stack->redo();
    QCOMPARE(object->getNumSubElements(), 3);
    QCOMPARE(object->getSubElement(1), smile);
    QCOMPARE(object->getSubElement(2), frown);
    QCOMPARE(smile->getOwnerElement(), object);
    QCOMPARE(smile->getValueControl()->getNumKeys(), 1);
    QVERIFY(m_node->getPropertyGroups()->collectAllProperties().contains(smile->getValueControl()));
    QVERIFY(reported.count() > 0);
    m_stack->undo();
    QCOMPARE(left.count(), 2);
}

void TestElementUndo::subElementsOfANewObject()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    asEntry("Add Shape", [&] {
        object->addSubElement(new VxMorph(QStringLiteral("outside")));
        m_node->setObject(object);
        object->addSubElement(new VxMorph(QStringLiteral("inside")));
    });
    for (int i = 0; i < 2; ++i) {
        m_stack->undo();
        QVERIFY(!m_node->getObject());
        m_stack->redo();
        QCOMPARE(m_node->getObject(), object);
        QCOMPARE(object->getNumSubElements(), 2);
        QCOMPARE(object->getSubElement(1)->getName(), QString("inside"));
    }
}

void TestElementUndo::theHistoryDestroysSubElementsItKeeps()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    m_node->setObject(object);
    const QPointer<VxMorph> kept(new VxMorph(QStringLiteral("smile")));
    asEntry("Add Morph", [&] { object->addSubElement(kept); });
    m_stack->clear();
    QVERIFY(kept); // it is the object's
    const QPointer<VxMorph> dropped(new VxMorph(QStringLiteral("frown")));
    asEntry("Add Morph", [&] { object->addSubElement(dropped); });
    m_stack->undo();
    QVERIFY(dropped);
    m_stack->clear();
    QVERIFY(!dropped);
}

void TestElementUndo::aSubElementDestroyedByOthers()
{
    auto *object = new VxObject(QStringLiteral("shape"));
    m_node->setObject(object);
    auto *morph = new VxMorph(QStringLiteral("smile"));
    asEntry("Add Morph", [&] { object->addSubElement(morph); });
    delete morph;
    m_stack->undo(); // has no receiver
    m_stack->redo();
    QCOMPARE(object->getNumSubElements(), 0);
    // One added and removed within the same hold leaves no entry.
    asEntry("Nothing", [&] {
        auto *passing = new VxMorph(QStringLiteral("passing"));
        object->addSubElement(passing);
        delete passing;
    });
    QCOMPARE(m_stack->count(), 1);
}

void TestElementUndo::theSceneReportsEveryChange()
{
    QSignalSpy reported(m_scene.get(), &VxScene::nodePropertiesChanged);
    int expected = 0;
    const auto check = [&](const char *what) {
        QVERIFY2(reported.count() > expected, what);
        expected = reported.count();
        QCOMPARE(reported.last().at(0).value<VxNode *>(), m_node);
    };
    VxFloatProperty *property = add("grip");
    check("a property is added");
    m_node->removeProperty(property);
    check("a property is removed");
    property = add("lost");
    check("another property is added");
    delete property;
    check("a property is destroyed");
    auto *object = new VxObject(QStringLiteral("shape"));
    m_node->setObject(object);
    check("an object is set");
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    check("a morph is added");
    add("extra", morph);
    check("a property of a morph is added");
    delete morph;
    check("a morph is destroyed");
    delete object;
    check("an object is destroyed");
}

void TestElementUndo::randomEditsAreUndoneExactly()
{
    std::mt19937 random(7);
    const auto below = [&random](int n) {
        return int(std::uniform_int_distribution<int>(0, n - 1)(random));
    };
    const auto drawn = [this] {
        const VxObject *object = m_node->getObject();
        QStringList elements;
        for (int i = 0; object && i < object->getNumSubElements(); ++i)
            elements << object->getSubElement(i)->getName();
        return names().join(' ') + '|' + (object ? object->getName() : QString()) + '|' +
               elements.join(' ');
    };
    QStringList states{drawn()};
    int made = 0;
    for (int i = 0; i < 300; ++i) {
        const int before = m_stack->index();
        asEntry("Edit", [&] {
            for (int j = below(4); j >= 0; --j) {
                const int extra = m_node->getNumProperties() - Controls;
                const int kind = below(5);
                if (kind == 0 && extra > 0)
                    m_node->removeProperty(m_node->getProperty(Controls + below(extra)));
                else if (kind == 1)
                    m_node->setObject(new VxObject(QString::number(++made)));
                else if (kind == 2)
                    m_node->setObject(nullptr);
                else if (kind == 3 && m_node->getObject())
                    m_node->getObject()->addSubElement(new VxMorph(QString::number(++made)));
                else
                    add(qPrintable(QString::number(++made)));
            }
        });
        // A new entry replaces those undone.
        if (m_stack->index() == before + 1)
            states = states.mid(0, before + 1) << drawn();
        QCOMPARE(drawn(), states.at(m_stack->index()));
        QCOMPARE(states.size(), m_stack->count() + 1);
        if (below(3) == 0) {
            const int to = below(m_stack->count() + 1);
            m_stack->setIndex(to);
            QCOMPARE(drawn(), states.at(to));
            m_stack->setIndex(m_stack->count());
            QCOMPARE(drawn(), states.last());
            m_stack->setIndex(to);
        }
    }
    for (int i = m_stack->index(); i >= 0; --i) {
        m_stack->setIndex(i);
        QCOMPARE(drawn(), states.at(i));
    }
}

VX_TEST_MAIN(TestElementUndo)
#include "tst_elementundo.moc"
