// References between properties: aliases, overriding controls and links.

#include "testing/vxtestmain.h"

#include <QtTest/QtTest>
#include <memory>
#include <testing/vxwarningguard.h>
#include <vector>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

class TestPropertyReferences : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void aliasSharesTheKeysOfItsProperty();
    void aliasKeepsTheLimitsOfItsProperty();
    void aliasOfANotAnimatablePropertyMakesNoKeys();
    void circlesAreRefused();
    void aliasOfADestroyedPropertyUsesItsOwnKeys();
    void overridingControlTakesPrecedenceOverAnAlias();
    void openLinkReplacesTheValue();
    void terminalLinkAddsToTheValue();
    void dependentPropertiesReportChanges();
    void aliasAndLinkAreUndone();
    void longChainOfAliasesEndsAfterAHundredSteps();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestPropertyReferences::aliasSharesTheKeysOfItsProperty()
{
    VxFloatProperty source(QStringLiteral("Source")), alias(QStringLiteral("Alias"));
    source.setKey(100, 4.0f, 0);
    QVERIFY(alias.setAliasedProperty(&source));
    QVERIFY(alias.isAlias());
    QCOMPARE(alias.getAliasedProperty(), &source);
    QCOMPARE(alias.getKeyHolder(), &source);
    QCOMPARE(alias.getNumKeys(), 1);
    QCOMPARE(alias.getValue(100), 4.0f);
    QVERIFY(alias.setValue(200, 6.0f));
    QCOMPARE(source.getNumKeys(), 2);
    QCOMPARE(alias.deleteAllKeys(), 2);
    QCOMPARE(source.getNumKeys(), 0);
    source.setLocked(true);
    QVERIFY(!alias.setValue(0, 1.0f));
    QVERIFY(alias.setAliasedProperty(nullptr));
    QCOMPARE(alias.getKeyHolder(), &alias);
}

void TestPropertyReferences::aliasKeepsTheLimitsOfItsProperty()
{
    VxFloatProperty source(QStringLiteral("Source")), alias(QStringLiteral("Alias"));
    source.setMinMax(0.0f, 1.0f, true);
    alias.setMinMax(0.0f, 0.5f, true);
    QVERIFY(alias.setAliasedProperty(&source));
    QVERIFY(alias.setStoredValue(5.0f));
    QCOMPARE(source.getStoredValue(), 1.0f);
    QVERIFY(alias.setKey(0, 5.0f, VxKeyInterp::Linear));
    QCOMPARE(source.getKeyValue(0), 1.0f);
    QVERIFY(alias.setKeyValue(0, -5.0f));
    QCOMPARE(source.getKeyValue(0), 0.0f);
    QVERIFY(alias.setValue(0, 5.0f));
    QCOMPARE(source.getKeyValue(0), 1.0f);

    VxIntProperty whole(QStringLiteral("Whole")), other(QStringLiteral("Other"));
    whole.setMinMax(0, 3, true);
    QVERIFY(other.setAliasedProperty(&whole));
    QVERIFY(other.setStoredValue(9));
    QCOMPARE(whole.getStoredValue(), 3);
    QVERIFY(other.setKey(0, 9));
    QCOMPARE(whole.getKeyValue(0), 3);
    QVERIFY(other.setKeyValue(0, -9));
    QCOMPARE(whole.getKeyValue(0), 0);
}

void TestPropertyReferences::aliasOfANotAnimatablePropertyMakesNoKeys()
{
    const VxTime time = 0;
    const float value = 1.0f;
    const int number = 1;
    const VxKeyColumns<float> keys{&time, &value, nullptr, nullptr, 1};
    const VxKeyColumns<qint32> numbers{&time, &number, nullptr, nullptr, 1};
    VxFloatProperty source(QStringLiteral("Source")), alias(QStringLiteral("Alias"));
    QVERIFY(alias.setAliasedProperty(&source));
    VxIntProperty whole(QStringLiteral("Whole")), other(QStringLiteral("Other"));
    QVERIFY(other.setAliasedProperty(&whole));
    const QVector<VxProperty *> refusing = {&source, &whole, &alias, &other};
    for (int i = 0; i < refusing.size(); i += 2) {
        refusing.at(i)->setAnimatable(false);
        refusing.at(i + 1)->setAnimatable(false);
        QVERIFY(!alias.setKey(0, 1.0f, VxKeyInterp::Linear));
        QVERIFY(!alias.setKeys(keys));
        QVERIFY(!alias.replaceKeys(VxTimeRange::all(), keys));
        QVERIFY(!other.setKey(0, 1));
        QVERIFY(!other.setKeys(numbers));
        QVERIFY(!other.replaceKeys(VxTimeRange::all(), numbers));
        refusing.at(i)->setAnimatable(true);
        refusing.at(i + 1)->setAnimatable(true);
    }
    QCOMPARE(source.getNumKeys() + whole.getNumKeys(), 0);
    QVERIFY(alias.setKeys(keys));
    QVERIFY(other.setKeys(numbers));
}

void TestPropertyReferences::circlesAreRefused()
{
    VxFloatProperty a(QStringLiteral("A")), b(QStringLiteral("B")), c(QStringLiteral("C"));
    VxIntProperty n(QStringLiteral("N"));
    QVERIFY(!a.setAliasedProperty(&a));
    QVERIFY(!a.setAliasedProperty(&n));
    QVERIFY(a.setAliasedProperty(&b));
    QVERIFY(b.setLink(&c));
    QVERIFY(!c.setAliasedProperty(&a));
    QVERIFY(!c.setOverridingControl(&b));
    QVERIFY(!c.setLink(&a));
    QVERIFY(!c.isAlias());
    QVERIFY(!c.isLinked());
}

