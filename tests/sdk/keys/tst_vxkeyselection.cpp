// The application's selection of keys, with a source that only records, and what undo entries of
// key edits do with it.

#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest/QtTest>
#include <map>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

using Spans = std::vector<VxKeySpan>;

class MemorySource : public VxKeySelectionSource
{
public:
    VxKeySelectionEntries entries() const override
    {
        VxKeySelectionEntries entries;
        for (const auto &[holder, spans] : selected)
            entries.push_back({holder, spans, holder->keyRevision()});
        return entries;
    }
    std::vector<VxKeySpan> spansOf(VxProperty *holder) const override
    {
        const auto found = selected.find(holder);
        return found == selected.end() ? Spans() : found->second;
    }
    void set(const VxKeySelectionEntries &entries, bool clearsOthers) override
    {
        if (clearsOthers)
            selected.clear();
        for (const VxKeySelectionEntry &entry : entries) {
            selected.erase(entry.holder);
            if (!entry.spans.empty())
                selected[entry.holder] = entry.spans;
        }
    }

    std::map<VxProperty *, Spans> selected;
};

} // namespace

class TestKeySelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void revisionOfEveryChange();
    void revisionOfAnAlias();
    void unsentReports();
    void nothingWithoutASource();
    void theLastSourceIsUsed();
    void changesAreSentOnce();
    void staleEntriesAreLeftOut();
    void undoRestoresTheSelection();
    void undoKeepsTheSelectionOfOthers();
    void rollBackRestoresTheSelection();
    void rollBackWithinAnotherHold();

private:
    VxFloatProperty *x() { return m_x.get(); }

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxKeySelection> m_selection;
    std::unique_ptr<VxFloatProperty> m_x;
    MemorySource m_source;
};

void TestKeySelection::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_selection = std::make_unique<VxKeySelection>();
    m_x = std::make_unique<VxFloatProperty>(QStringLiteral("X"));
    for (const VxTime time : {0, 10, 20, 30})
        m_x->setKey(time, float(time), VxKeyInterp::Linear);
    m_source.selected.clear();
    m_selection->addSource(&m_source);
    QCoreApplication::processEvents();
}

void TestKeySelection::cleanup()
{
    m_x.reset();
    m_selection.reset();
    m_stack.reset();
    m_guard.reset();
}

void TestKeySelection::revisionOfEveryChange()
{
    QSet<quint64> seen{x()->keyRevision()};
    const auto isNew = [this, &seen] {
        const bool wasSeen = seen.contains(x()->keyRevision());
        seen.insert(x()->keyRevision());
        return !wasSeen && x()->keyRevision() == VxProperty::latestKeyRevision();
    };
    const VxChangeBlock block;
    VxUndoStackHold hold;
    x()->setKey(5, 1.0f, VxKeyInterp::Linear);
    QVERIFY(isNew());
    x()->setKeyValue(0, 7.0f);
    QVERIFY(isNew());
    x()->setKeyTypes({0}, VxKeyInterp::Tcb);
    QVERIFY(isNew());
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, 0.5f);
    QVERIFY(isNew());
    QVERIFY(x()->moveKeys({0}, {2}));
    QVERIFY(isNew());
    x()->deleteKeys(0, 0);
    QVERIFY(isNew());
    hold.accept(QStringLiteral("edit"));
    m_stack->undo();
    QVERIFY(isNew());
    m_stack->redo();
    QVERIFY(isNew());
    x()->setKeyTypes({0}, x()->getKeyInterpolationType(0));
    x()->setLabel(QStringLiteral("label"));
    QVERIFY(!isNew());
}

void TestKeySelection::revisionOfAnAlias()
{
    VxFloatProperty other(QStringLiteral("Other"));
    VxFloatProperty alias(QStringLiteral("Alias"));
    const quint64 alone = alias.keyRevision();
    const quint64 holders = VxProperty::latestHolderRevision();
    QVERIFY(alias.setAliasedProperty(x()));
    QVERIFY(alias.keyRevision() != alone);
    QVERIFY(VxProperty::latestHolderRevision() != holders);
    QCOMPARE(alias.keyRevision(), x()->keyRevision());
    x()->setKey(7, 0.0f, VxKeyInterp::Linear);
    QCOMPARE(alias.keyRevision(), x()->keyRevision());
    QVERIFY(alias.setOverridingControl(&other));
    QCOMPARE(alias.keyRevision(), other.keyRevision());
    QVERIFY(other.keyRevision() != x()->keyRevision());
}

// From the first change of a block until the last of its reports is out.
void TestKeySelection::unsentReports()
{
    VxFloatProperty other(QStringLiteral("Other"));
    QVector<bool> whileReporting;
    const auto note = [&whileReporting] {
        whileReporting.append(VxChangeBlock::hasUnsentReports());
    };
    connect(x(), &VxProperty::valueChanged, this, note);
    connect(&other, &VxProperty::valueChanged, this, note);
    {
        const VxChangeBlock block;
        QVERIFY(!VxChangeBlock::hasUnsentReports());
        x()->setKey(7, 0.0f, VxKeyInterp::Linear);
        other.setKey(7, 0.0f, VxKeyInterp::Linear);
        QVERIFY(VxChangeBlock::hasUnsentReports());
    }
    QVERIFY(!VxChangeBlock::hasUnsentReports());
    x()->setKey(8, 0.0f, VxKeyInterp::Linear);
    QVERIFY(!VxChangeBlock::hasUnsentReports());
    QCOMPARE(whileReporting, QVector<bool>({true, true, true}));
}

