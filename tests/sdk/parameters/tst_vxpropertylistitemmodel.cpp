#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

using Model = VxPropertyListItemModel;

class TestPropertyListItemModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void headingsActOnTheirGroups();
    void groupsOfOneNameAreDistinct();
    void rowsOfSeveralNodes();
    void settingIsForAllNodes();
    void valuesAndKeyStatesFollowTheTime();
    void aTimeChangeReportsValuesOnly();
    void traitsDoNotReset();
    void hiddenRowsAreShownAndHidden();
    void aRemovedNodeLeavesTheModel();
    void linkedAndLockedAreNotEditable();
    void hints();
    void settingText_data();
    void settingText();

private:
    QStringList labels() const;
    QModelIndex cell(const VxProperty *property, int column) const
    {
        const QModelIndex label = m_model->findProperty(property);
        return label.sibling(label.row(), column);
    }

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
    std::unique_ptr<Model> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    VxNode *m_node = nullptr;
    VxNode *m_other = nullptr;
};

void TestPropertyListItemModel::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    VxSceneBuilder builder(m_scene.get());
    m_node = builder.addNode(QStringLiteral("node"));
    m_other = builder.addNode(QStringLiteral("other"));
    m_model = std::make_unique<Model>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void TestPropertyListItemModel::cleanup()
{
    m_tester.reset();
    m_model.reset();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

QStringList TestPropertyListItemModel::labels() const
{
    QStringList list;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, Model::LabelColumn);
        list.append((m_model->isHeading(index) ? QStringLiteral("# ") : QString()) +
                    index.data().toString());
    }
    return list;
}

void TestPropertyListItemModel::headingsActOnTheirGroups()
{
    m_model->setNode(m_node);
    QCOMPARE(labels().mid(0, 9),
             QStringList({"# Translation", "X Translate", "Y Translate", "Z Translate",
                          "# Rotation", "X Rotate", "Y Rotate", "Z Rotate", "# Scale"}));
    const QModelIndex heading = m_model->index(4, Model::LabelColumn);
    QVERIFY(m_model->isHeading(heading));
    QCOMPARE(m_model->getGroupPath(heading), QString("/General/Transforms/Rotation"));
    const VxPropertyListNode *listNode = m_model->getPropertyListNode(heading);
    QVERIFY(listNode->isHeading());
    QCOMPARE(listNode->getLabel(), QString("Rotation"));
    QCOMPARE(listNode->getProperties(),
             QVector<VxProperty *>(
                 {m_node->getXRotControl(), m_node->getYRotControl(), m_node->getZRotControl()}));
    QVERIFY(!(heading.flags() & Qt::ItemIsEditable));
    QVERIFY(!m_model->setData(heading.sibling(4, Model::ValueColumn), QStringLiteral("3")));
    QCOMPARE(m_model->findProperty(m_node->getXRotControl()).row(), 5);
    QCOMPARE(m_model->getGroupPath(m_model->index(5, 0)), QString("/General/Transforms/Rotation"));
}

void TestPropertyListItemModel::groupsOfOneNameAreDistinct()
{
    m_node->addProperty(new VxFloatProperty(QStringLiteral("a")), QStringLiteral("/Left/Hand"));
    m_node->addProperty(new VxFloatProperty(QStringLiteral("b")), QStringLiteral("/Right/Hand"));
    m_node->addProperty(new VxFloatProperty(QStringLiteral("c")), QString());
    m_model->setNode(m_node);
    QCOMPARE(labels().first(), QString("c")); // without a group, without a heading
    QCOMPARE(labels().mid(labels().size() - 4),
             QStringList({"# Left / Hand", "a", "# Right / Hand", "b"}));
}

void TestPropertyListItemModel::rowsOfSeveralNodes()
{
    m_node->addProperty(new VxFloatProperty(QStringLiteral("own")), QStringLiteral("/G"));
    m_other->addProperty(new VxFloatProperty(QStringLiteral("theirs")), QStringLiteral("/G"));
    m_model->setNodes({m_node, m_other});
    QCOMPARE(m_model->getNode(), m_node);
    const VxPropertyListNode *row =
        m_model->getPropertyListNode(m_model->findProperty(m_node->getXPosControl()));
    QCOMPARE(row->getProperties(),
             QVector<VxProperty *>({m_node->getXPosControl(), m_other->getXPosControl()}));
    // Found by each of its properties.
    QCOMPARE(m_model->findProperty(m_other->getXPosControl()),
             m_model->findProperty(m_node->getXPosControl()));
    QVERIFY(labels().contains("own"));
    QVERIFY(!labels().contains("theirs"));
    QCOMPARE(m_model->getPropertyListNode(m_model->index(0, 0))->getNumProperties(), 6);
}

