#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxstringproperty.h>

class TestElement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void nameAndLabel();
    void propertiesInTheOrderOfAdding();
    void refusedPropertiesStayTheCallers();
    void removedPropertyIsAnnouncedThenDestroyed();
    void builtInPropertiesCannotBeRemoved();
    void propertyDestroyedOnItsOwnIsRemoved();
    void destructionReportsAndDestroysProperties();
    void groupsFollowAddedProperties();
    void groupsSpanNodeObjectAndMorphs();
    void subElementsHaveOneOwner();
    void subElementDestroyedOnItsOwnIsRemoved();
    void objectIsExchanged();
    void objectOfAnotherNodeIsRefused();
    void morphHasAPercentage();
    void helperFindsTheNode();

private:
    void expectWarning(const char *text)
    {
        m_guard->expect(QRegularExpression(QString::fromLatin1(text)));
    }
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestElement::nameAndLabel()
{
    VxElement element(QStringLiteral("hip"));
    QCOMPARE(element.getName(), QStringLiteral("hip"));
    QCOMPARE(element.objectName(), QStringLiteral("hip"));
    QCOMPARE(element.getLabel(), QStringLiteral("hip"));
    QSignalSpy changed(&element, &VxElement::labelChanged);
    element.setLabel(QStringLiteral("Hip"));
    element.setLabel(QStringLiteral("Hip"));
    QCOMPARE(element.getLabel(), QStringLiteral("Hip"));
    QCOMPARE(element.getName(), QStringLiteral("hip"));
    QCOMPARE(changed.count(), 1);
}

void TestElement::propertiesInTheOrderOfAdding()
{
    VxElement element(QStringLiteral("e"));
    QSignalSpy added(&element, &VxElement::propertyAdded);
    auto *first = new VxFloatProperty(QStringLiteral("first"));
    auto *second = new VxStringProperty(QStringLiteral("second"));
    QCOMPARE(element.addProperty(first, QStringLiteral("/General")), first);
    QCOMPARE(element.addProperty(second, QString()), second);
    QCOMPARE(added.count(), 2);
    QCOMPARE(element.getNumProperties(), 2);
    QCOMPARE(element.getProperty(0), first);
    QCOMPARE(element.getProperty(1), second);
    QVERIFY(!element.getProperty(-1));
    QVERIFY(!element.getProperty(2));
    QCOMPARE(element.findProperty(QStringLiteral("second")), second);
    QVERIFY(!element.findProperty(QStringLiteral("third")));
    QCOMPARE(first->getOwner(), &element);
    QCOMPARE(first->getPath(), QStringLiteral("/General"));
}

void TestElement::refusedPropertiesStayTheCallers()
{
    VxElement element(QStringLiteral("e"));
    VxElement other(QStringLiteral("other"));
    auto *owned = new VxFloatProperty(QStringLiteral("x"));
    other.addProperty(owned, QString());
    element.addProperty(new VxFloatProperty(QStringLiteral("x")), QString());

    expectWarning("no property for \"e\"");
    QVERIFY(!element.addProperty(nullptr, QString()));
    expectWarning("\"x\" has an owner and cannot be added to \"e\"");
    QVERIFY(!element.addProperty(owned, QString()));
    QCOMPARE(owned->getOwner(), &other);
    VxFloatProperty sameName(QStringLiteral("x"));
    expectWarning("\"x\" has a name in use and cannot be added to \"e\"");
    QVERIFY(!element.addProperty(&sameName, QStringLiteral("/Path")));
    QVERIFY(!sameName.getOwner());
    QCOMPARE(sameName.getPath(), QString());
    QCOMPARE(element.getNumProperties(), 1);
}

void TestElement::removedPropertyIsAnnouncedThenDestroyed()
{
    VxElement element(QStringLiteral("e"));
    VxProperty *property = element.addProperty(new VxFloatProperty(QStringLiteral("x")), QString());
    const QPointer<VxProperty> guard(property);
    QStringList story;
    connect(&element, &VxElement::propertyRemoved, this, [&](VxProperty *removed) {
        QCOMPARE(removed, property);
        QVERIFY(!removed->getOwner());
        QCOMPARE(element.getNumProperties(), 0);
        story << QStringLiteral("removed");
    });
    connect(property, &VxProperty::propertyDeleted, this,
            [&] { story << QStringLiteral("deleted"); });
    QVERIFY(element.removeProperty(property));
    QCOMPARE(story, (QStringList{QStringLiteral("removed"), QStringLiteral("deleted")}));
    QVERIFY(!guard);
    QVERIFY(!element.findProperty(QStringLiteral("x")));
    expectWarning("cannot be removed from \"e\"");
    QVERIFY(!element.removeProperty(nullptr));
}