void TestKeySelection::nothingWithoutASource()
{
    m_selection->removeSource(&m_source);
    QSignalSpy changes(m_selection.get(), &VxKeySelection::changed);
    m_selection->set({{x(), {{0, 1}}, 0}});
    QVERIFY(m_selection->entries().empty());
    QVERIFY(m_selection->spansOf(x()).empty());
    QVERIFY(m_source.selected.empty());
}

void TestKeySelection::theLastSourceIsUsed()
{
    MemorySource second;
    m_selection->addSource(&second);
    m_selection->set({{x(), {{0, 1}}, 0}});
    QVERIFY(m_source.selected.empty());
    QVERIFY(second.selected.at(x()) == (Spans{{0, 1}}));
    m_selection->removeSource(&second);
    QVERIFY(m_selection->entries().empty());
}

void TestKeySelection::changesAreSentOnce()
{
    QSignalSpy changes(m_selection.get(), &VxKeySelection::changed);
    m_selection->set({{x(), {{0, 2}}, 0}});
    QCOMPARE(changes.size(), 1); // at once
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 1);
    m_selection->notifyChanged();
    m_selection->notifyChanged();
    QCOMPARE(changes.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 2);
    {
        const VxChangeBlock block;
        m_selection->set({});
        m_selection->notifyChanged();
        m_selection->set({{x(), {{0, 2}}, 0}});
        QCOMPARE(changes.size(), 2);
    }
    QCOMPARE(changes.size(), 3);
    // A pending report is sent early by a block that ends.
    m_selection->notifyChanged();
    m_selection->clear();
    QCOMPARE(changes.size(), 4);
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 4);
}

void TestKeySelection::staleEntriesAreLeftOut()
{
    VxFloatProperty other(QStringLiteral("Other"));
    other.setKey(0, 0.0f, VxKeyInterp::Linear);
    const quint64 revision = x()->keyRevision();
    x()->deleteKeys(0, 0);
    m_selection->set({{x(), {{0, 4}}, revision}, {&other, {{0, 1}}, other.keyRevision()}});
    QCOMPARE(m_source.selected.size(), std::size_t(1));
    QCOMPARE(m_source.selected.count(&other), std::size_t(1));
    m_selection->clear();
}

void TestKeySelection::undoRestoresTheSelection()
{
    m_selection->set({{x(), {{1, 3}}, 0}});
    VxUndoStackHold hold;
    QVERIFY(x()->moveKeys({1, 2}, {40, 50}));
    m_selection->set({{x(), {{2, 4}}, 0}});
    hold.accept(QStringLiteral("move"));
    m_selection->set({{x(), {{0, 1}}, 0}});
    QSignalSpy changes(m_selection.get(), &VxKeySelection::changed);
    m_stack->undo();
    QVERIFY(m_source.selected.at(x()) == (Spans{{1, 3}}));
    QCOMPARE(changes.size(), 1);
    m_selection->clear();
    m_stack->redo();
    QVERIFY(m_source.selected.at(x()) == (Spans{{2, 4}}));
    m_stack->undo();
    QVERIFY(m_source.selected.at(x()) == (Spans{{1, 3}}));
}

// An edit of keys that are not selected leaves what is selected later, and other properties stay.
void TestKeySelection::undoKeepsTheSelectionOfOthers()
{
    VxFloatProperty other(QStringLiteral("Other"));
    other.setKey(0, 0.0f, VxKeyInterp::Linear);
    {
        VxUndoStackHold hold;
        x()->setKey(5, 1.0f, VxKeyInterp::Linear);
        hold.accept(QStringLiteral("key"));
    }
    m_selection->set({{x(), {{0, 1}}, 0}, {&other, {{0, 1}}, 0}});
    m_stack->undo();
    QVERIFY(m_source.selected.at(x()) == (Spans{{0, 1}}));
    QVERIFY(m_source.selected.at(&other) == (Spans{{0, 1}}));
    m_selection->clear();
}

void TestKeySelection::rollBackRestoresTheSelection()
{
    m_selection->set({{x(), {{1, 3}}, 0}});
    QSignalSpy reports(x(), &VxProperty::valueChanged);
    VxUndoStackHold hold;
    QVERIFY(x()->moveKeys({1, 2}, {40, 50}));
    QVERIFY(x()->setStoredValue(3.0f));
    m_selection->set({{x(), {{2, 4}}, 0}});
    reports.clear();
    QVERIFY(hold.rollBack());
    QVERIFY(!hold.isOpen());
    QCOMPARE(reports.size(), 1);
    QCOMPARE(x()->getKeyTime(1), 10);
    QCOMPARE(x()->getKeyTime(3), 30);
    QCOMPARE(x()->getStoredValue(), 0.0f);
    QVERIFY(m_source.selected.at(x()) == (Spans{{1, 3}}));
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(!m_stack->isRecording());
    QVERIFY(!hold.rollBack());
}

void TestKeySelection::rollBackWithinAnotherHold()
{
    VxUndoStackHold outer;
    {
        VxUndoStackHold inner;
        x()->deleteAllKeys();
        QVERIFY(!inner.rollBack());
    }
    QCOMPARE(x()->getNumKeys(), 0);
    outer.accept(QStringLiteral("outer"));
    m_stack->undo();
    QCOMPARE(x()->getNumKeys(), 4);
}

VX_TEST_MAIN(TestKeySelection)
#include "tst_vxkeyselection.moc"
