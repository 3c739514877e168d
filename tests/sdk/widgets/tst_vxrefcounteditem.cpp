#include "testing/vxtestmain.h"

#include <QThread>
#include <QtTest>
#include <type_traits>
#include <vector>
#include <vxcore/vxrefcounteditem.h>

namespace {

class Item : public VxRefCountedItem
{
public:
    explicit Item(int *deleted)
        : m_deleted(deleted)
    {
    }

protected:
    ~Item() override { ++*m_deleted; }

private:
    int *const m_deleted;
};

static_assert(!std::is_copy_constructible_v<Item> && !std::is_copy_assignable_v<Item>);
static_assert(!std::is_destructible_v<Item>, "only the last owner deletes");

} // namespace

class TestVxRefCountedItem : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void makerIsTheFirstOwner()
    {
        int deleted = 0;
        auto *item = new Item(&deleted);
        QCOMPARE(item->refCount(), 1);
        item->unref();
        QCOMPARE(deleted, 1);
    }

    void lastOwnerDeletes()
    {
        int deleted = 0;
        auto *item = new Item(&deleted);
        item->ref();
        item->ref();
        QCOMPARE(item->refCount(), 3);
        item->unref();
        item->unref();
        QCOMPARE(item->refCount(), 1);
        QCOMPARE(deleted, 0);
        item->unref();
        QCOMPARE(deleted, 1);
    }

    void ownersOnSeveralThreadsDeleteOnce()
    {
        int deleted = 0;
        auto *item = new Item(&deleted);
        constexpr int rounds = 20000;
        std::vector<std::unique_ptr<QThread>> threads;
        for (int i = 0; i < 4; ++i) {
            item->ref();
            threads.emplace_back(QThread::create([item] {
                for (int round = 0; round < rounds; ++round) {
                    item->ref();
                    item->unref();
                }
                item->unref();
            }));
        }
        for (const auto &thread : threads)
            thread->start();
        for (const auto &thread : threads)
            QVERIFY(thread->wait());
        QCOMPARE(item->refCount(), 1);
        QCOMPARE(deleted, 0);
        item->unref();
        QCOMPARE(deleted, 1);
    }
};

VX_TEST_APPLESS_MAIN(TestVxRefCountedItem)
#include "tst_vxrefcounteditem.moc"