void TestPropertyListItemModel::settingIsForAllNodes()
{
    m_model->setNodes({m_node, m_other});
    m_scene->setTime(160);
    QVERIFY(m_model->setData(cell(m_node->getYPosControl(), Model::ValueColumn),
                             QStringLiteral("12.5")));
    for (const VxNode *node : {m_node, m_other}) {
        QCOMPARE(node->getYPosControl()->getNumKeys(), 1);
        QCOMPARE(node->getYPosControl()->getKeyTime(0), 160);
        QCOMPARE(node->getYPosControl()->getKeyValue(0), 12.5f);
    }
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->undoText(), QString("Set Y Translate"));
}

void TestPropertyListItemModel::valuesAndKeyStatesFollowTheTime()
{
    VxFloatProperty *x = m_node->getXPosControl();
    x->setKey(0, 1.0f, 0);
    x->setKey(320, 3.0f, 0);
    m_model->setNode(m_node);
    const QModelIndex value = cell(x, Model::ValueColumn);
    const QModelIndex key = cell(x, Model::KeyColumn);
    QCOMPARE(value.data().toString(), QString("1"));
    QCOMPARE(key.data(Model::KeyStateRole).toInt(), int(Model::OnKey));
    m_scene->setTime(160);
    QCOMPARE(value.data().toString(), QString("2"));
    QCOMPARE(key.data(Model::KeyStateRole).toInt(), int(Model::Keyed));
    QCOMPARE(cell(m_node->getYPosControl(), Model::KeyColumn).data(Model::KeyStateRole).toInt(),
             int(Model::NoKeys));
    QSignalSpy changed(m_model.get(), &Model::dataChanged);
    x->setKey(160, 9.0f, 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toModelIndex().row(), value.row());
    QCOMPARE(value.data().toString(), QString("9"));
    QCOMPARE(key.data(Model::KeyStateRole).toInt(), int(Model::OnKey));
}

void TestPropertyListItemModel::aTimeChangeReportsValuesOnly()
{
    m_model->setNode(m_node);
    QSignalSpy changed(m_model.get(), &Model::dataChanged);
    m_scene->setTime(160);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex(), m_model->index(0, Model::ValueColumn));
    QCOMPARE(changed.first().at(1).toModelIndex(),
             m_model->index(m_model->rowCount() - 1, Model::KeyColumn));
}

void TestPropertyListItemModel::traitsDoNotReset()
{
    m_model->setNode(m_node);
    QSignalSpy reset(m_model.get(), &Model::modelReset);
    m_node->getXPosControl()->setLabel(QStringLiteral("Sideways"));
    m_node->getXPosControl()->setLocked(true);
    QSignalSpy changed(m_model.get(), &Model::dataChanged);
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(labels().value(1), QString("Sideways"));
    QCOMPARE(reset.count(), 0);
    // Still watched.
    m_node->getXPosControl()->setLocked(false);
    QTRY_COMPARE(changed.count(), 2);
}

void TestPropertyListItemModel::hiddenRowsAreShownAndHidden()
{
    m_model->setNode(m_node);
    QSignalSpy reset(m_model.get(), &Model::modelReset);
    const int rows = m_model->rowCount();
    for (VxFloatProperty *property :
         {m_node->getXRotControl(), m_node->getYRotControl(), m_node->getZRotControl()})
        property->setHidden(true);
    QTRY_COMPARE(reset.count(), 1);
    QCOMPARE(m_model->rowCount(), rows - 4); // with the heading
    QVERIFY(!m_model->findProperty(m_node->getXRotControl()).isValid());
    m_node->getXRotControl()->setHidden(false);
    QTRY_COMPARE(m_model->rowCount(), rows - 2);
    auto *extra = new VxFloatProperty(QStringLiteral("extra"));
    m_node->addProperty(extra, QStringLiteral("/G"));
    QTRY_VERIFY(m_model->findProperty(extra).isValid());
    m_node->removeProperty(extra);
    QVERIFY(!labels().contains("extra"));
}

