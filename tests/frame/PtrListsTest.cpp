#include "VelmUtil22.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// Notes in a log which objects were deleted, in order.
class CNoted : public CObject
{
public:
    CNoted(std::vector<int>& log, int number, std::function<void()> onDelete = nullptr)
        : m_log(log), m_number(number), m_onDelete(std::move(onDelete))
    {
    }
    ~CNoted() override
    {
        m_log.push_back(m_number);
        if (m_onDelete)
            m_onDelete();
    }

private:
    std::vector<int>& m_log;
    int m_number;
    std::function<void()> m_onDelete;
};

class PtrLists : public testing::Test
{
protected:
    CObject* Add(int number, std::function<void()> onDelete = nullptr)
    {
        CObject* const object = new CNoted(deleted, number, std::move(onDelete));
        list->AddTail(object);
        return object;
    }

    void TearDown() override { delete list; }

    std::vector<int> deleted;
    CPtrList* list = new CPtrList;
};

class ClearPtrListTest : public PtrLists
{
};
class DeletePtrListTest : public PtrLists
{
};
class DeletePtrListItemTest : public PtrLists
{
};

} // namespace

TEST_F(ClearPtrListTest, DeletesFromTheLastToTheFirst)
{
    Add(1);
    Add(2);
    Add(3);
    CPtrList* const before = list;
    ClearPtrList(list);
    EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
    EXPECT_EQ(list, before);
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, TakesNullElementsOut)
{
    list->AddTail(static_cast<CObject*>(nullptr));
    Add(1);
    list->AddTail(static_cast<CObject*>(nullptr));
    ClearPtrList(list);
    EXPECT_THAT(deleted, ElementsAre(1));
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, AcceptsAnEmptyListAndANullPointer)
{
    ClearPtrList(list);
    EXPECT_EQ(list->GetCount(), 0);
    CPtrList* none = nullptr;
    ClearPtrList(none);
    EXPECT_EQ(none, nullptr);
}

TEST_F(ClearPtrListTest, TakesTheElementOutAfterItsObjectIsDeleted)
{
    std::vector<INT_PTR> counts;
    Add(1, [&] { counts.push_back(list->GetCount()); });
    Add(2, [&] { counts.push_back(list->GetCount()); });
    ClearPtrList(list);
    EXPECT_THAT(counts, ElementsAre(2, 1));
}

