#include "scenetree/sceneedits.h"
#include "scenetree/scenetreemodel.h"
#include "scenetree/vxscenepane.h"
#include "studiotestbase.h"
#include "testing/vxlostrelease.h"
#include "testing/vxmousedriver.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"

#include <random>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int Steps = 350;

/// Everything of a node that edits change, with what is below it.
QString stateOf(const VxNode *node)
{
    QStringList parts{node->getName(), node->getLabel(), node->isVisible() ? "v" : "h"};
    for (const VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
        const auto *number = qobject_cast<const VxFloatProperty *>(property);
        parts << property->getName() << QString::number(double(number->getStoredValue()), 'g', 9);
        if (const VxProperty *aliased = property->getAliasedProperty())
            parts << "alias of" << aliased->getOwner()->getName() << aliased->getName();
        for (int i = 0; i < property->getNumKeys(); ++i)
            parts << QStringLiteral("%1:%2/%3")
                         .arg(property->getKeyTime(i))
                         .arg(double(number->getKeyValue(i)), 0, 'g', 9)
                         .arg(property->getKeyInterpolationType(i));
    }
    parts << (node->getObject() ? node->getObject()->getName() : QString()) << "(";
    for (int i = 0; i < node->getNumNodeChildren(); ++i)
        parts << stateOf(node->getNodeChild(i));
    return parts.join(' ') + ')';
}

QString sceneState()
{
    QStringList roots;
    for (const VxNode *node : vxScene->getRootNodes())
        roots << stateOf(node);
    return roots.join('\n');
}

/// What a sheet of the scene should list of a node's properties.
QStringList listedProperties(const VxNode *node)
{
    QStringList labels;
    for (const VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
        if (property->canBeKeyed() && !property->isHidden() && !property->isDynamicallyHidden())
            labels << property->getLabel();
    }
    labels.sort();
    return labels;
}

} // namespace

/// Hundreds of edits of a scene, mixed with steps through the history, with the whole program
/// around it: after each of them the scene pane and the dope sheet show the scene as it is.
class tst_SceneEditsRandom : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void viewsAgreeWithTheScene_data();
    void viewsAgreeWithTheScene();

private:
    int below(int limit) { return int(m_random() % quint32(limit)); }
    VxNode *anyNode();
    QVector<VxNode *> anyNodes();
    void edit();
    void editNode(VxNode *node);
    void makeAlias(VxFloatProperty *property);
    void loseADrag();
    void moveNodes(const QVector<VxNode *> &nodes, VxNode *parent, int index);
    void checkViews();
    QString sheetNodes(const QModelIndex &above, QString *error) const;
    void checkProperties(const QModelIndex &row, const VxNode *node, QString *error) const;
    static void collectLeaves(const QModelIndex &row, QStringList *labels);
    static QString sceneNodes(const QVector<VxNode *> &nodes, const QStringList &listed);
    QString paneNodes(const QModelIndex &above) const;

    std::mt19937 m_random;
    QAbstractItemModel *m_sheet = nullptr;
    SceneTreeModel *m_tree = nullptr;
    int m_made = 0;
    int m_aliases = 0;
    int m_lostDrags = 0;
    int m_kept = 0; // nodes that stayed in place below another one
};

void tst_SceneEditsRandom::init()
{
    setUp();
    start();
    QCoreApplication::processEvents();
    for (QAbstractItemModel *model : timePane()->findChildren<QAbstractItemModel *>()) {
        if (model->inherits("VxDopeSheetModel"))
            m_sheet = model;
    }
    QVERIFY(m_sheet);
    m_tree =
        qobject_cast<VxScenePane *>(window()->getPaneMgr()->findPane("VxScenePane"))->getModel();
    m_made = 0;
    m_kept = 0;
    m_aliases = 0;
    m_lostDrags = 0;
}

void tst_SceneEditsRandom::cleanup()
{
    vxApp->getUndoStack()->setClean();
    tearDown();
}

VxNode *tst_SceneEditsRandom::anyNode()
{
    const QVector<VxNode *> nodes = vxScene->getNodes();
    return nodes.isEmpty() ? nullptr : nodes.at(below(nodes.size()));
}

QVector<VxNode *> tst_SceneEditsRandom::anyNodes()
{
    QVector<VxNode *> nodes;
    for (int i = below(3); i >= 0; --i) {
        if (VxNode *node = anyNode())
            nodes.append(node);
    }
    return nodes;
}

void tst_SceneEditsRandom::edit()
{
    const int kind = below(10);
    if (kind < 2 || vxScene->getNumNodes() < 6) {
        VxUndoStackHold hold;
        const QString name = QStringLiteral("n%1").arg(++m_made);
        vxScene->addNode(below(2) ? new VxBone(name) : new VxNode(name),
                         below(4) ? anyNode() : nullptr);
        hold.accept("Add");
    } else if (kind == 2) {
        SceneEdits::remove(vxScene, anyNodes());
    } else if (kind < 5) {
        moveNodes(anyNodes(), below(4) ? anyNode() : nullptr, below(6) - 1);
    } else if (kind == 5) {
        SceneEdits::setVisible(anyNodes(), below(2));
    } else {
        editNode(anyNode());
    }
}