void TestPropertyReferences::aliasOfADestroyedPropertyUsesItsOwnKeys()
{
    VxFloatProperty alias(QStringLiteral("Alias"), 3.0f);
    {
        VxFloatProperty source(QStringLiteral("Source"), 9.0f);
        alias.setAliasedProperty(&source);
        QCOMPARE(alias.getValue(0), 9.0f);
    }
    QVERIFY(!alias.isAlias());
    QCOMPARE(alias.getValue(0), 3.0f);
    QVERIFY(alias.setValue(0, 1.0f));
    QCOMPARE(alias.getNumKeys(), 1);
}

void TestPropertyReferences::overridingControlTakesPrecedenceOverAnAlias()
{
    VxFloatProperty x(QStringLiteral("X"), 1.0f), source(QStringLiteral("S"), 2.0f),
        control(QStringLiteral("C"), 3.0f);
    x.setAliasedProperty(&source);
    x.setOverridingControl(&control);
    QCOMPARE(x.getValue(0), 3.0f);
    QCOMPARE(x.getKeyHolder(), &control);
    x.setOverridingControl(nullptr);
    QCOMPARE(x.getValue(0), 2.0f);
}

void TestPropertyReferences::openLinkReplacesTheValue()
{
    VxFloatProperty x(QStringLiteral("X"), 1.0f), driver(QStringLiteral("D"));
    driver.setKey(0, 0.0f, 0);
    driver.setKey(100, 10.0f, 0);
    QVERIFY(x.setLink(&driver, false, 2.0, 0.5));
    QCOMPARE(x.getValue(50), 10.5f);
    QCOMPARE(x.getLinkedProperty(), &driver);
    QVERIFY(!x.isLinkTerminal());
    QVERIFY(!x.setValue(50, 3.0f));
    QCOMPARE(x.getNumKeys(), 0);
    float values[3] = {};
    const VxTime times[] = {0, 50, 100};
    x.getValues(times, 3, values);
    QCOMPARE(values[0], 0.5f);
    QCOMPARE(values[2], 20.5f);
    QVERIFY(x.setLink(nullptr));
    QCOMPARE(x.getValue(50), 1.0f);
}

void TestPropertyReferences::terminalLinkAddsToTheValue()
{
    VxFloatProperty x(QStringLiteral("X"), 1.0f), driver(QStringLiteral("D"), 10.0f);
    QVERIFY(x.setLink(&driver, true, 0.5));
    QVERIFY(x.isLinkTerminal());
    QCOMPARE(x.getValue(0), 6.0f);
    QVERIFY(x.setValue(0, 3.0f));
    QCOMPARE(x.getValue(0), 8.0f);
    QCOMPARE(x.getKeyValue(0), 3.0f);
}

void TestPropertyReferences::dependentPropertiesReportChanges()
{
    VxFloatProperty source(QStringLiteral("S")), alias(QStringLiteral("A")),
        linked(QStringLiteral("L"));
    alias.setAliasedProperty(&source);
    linked.setLink(&alias);
    QSignalSpy aliasSpy(&alias, &VxProperty::valueChanged);
    QSignalSpy linkedSpy(&linked, &VxProperty::valueChanged);
    source.setKey(320, 1.0f, 0);
    QCOMPARE(aliasSpy.count(), 1);
    QCOMPARE(linkedSpy.count(), 1);
    QCOMPARE(linkedSpy.first().first().value<VxTimeRange>(), VxTimeRange(320, 320));
    linked.setLink(nullptr);
    linkedSpy.clear();
    source.setKey(480, 1.0f, 0);
    QCOMPARE(linkedSpy.count(), 0);
}

void TestPropertyReferences::aliasAndLinkAreUndone()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X")), y(QStringLiteral("Y"));
    VxUndoStackHold hold;
    x.setAliasedProperty(&y);
    hold.accept(QStringLiteral("Alias"));
    VxUndoStackHold second;
    x.setAliasedProperty(nullptr);
    x.setLink(&y, true, 2.0, 1.0);
    second.accept(QStringLiteral("Link"));
    stack.undo();
    QVERIFY(x.isAlias());
    QVERIFY(!x.isLinked());
    stack.undo();
    QVERIFY(!x.isAlias());
    stack.redo();
    stack.redo();
    QVERIFY(!x.isAlias());
    QVERIFY(x.isLinkTerminal());
    QCOMPARE(x.getLinkFactor(), 2.0);
    QCOMPARE(x.getLinkOffset(), 1.0);
}

void TestPropertyReferences::longChainOfAliasesEndsAfterAHundredSteps()
{
    std::vector<std::unique_ptr<VxFloatProperty>> chain;
    for (int i = 0; i <= VxProperty::MaxReferenceChain; ++i) {
        chain.push_back(std::make_unique<VxFloatProperty>(QString::number(i)));
        if (i > 0)
            QVERIFY(chain[size_t(i)]->setAliasedProperty(chain[size_t(i) - 1].get()));
    }
    QCOMPARE(chain[100]->getKeyHolder(), chain[0].get());
    QCOMPARE(chain[128]->getKeyHolder(), chain[28].get());
    VxFloatProperty beyond(QStringLiteral("beyond"));
    QVERIFY(!beyond.setAliasedProperty(chain[128].get()));
    while (!chain.empty())
        chain.pop_back();
}

VX_TEST_MAIN(TestPropertyReferences)
#include "tst_propertyreferences.moc"