void TestPropertyListItemModel::aRemovedNodeLeavesTheModel()
{
    m_model->setNodes({m_node, m_other});
    m_scene->removeNode(m_other);
    QCOMPARE(m_model->getNodes(), QVector<VxNode *>{m_node});
    const VxPropertyListNode *row = m_model->getPropertyListNode(m_model->index(1, 0));
    QCOMPARE(row->getProperties(), QVector<VxProperty *>{m_node->getXPosControl()});
    QSignalSpy reset(m_model.get(), &Model::modelReset);
    QTRY_COMPARE(reset.count(), 1);
    QCOMPARE(m_model->getPropertyListNode(m_model->index(1, 0))->getNumProperties(), 1);
    m_scene->clear();
    QCOMPARE(m_model->rowCount(), 0);
    QVERIFY(!m_model->getNode());
}

void TestPropertyListItemModel::linkedAndLockedAreNotEditable()
{
    VxSceneBuilder builder(m_scene.get());
    const VxSceneBuilder::Special special = builder.addSpecialProperties(m_node);
    m_model->setNode(m_node);
    const auto editable = [this](const VxProperty *property) {
        return bool(cell(property, Model::ValueColumn).flags() & Qt::ItemIsEditable);
    };
    QVERIFY(!editable(special.locked));
    QVERIFY(!editable(special.linked));
    QVERIFY(editable(special.terminal));
    QVERIFY(editable(special.alias));
    QVERIFY(editable(special.integer) && editable(special.boolean) && editable(special.text));
    QVERIFY(!m_model->findProperty(special.hidden).isValid());
    QVERIFY(!m_model->findProperty(special.dynamic).isValid());
    QCOMPARE(cell(special.unanimated, Model::KeyColumn).data(Model::KeyStateRole).toInt(),
             int(Model::NotKeyable));
}

void TestPropertyListItemModel::hints()
{
    VxSceneBuilder builder(m_scene.get());
    const VxSceneBuilder::Special special = builder.addSpecialProperties(m_node);
    m_model->setNode(m_node);
    const auto hint = [this](const VxProperty *property) {
        return cell(property, Model::LabelColumn).data(Qt::ToolTipRole).toString();
    };
    QVERIFY2(hint(special.alias).contains("Alias of node: X Translate"),
             qPrintable(hint(special.alias)));
    QVERIFY(hint(special.linked).contains("Follows node: Y Translate"));
    QVERIFY(hint(special.terminal).contains("Adds node: Y Translate"));
    QVERIFY(hint(special.locked).contains("Locked"));
    QVERIFY(hint(special.unanimated).contains("Cannot be keyed"));
    QVERIFY(hint(special.integer).startsWith("/Special/Integer"));
    const QModelIndex key = cell(m_node->getXPosControl(), Model::KeyColumn);
    QVERIFY(key.data(Qt::ToolTipRole).toString().startsWith("No keys"));
    m_node->getXPosControl()->setKey(0, 0.0f, 0);
    QVERIFY(key.data(Qt::ToolTipRole).toString().startsWith("On a key"));
    m_scene->setTime(1);
    QVERIFY(key.data(Qt::ToolTipRole).toString().startsWith("Keyed"));
}

void TestPropertyListItemModel::settingText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a number") << "XTranslate"
                              << "-2.25" << true << "-2.25";
    QTest::newRow("no number") << "XTranslate"
                               << "wide" << false << "0";
    QTest::newRow("not finite") << "XTranslate"
                                << "nan" << false << "0";
    QTest::newRow("a percentage with its sign") << "Scale"
                                                << "75 %" << true << "75%";
    QTest::newRow("a percentage without") << "Scale"
                                          << "75" << true << "75%";
    QTest::newRow("a whole number is rounded") << "Integer"
                                               << "2.6" << true << "3";
    QTest::newRow("a switch by its word") << "Boolean"
                                          << "on" << true << "On";
    QTest::newRow("a switch by something else") << "Boolean"
                                                << "perhaps" << false << "Off";
    QTest::newRow("a text") << "Text"
                            << "any words" << true << "any words";
    QTest::newRow("locked") << "Locked"
                            << "5" << false << "0";
}

void TestPropertyListItemModel::settingText()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QFETCH(QString, shown);
    VxSceneBuilder builder(m_scene.get());
    builder.addSpecialProperties(m_node);
    m_model->setNode(m_node);
    const QModelIndex value = cell(m_node->findProperty(name), Model::ValueColumn);
    QVERIFY(value.isValid());
    QCOMPARE(m_model->setData(value, text), accepted);
    QCOMPARE(value.data().toString(), shown);
    QCOMPARE(m_stack->count(), accepted ? 1 : 0);
}

VX_TEST_GUILESS_MAIN(TestPropertyListItemModel)
#include "tst_vxpropertylistitemmodel.moc"