/** Places in the world are kept by all that are not named as displaced, when they shall be. */
void tst_SceneEditsRandom::moveNodes(const QVector<VxNode *> &nodes, VxNode *parent, int index)
{
    const VxTime now = vxScene->getTime();
    const QVector<VxNode *> tops = SceneEdits::topmost(vxScene, nodes);
    QVector<QMatrix4x4> before;
    for (const VxNode *node : tops)
        before << node->getWorldTransform(now);
    const auto kept = below(3) ? SceneEdits::Kept::WorldPlace : SceneEdits::Kept::Values;
    QVector<VxNode *> displaced;
    SceneEdits::move(vxScene, nodes, parent, index, kept, &displaced);
    for (int i = 0; i < tops.size(); ++i) {
        const QMatrix4x4 after = tops.at(i)->getWorldTransform(now);
        float most = 0;
        float size = 1;
        for (int j = 0; j < 16; ++j) {
            QVERIFY(qIsFinite(after.constData()[j]));
            size = qMax(size, qAbs(before.at(i).constData()[j]));
            most = qMax(most, qAbs(after.constData()[j] - before.at(i).constData()[j]));
        }
        const bool stays = kept == SceneEdits::Kept::WorldPlace && !displaced.contains(tops.at(i));
        QVERIFY2(!stays || most <= 1e-3f * size, qPrintable(tops.at(i)->getLabel()));
        m_kept += stays && tops.at(i)->getNodeParent() ? 1 : 0;
    }
}

void tst_SceneEditsRandom::editNode(VxNode *node)
{
    VxUndoStackHold hold;
    const int kind = below(10);
    if (kind == 6) {
        if (VxObject *object = node->getObject())
            object->addSubElement(new VxMorph(QStringLiteral("m%1").arg(++m_made)));
    } else if (kind == 7) {
        const auto all = node->getPropertyGroups()->collectAllProperties();
        auto *control = qobject_cast<VxFloatProperty *>(all.at(below(10)));
        control->setStoredValue(float(below(400) - 200) / 20);
    } else if (kind == 8) {
        const auto all = node->getPropertyGroups()->collectAllProperties();
        makeAlias(qobject_cast<VxFloatProperty *>(all.at(below(all.size()))));
    } else if (kind == 0) {
        node->setLabel(QStringLiteral("%1 %2").arg(node->getName()).arg(below(100)));
    } else if (kind == 1) {
        auto *object = new VxObject(QStringLiteral("o%1").arg(++m_made));
        for (int i = below(3); i >= 0; --i)
            object->addSubElement(new VxMorph(QStringLiteral("m%1").arg(++m_made)));
        node->setObject(object);
    } else if (kind == 2) {
        node->setObject(nullptr);
    } else if (kind == 3) {
        node->addProperty(new VxFloatProperty(QStringLiteral("p%1").arg(++m_made)),
                          below(2) ? "/Pose" : "/Pose/Deep");
    } else {
        const auto all = node->getPropertyGroups()->collectAllProperties();
        auto *property = qobject_cast<VxFloatProperty *>(all.at(below(all.size())));
        const bool removable = property->getOwner() == node && property->getName().startsWith('p');
        if (kind == 4 && removable)
            node->removeProperty(property);
        else
            property->setKey(below(20) * 160, float(below(90)), below(3));
    }
    hold.accept("Edit");
}

void tst_SceneEditsRandom::makeAlias(VxFloatProperty *property)
{
    if (property->isAlias()) {
        property->setAliasedProperty(nullptr);
        return;
    }
    const auto all = anyNode()->getPropertyGroups()->collectAllProperties();
    m_aliases += property->setAliasedProperty(all.at(below(all.size()))) ? 1 : 0;
}

/// A drag in the dope sheet whose release is lost changes nothing.
void tst_SceneEditsRandom::loseADrag()
{
    auto *sheet = inTimePane<QTreeView>("TimelineDopeSheetTView");
    QWidget *rows = sheet->viewport();
    const QString before = sceneState();
    const int entries = vxApp->getUndoStack()->count();
    const QPoint from(sheet->columnWidth(0) + 5 + below(400), below(rows->height()));
    VxMouseDriver mouse(rows);
    mouse.press(from);
    mouse.moveTo(from + QPoint(below(200) - 100, below(60) - 30));
    vxLoseRelease(rows, below(VxLostReleaseWays));
    mouse.release(from + QPoint(20, 0));
    QCOMPARE(sceneState(), before);
    QCOMPARE(vxApp->getUndoStack()->count(), entries);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    ++m_lostDrags;
}