TEST_F(ClearPtrListTest, AllowsADestructorToTakeItsOwnElementOut)
{
    Add(1, [&] { list->RemoveHead(); });
    Add(2);
    Add(3, [&] { list->RemoveTail(); });
    ClearPtrList(list);
    EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, AllowsADestructorToReplaceItsOwnElement)
{
    const std::unique_ptr<CObject> added(new CNoted(deleted, 4));
    Add(1);
    Add(2);
    Add(3, [&] {
        list->RemoveTail();
        list->AddTail(added.get());
    });
    ClearPtrList(list);
    // The element that was added is none of those to delete, and it may lie where the other one lay.
    EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, AllowsADestructorToAddAnElementAndThenTakeItsOwnOut)
{
    const std::unique_ptr<CObject> added(new CNoted(deleted, 4));
    Add(1, [&] { EXPECT_EQ(list->GetCount(), 2); });
    Add(2, [&] { EXPECT_EQ(list->GetCount(), 3); });
    CObject* own = nullptr;
    own = Add(3, [&] {
        list->AddTail(added.get());
        list->RemoveAt(list->Find(own));
    });
    ClearPtrList(list);
    EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, TakesElementsOutUndeletedThatADestructorAppends)
{
    const std::unique_ptr<CObject> added(new CNoted(deleted, 4));
    Add(1);
    Add(2, [&] { list->AddTail(added.get()); });
    Add(3, [&] { list->AddTail(added.get()); });
    ClearPtrList(list);
    EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(ClearPtrListTest, ThrowsWhenAnElementIsNotFoundAnyMore)
{
    std::unique_ptr<CObject> first(Add(1));
    Add(2);
    Add(3, [&] { list->RemoveHead(); });
    try {
        ClearPtrList(list);
        FAIL() << "no exception";
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
    EXPECT_THAT(deleted, ElementsAre(3));
    EXPECT_EQ(list->GetCount(), 1);
    delete static_cast<CObject*>(list->RemoveHead());
}

TEST_F(ClearPtrListTest, ClearsALongList)
{
    for (int i = 0; i < 100'000; ++i)
        Add(i);
    ClearPtrList(list);
    ASSERT_EQ(deleted.size(), 100'000u);
    EXPECT_EQ(deleted.front(), 99'999);
    EXPECT_EQ(deleted.back(), 0);
}

TEST_F(DeletePtrListTest, DeletesObjectsAndListAndClearsThePointer)
{
    Add(1);
    list->AddTail(static_cast<CObject*>(nullptr));
    Add(2);
    DeletePtrList(list);
    EXPECT_THAT(deleted, ElementsAre(2, 1));
    EXPECT_EQ(list, nullptr);
}

TEST_F(DeletePtrListTest, KeepsListAndPointerWhenAnElementIsNotFoundAnyMore)
{
    const std::unique_ptr<CObject> first(Add(1));
    const std::unique_ptr<CObject> second(Add(2));
    Add(3, [&] { list->RemoveHead(); });
    CPtrList* const before = list;
    try {
        DeletePtrList(list);
        FAIL() << "no exception";
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
    ASSERT_EQ(list, before);
    EXPECT_THAT(deleted, ElementsAre(3));
    ASSERT_EQ(list->GetCount(), 1);
    EXPECT_EQ(list->GetHead(), second.get());
}

TEST_F(DeletePtrListTest, AcceptsANullPointer)
{
    CPtrList* none = nullptr;
    DeletePtrList(none);
    EXPECT_EQ(none, nullptr);
}

TEST_F(DeletePtrListItemTest, LeavesTheObjectAliveUnlessAskedToDeleteIt)
{
    const std::unique_ptr<CObject> item(Add(1));
    DeletePtrListItem(item.get(), list, false);
    EXPECT_EQ(list->GetCount(), 0);
    EXPECT_THAT(deleted, IsEmpty());
}

TEST_F(DeletePtrListItemTest, DeletesTheObjectWhenAsked)
{
    CObject* const item = Add(1);
    list->AddHead(static_cast<CObject*>(nullptr));
    DeletePtrListItem(item, list, true);
    EXPECT_EQ(list->GetCount(), 1);
    EXPECT_THAT(deleted, ElementsAre(1));
}

TEST_F(DeletePtrListItemTest, TakesTheElementOutBeforeItDeletesTheObject)
{
    INT_PTR countInDestructor = -1;
    CObject* const item = Add(1, [&] { countInDestructor = list->GetCount(); });
    DeletePtrListItem(item, list, true);
    EXPECT_EQ(countInDestructor, 0);
}

TEST_F(DeletePtrListItemTest, TakesTheFirstOccurrenceOut)
{
    const std::unique_ptr<CObject> item(Add(1));
    const std::unique_ptr<CObject> other(Add(2));
    list->AddTail(item.get());
    DeletePtrListItem(item.get(), list, false);
    ASSERT_EQ(list->GetCount(), 2);
    EXPECT_EQ(list->GetHead(), other.get());
    EXPECT_EQ(list->GetTail(), item.get());
}

TEST_F(DeletePtrListItemTest, NeverDeletesAnObjectThatIsNotInTheList)
{
    const std::unique_ptr<CObject> inside(Add(1));
    const std::unique_ptr<CObject> outside(new CNoted(deleted, 2));
    DeletePtrListItem(outside.get(), list, true);
    EXPECT_EQ(list->GetCount(), 1);
    EXPECT_THAT(deleted, IsEmpty());
}

TEST_F(DeletePtrListItemTest, TakesANullElementOutForANullItem)
{
    list->AddTail(static_cast<CObject*>(nullptr));
    DeletePtrListItem(nullptr, list, true);
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(DeletePtrListItemTest, AcceptsANullList)
{
    const std::unique_ptr<CObject> item(new CNoted(deleted, 1));
    CPtrList* none = nullptr;
    DeletePtrListItem(item.get(), none, true);
    EXPECT_EQ(none, nullptr);
    EXPECT_THAT(deleted, IsEmpty());
}
