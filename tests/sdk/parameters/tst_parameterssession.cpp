// Random sessions in the Parameters pane: whatever the user does, undo and redo restore every state
// of the history as it was, and the rows say what the keys are.

#include "parameterspanetestbase.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"

#include <QClipboard>
#include <QHash>
#include <QRandomGenerator>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxstringproperty.h>

class TestParametersSession : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void sessions_data();
    void sessions();

private:
    int upTo(int below) { return int(m_random.bounded(below)); }
    QString dump() const;
    VxProperty *anyRow();
    void doSomething();
    void typeSomething(const VxProperty *property);
    void dragSomehow(const VxProperty *property);
    void stepSomehow(const VxProperty *property);
    void leaveField() const;
    void selectSomething();
    void pasteSomething(const VxProperty *property);
    void checkRows() const;
    void checkKeys() const;
    void checkHistory();

    QRandomGenerator m_random;
    QHash<int, QString> m_states; // by index of the history
    QString m_last;               // what was done last
};

/// Everything that the history restores: the values and keys of all properties.
QString TestParametersSession::dump() const
{
    QString text;
    for (VxNode *node : m_bones) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const VxProperty *property = node->getProperty(i);
            text += node->getLabel() + '.' + property->getName() + ':';
            if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
                text += QString::number(double(number->getStoredValue()), 'g', 12);
            else if (const auto *whole = qobject_cast<const VxIntProperty *>(property))
                text += QString::number(whole->getStoredValue());
            else if (const auto *words = qobject_cast<const VxStringProperty *>(property))
                text += words->getValue();
            const auto *keyed = qobject_cast<const VxNumericProperty *>(property);
            for (int k = 0; keyed && k < keyed->getNumKeys(); ++k)
                text += QStringLiteral(" %1=%2/%3")
                            .arg(keyed->getKeyTime(k))
                            .arg(keyed->getKeyDoubleValue(k), 0, 'g', 12)
                            .arg(keyed->getKeyInterpolationType(k));
            text += '\n';
        }
    }
    return text;
}

VxProperty *TestParametersSession::anyRow()
{
    for (int tries = 0; tries < 50; ++tries) {
        const QModelIndex index = model()->index(upTo(qMax(1, model()->rowCount())), 0);
        const VxPropertyListNode *row = model()->getPropertyListNode(index);
        if (row && !row->isHeading() && !view()->isRowHidden(index.row(), QModelIndex()))
            return row->getProperty(0);
    }
    return nullptr;
}

void TestParametersSession::typeSomething(const VxProperty *property)
{
    static const QStringList texts = {"0",    "1.5",  "-20", "1e9",  "+=3", "*=0.5", "3*",
                                      "(1+2", "2,25", "",    "-=10", "/=0", "100%",  "7*(2-1)"};
    click(property);
    if (!field())
        return; // locked, a switch or a text
    QTest::keyClicks(field(), texts.at(upTo(texts.size())));
    const int keys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab};
    QTest::keyClick(field(), Qt::Key(keys[upTo(4)]));
    leaveField();
}

void TestParametersSession::dragSomehow(const VxProperty *property)
{
    const QPoint from = middle(property, Model::ValueColumn);
    const Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                              Qt::ControlModifier};
    VxMouseDriver mouse(port());
    mouse.press(from);
    QPoint place = from;
    for (int i = 0; i < 8; ++i) {
        place = from + QPoint(upTo(200) - 100, upTo(40) - 20);
        mouse.moveTo(place, modifiers[upTo(3)]);
    }
    if (upTo(4) == 0)
        QTest::keyClick(view(), Qt::Key_Escape);
    if (upTo(6) == 0)
        vxApp->getUndoStack()->undo(); // ignored: nothing is undone in a gesture
    mouse.release(place);
}

void TestParametersSession::stepSomehow(const VxProperty *property)
{
    click(property);
    if (!field())
        return;
    for (int i = upTo(6); i >= 0; --i) {
        const int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp};
        QTest::keyClick(field(), Qt::Key(keys[upTo(3)]),
                        upTo(3) ? Qt::NoModifier : Qt::ShiftModifier);
    }
    if (upTo(2))
        wheel(field(), upTo(5) - 2);
    QTest::keyClick(field(), upTo(3) ? Qt::Key_Return : Qt::Key_Escape);
    leaveField();
}

/// A field closed by a key is deleted when the event loop is next idle.
void TestParametersSession::leaveField() const
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (QWidget *open = field())
        QTest::keyClick(open, Qt::Key_Escape);
    QTRY_VERIFY(!field());
}

void TestParametersSession::selectSomething()
{
    vxScene->selectAllNodes(false);
    for (VxNode *node : qAsConst(m_bones)) {
        if (upTo(2))
            node->select();
    }
    if (vxScene->getSelectedNodes().isEmpty())
        hip()->select();
    QCoreApplication::processEvents();
}

void TestParametersSession::pasteSomething(const VxProperty *property)
{
    click(property, Model::LabelColumn);
    if (upTo(2))
        QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
    if (const VxProperty *other = anyRow())
        VxMouseDriver(port()).click(middle(other, Model::LabelColumn), Qt::LeftButton,
                                    upTo(2) ? Qt::ShiftModifier : Qt::NoModifier);
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
}