void TestElement::builtInPropertiesCannotBeRemoved()
{
    VxNode node(QStringLiteral("n"));
    VxMorph morph(QStringLiteral("smile"));
    expectWarning("\"XTranslate\" cannot be removed from \"n\"");
    QVERIFY(!node.removeProperty(node.getXPosControl()));
    expectWarning("\"smile\" cannot be removed");
    QVERIFY(!morph.removeProperty(morph.getValueControl()));
    QVERIFY(morph.getValueControl());
    // Whoever destroys one all the same leaves a node that still has a place.
    delete node.getXPosControl();
    QVERIFY(!node.getXPosControl());
    QVERIFY(node.getLocalTransform(0).isIdentity());
}

void TestElement::propertyDestroyedOnItsOwnIsRemoved()
{
    VxElement element(QStringLiteral("e"));
    VxProperty *property = element.addProperty(new VxFloatProperty(QStringLiteral("x")), QString());
    QCOMPARE(element.getPropertyGroups()->collectAllProperties().size(), 1);
    QSignalSpy removed(&element, &VxElement::propertyRemoved);
    delete property;
    QCOMPARE(removed.count(), 1);
    QCOMPARE(element.getNumProperties(), 0);
    QVERIFY(element.getPropertyGroups()->collectAllProperties().isEmpty());
}

void TestElement::destructionReportsAndDestroysProperties()
{
    auto element = std::make_unique<VxElement>(QStringLiteral("e"));
    const QPointer<VxProperty> property(
        element->addProperty(new VxFloatProperty(QStringLiteral("x")), QString()));
    QSignalSpy removed(element.get(), &VxElement::aboutToBeRemoved);
    QSignalSpy deleted(property.data(), &VxProperty::propertyDeleted);
    element.reset();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(deleted.count(), 1);
    QVERIFY(!property);
}

void TestElement::groupsFollowAddedProperties()
{
    VxElement element(QStringLiteral("e"));
    QVERIFY(element.getPropertyGroups()->collectAllProperties().isEmpty());
    VxProperty *property =
        element.addProperty(new VxFloatProperty(QStringLiteral("x")), QStringLiteral("/A"));
    QCOMPARE(element.getPropertyGroups()->getRoot()->getChild(0)->getProperty(0), property);
    QCOMPARE(element.getPropertyGroups(), element.getPropertyGroups());
    element.removeProperty(property);
    QCOMPARE(element.getPropertyGroups()->getRoot()->getNumChildren(), 0);
}

void TestElement::groupsSpanNodeObjectAndMorphs()
{
    VxNode node(QStringLiteral("n"));
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().size(), 10);

    auto *object = new VxObject(QStringLiteral("shape"));
    VxProperty *ofObject = object->addProperty(new VxFloatProperty(QStringLiteral("size")),
                                               QStringLiteral("/General/Misc"));
    node.setObject(object);
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().last(), ofObject);

    // Into an object that is in use: the node's tree follows.
    auto *morph = new VxMorph(QStringLiteral("smile"));
    QVERIFY(object->addSubElement(morph));
    VxProperty *ofMorph = morph->getValueControl();
    const auto all = node.getPropertyGroups()->collectAllProperties();
    QCOMPARE(all.size(), 12);
    QCOMPARE(all.at(10), ofObject);
    QCOMPARE(all.at(11), ofMorph);
    QCOMPARE(object->getPropertyGroups()->collectAllProperties(),
             (QVector<VxProperty *>{ofObject, ofMorph}));
    const VxPropertyGroup *root = node.getPropertyGroups()->getRoot();
    QCOMPARE(root->getChild(root->getNumChildren() - 1)->getName(), QStringLiteral("Shape"));
    QCOMPARE(node.getNumProperties(), 10);

    morph->addProperty(new VxFloatProperty(QStringLiteral("extra")), QStringLiteral("/Shape"));
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().size(), 13);
    node.setObject(nullptr);
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().size(), 10);
}