QString tst_SceneEditsRandom::sceneNodes(const QVector<VxNode *> &nodes, const QStringList &listed)
{
    QStringList names;
    for (const VxNode *node : nodes) {
        if (!listed.contains(node->getName()))
            continue;
        QVector<VxNode *> children;
        node->getNodeChildren(children);
        names << node->getLabel() + '(' + sceneNodes(children, listed) + ')';
    }
    return names.join(' ');
}

QString tst_SceneEditsRandom::paneNodes(const QModelIndex &above) const
{
    QStringList names;
    for (int i = 0; i < m_tree->rowCount(above); ++i) {
        const QModelIndex row = m_tree->index(i, 0, above);
        names << row.data().toString() + '(' + paneNodes(row) + ')';
    }
    return names.join(' ');
}

void tst_SceneEditsRandom::collectLeaves(const QModelIndex &row, QStringList *labels)
{
    const QAbstractItemModel *model = row.model();
    if (model->rowCount(row) == 0)
        labels->append(row.data().toString());
    for (int i = 0; i < model->rowCount(row); ++i)
        collectLeaves(model->index(i, 0, row), labels);
}

void tst_SceneEditsRandom::checkProperties(const QModelIndex &row, const VxNode *node,
                                           QString *error) const
{
    QStringList labels;
    const QModelIndex first = m_sheet->index(0, 0, row);
    if (first.data().toString() == "Properties")
        collectLeaves(first, &labels);
    labels.sort();
    if (labels != listedProperties(node))
        *error = node->getName() + " lists " + labels.join(' ') + ", not " +
                 listedProperties(node).join(' ');
}

QString tst_SceneEditsRandom::sheetNodes(const QModelIndex &above, QString *error) const
{
    QStringList names;
    for (int i = 0; i < m_sheet->rowCount(above); ++i) {
        const QModelIndex row = m_sheet->index(i, 0, above);
        const QString label = row.data().toString();
        if (label == "Properties")
            continue;
        const VxNode *node = vxScene->findNodeByLabel(label);
        if (!node) {
            *error = "a row for " + label + ", which is not in the scene";
            return QString();
        }
        checkProperties(row, node, error);
        names << label + '(' + sheetNodes(row, error) + ')';
    }
    return names.join(' ');
}

void tst_SceneEditsRandom::checkViews()
{
    QCoreApplication::processEvents();
    QStringList all;
    QStringList shown;
    for (const VxNode *node : vxScene->getNodes())
        all << node->getName();
    QCOMPARE(paneNodes(QModelIndex()), sceneNodes(vxScene->getRootNodes(), all));
    // A node that is hidden has a row, or none when it was hidden before it was added.
    QString error;
    const QString rows = sheetNodes(QModelIndex(), &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    for (const VxNode *node : vxScene->getNodes()) {
        const bool hasRow = rows.contains(
            QRegularExpression("(^|[ (])" + QRegularExpression::escape(node->getLabel()) + "\\("));
        QVERIFY2(hasRow || !node->isVisible(), qPrintable(node->getLabel()));
        if (hasRow)
            shown << node->getName();
    }
    QCOMPARE(rows, sceneNodes(vxScene->getRootNodes(), shown));
}

void tst_SceneEditsRandom::viewsAgreeWithTheScene_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 3; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void tst_SceneEditsRandom::viewsAgreeWithTheScene()
{
    QFETCH(uint, seed);
    m_random.seed(seed);
    VxUndoStack *history = vxApp->getUndoStack();
    QStringList states{sceneState()};
    const int steps = std::max(90, vxSessionLength(Steps));
    for (int step = 0; step < steps; ++step) {
        const int before = history->index();
        if (below(12) == 0)
            loseADrag();
        if (below(5) == 0) {
            const int to = below(history->count() + 1);
            history->setIndex(to);
            QCOMPARE(sceneState(), states.at(to));
            // What is undone is lost with the next edit; most of the time all is done again.
            if (below(10) > 0) {
                checkViews();
                history->setIndex(history->count());
                QCOMPARE(sceneState(), states.last());
            }
        } else {
            edit();
            if (history->index() == before + 1)
                states = states.mid(0, before + 1) << sceneState();
            QCOMPARE(history->count() + 1, states.size());
        }
        checkViews();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("in step %1").arg(step)));
    }
    const int end = history->count();
    QVERIFY(end > 5);
    QVERIFY2(m_kept >= steps / 40, qPrintable(QString::number(m_kept)));
    QVERIFY2(m_aliases >= steps / 80, qPrintable(QString::number(m_aliases)));
    QVERIFY(m_lostDrags > steps / 25);
    history->setIndex(end);
    while (history->canUndo()) {
        history->undo();
        QCOMPARE(sceneState(), states.at(history->index()));
    }
    checkViews();
    QCOMPARE(vxScene->getNumNodes(), 0);
    while (history->canRedo()) {
        history->redo();
        QCOMPARE(sceneState(), states.at(history->index()));
    }
    checkViews();
}

VX_TEST_MAIN(tst_SceneEditsRandom)
#include "tst_sceneeditsrandom.moc"