void TestParametersSession::doSomething()
{
    const VxProperty *row = anyRow();
    const int what = row ? upTo(12) : 9;
    m_last = QStringLiteral("%1 on %2").arg(what).arg(row ? row->getName() : QString());
    switch (what) {
    case 0:
    case 1:
        typeSomething(row);
        break;
    case 2:
    case 3:
        dragSomehow(row);
        break;
    case 4:
        stepSomehow(row);
        break;
    case 5:
    case 6:
        click(row, Model::KeyColumn);
        break;
    case 7:
        vxApp->getUndoStack()->undo();
        break;
    case 8:
        vxApp->getUndoStack()->redo();
        break;
    case 9:
        selectSomething();
        break;
    case 10:
        vxScene->setTime(160 * upTo(12));
        vxScene->setAnimating(upTo(4) != 0);
        break;
    default:
        pasteSomething(row);
    }
    QCoreApplication::processEvents();
}

/// The rows against the properties themselves.
void TestParametersSession::checkRows() const
{
    const VxTime time = vxScene->getTime();
    for (int r = 0; r < model()->rowCount(); ++r) {
        const VxPropertyListNode *row = model()->getPropertyListNode(model()->index(r, 0));
        if (row->isHeading())
            continue;
        int keyable = 0, keyed = 0, here = 0;
        bool mixed = false;
        const auto *first = qobject_cast<const VxNumericProperty *>(row->getProperty(0));
        for (const VxProperty *property : row->getProperties()) {
            keyable += property->canBeKeyed();
            keyed += property->canBeKeyed() && property->getNumKeys() > 0;
            here += property->canBeKeyed() && property->findKey(time) >= 0;
            const auto *number = qobject_cast<const VxNumericProperty *>(property);
            mixed |= first && number->getDoubleValue(time) != first->getDoubleValue(time);
        }
        const int state = model()->index(r, Model::KeyColumn).data(Model::KeyStateRole).toInt();
        const int expected = keyable == 0                    ? Model::NotKeyable
                             : keyed == 0                    ? Model::NoKeys
                             : here == keyable               ? Model::OnKey
                             : keyed == keyable && here == 0 ? Model::Keyed
                                                             : Model::MixedKeys;
        QCOMPARE(state, expected);
        const QModelIndex value = model()->index(r, Model::ValueColumn);
        if (first)
            QCOMPARE(value.data(Model::MixedRole).toBool(), mixed);
        if (mixed)
            QCOMPARE(value.data().toString(), QString("Mixed"));
    }
}

void TestParametersSession::checkKeys() const
{
    for (VxNode *node : m_bones) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const auto *property = qobject_cast<const VxFloatProperty *>(node->getProperty(i));
            for (int k = 0; property && k < property->getNumKeys(); ++k) {
                QVERIFY(k == 0 || property->getKeyTime(k - 1) < property->getKeyTime(k));
                const float value = property->getKeyValue(k);
                QVERIFY(value >= property->getMin() && value <= property->getMax());
            }
        }
    }
}

/// A state that the history has been in before is the same again.
void TestParametersSession::checkHistory()
{
    const VxUndoStack *stack = vxApp->getUndoStack();
    QVERIFY(!stack->isRecording());
    const auto former = m_states.constFind(stack->index());
    if (former != m_states.constEnd())
        QCOMPARE(dump(), *former);
    else
        m_states.insert(stack->index(), dump());
}

void TestParametersSession::sessions_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 3; ++seed)
        QTest::addRow("session %u", seed) << seed;
}

void TestParametersSession::sessions()
{
    QFETCH(quint32, seed);
    const int more = qEnvironmentVariableIntValue("VX_SESSION_SEED");
    m_random.seed(seed + quint32(more));
    m_states.clear();
    VxSceneBuilder builder(vxScene);
    builder.addSpecialProperties(m_bones.at(1));
    m_bones.at(1)->getYPosControl()->setMinMax(-30.0f, 30.0f);
    VxUndoStack *stack = vxApp->getUndoStack();
    m_states.insert(0, dump());
    // In the place of what was undone.
    const auto ended = connect(stack, &VxUndoStack::entryAdded, this, [this, stack] {
        for (auto state = m_states.begin(); state != m_states.end();)
            state = state.key() >= stack->index() ? m_states.erase(state) : std::next(state);
    });
    int entries = 0;
    for (int i = 0; i < vxSessionLength(150); ++i) {
        doSomething();
        entries = qMax(entries, stack->count());
        checkHistory();
        checkRows();
        checkKeys();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("step %1: %2").arg(i).arg(m_last)));
    }
    QVERIFY2(entries > vxSessionLength(20), qPrintable(QString::number(entries)));
    disconnect(ended);
    const QString end = dump();
    const int last = stack->index();
    stack->setIndex(0);
    QCOMPARE(dump(), m_states.value(0));
    stack->setIndex(last);
    QCOMPARE(dump(), end);
    QCoreApplication::processEvents();
    checkRows();
}

VX_TEST_UNIT(&runParametersTest<TestParametersSession>)

#include "tst_parameterssession.moc"