void TestElement::subElementsHaveOneOwner()
{
    VxObject object(QStringLiteral("shape"));
    VxObject other(QStringLiteral("other"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    QVERIFY(!morph->getObject());
    QVERIFY(object.addSubElement(morph));
    QCOMPARE(object.getNumSubElements(), 1);
    QCOMPARE(object.getSubElement(0), morph);
    QVERIFY(!object.getSubElement(1));
    QCOMPARE(morph->getObject(), &object);
    QCOMPARE(morph->getOwnerElement(), &object);

    expectWarning("\"other\" cannot own smile");
    QVERIFY(!other.addSubElement(morph));
    expectWarning("\"other\" cannot own null");
    QVERIFY(!other.addSubElement(nullptr));
    expectWarning("\"other\" cannot own other");
    QVERIFY(!other.addSubElement(&other));
    VxNode node(QStringLiteral("n"));
    expectWarning("\"other\" cannot own n");
    QVERIFY(!other.addSubElement(&node));

    auto *inner = new VxObject(QStringLiteral("inner"));
    QVERIFY(object.addSubElement(inner));
    expectWarning("\"inner\" cannot own shape");
    QVERIFY(!inner->addSubElement(&object));
}

void TestElement::subElementDestroyedOnItsOwnIsRemoved()
{
    VxObject object(QStringLiteral("shape"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object.addSubElement(morph);
    QCOMPARE(object.getPropertyGroups()->collectAllProperties().size(), 1);
    delete morph;
    QCOMPARE(object.getNumSubElements(), 0);
    QVERIFY(object.getPropertyGroups()->collectAllProperties().isEmpty());
}

void TestElement::objectIsExchanged()
{
    VxNode node(QStringLiteral("n"));
    const QPointer<VxObject> first(new VxObject(QStringLiteral("first")));
    auto *second = new VxObject(QStringLiteral("second"));
    node.setObject(first);
    QCOMPARE(first->getNode(), &node);
    QSignalSpy removed(first.data(), &VxElement::aboutToBeRemoved);
    QSignalSpy changed(&node, &VxNode::objectChanged);
    connect(&node, &VxNode::objectChanged, this, [&](VxNode *, VxObject *former, VxObject *) {
        QCOMPARE(former, first.data());
        QVERIFY(!former->getNode());
    });
    node.setObject(second);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(removed.count(), 1);
    QVERIFY(!first);
    QCOMPARE(node.getObject(), second);
    node.setObject(second);
    QCOMPARE(changed.count(), 1);
    delete second;
    QVERIFY(!node.getObject());
}

void TestElement::objectOfAnotherNodeIsRefused()
{
    VxNode node(QStringLiteral("n"));
    VxNode other(QStringLiteral("other"));
    auto *object = new VxObject(QStringLiteral("shape"));
    node.setObject(object);
    expectWarning("\"shape\" belongs to \"n\" and cannot be added to \"other\"");
    other.setObject(object);
    QVERIFY(!other.getObject());
    QCOMPARE(node.getObject(), object);
}

void TestElement::morphHasAPercentage()
{
    const VxMorph morph(QStringLiteral("smile"), QStringLiteral("/Face/Mouth"));
    const VxFloatProperty *value = morph.getValueControl();
    QCOMPARE(value->getName(), QStringLiteral("smile"));
    QCOMPARE(value->getPath(), QStringLiteral("/Face/Mouth"));
    QVERIFY(value->isPercentage());
    QCOMPARE(value->getMin(), 0.0f);
    QCOMPARE(value->getMax(), 1.0f);
    QCOMPARE(value->getValue(0), 0.0f);
}

void TestElement::helperFindsTheNode()
{
    VxNode node(QStringLiteral("n"));
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    VxProperty *size = object->addProperty(new VxFloatProperty(QStringLiteral("size")), QString());
    object->addSubElement(morph);
    QVERIFY(!VxPropertyHelper::getNode(morph->getValueControl()));
    node.setObject(object);
    VxFloatProperty loose(QStringLiteral("loose"));
    const VxStringProperty text(QStringLiteral("text"));

    QCOMPARE(VxPropertyHelper::getNode(node.getScaleControl()), &node);
    QCOMPARE(VxPropertyHelper::getNode(size), &node);
    QCOMPARE(VxPropertyHelper::getNode(morph->getValueControl()), &node);
    QVERIFY(!VxPropertyHelper::getNode(&loose));
    QVERIFY(!VxPropertyHelper::getNode(nullptr));

    QVERIFY(VxPropertyHelper::isMorphProperty(morph->getValueControl()));
    QVERIFY(!VxPropertyHelper::isMorphProperty(size));
    QVERIFY(!VxPropertyHelper::isMorphProperty(nullptr));

    QCOMPARE(VxPropertyHelper::getTransformAxis(node.getXPosControl()), 1);
    QCOMPARE(VxPropertyHelper::getTransformAxis(node.getYRotControl()), 2);
    QCOMPARE(VxPropertyHelper::getTransformAxis(node.getZScaleControl()), 3);
    QCOMPARE(VxPropertyHelper::getTransformAxis(node.getScaleControl()), 4);
    QCOMPARE(VxPropertyHelper::getTransformAxis(size), 0);
    QCOMPARE(VxPropertyHelper::getTransformAxis(&text), 0);
    QCOMPARE(VxPropertyHelper::getTransformAxis(nullptr), 0);
}

VX_TEST_MAIN(TestElement)
#include "tst_vxelement.moc"
