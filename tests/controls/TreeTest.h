// The ground of the tree's tests: data that is counted and tells when it goes.
#pragma once

#include "TipTest.h"

#include <memory>

#include "kit/CountedObject.h"
#include "kit/LeakGate.h"

// Notes its name when it is deleted.
class Note : public ItemDataABSTRACT
{
public:
    Note(std::vector<std::string>& deleted, std::string name, CString tip = L"")
        : m_deleted(deleted), m_name(std::move(name)), m_tip(std::move(tip))
    {
        ++testkit::LiveObjects();
    }
    Note(const Note&) = delete;
    Note& operator=(const Note&) = delete;
    ~Note() override
    {
        m_deleted.push_back(m_name);
        --testkit::LiveObjects();
    }
    CString GetTipText() const override { return m_tip; }

private:
    std::vector<std::string>& m_deleted;
    std::string m_name;
    CString m_tip;
};

// A created tree, 150 by 100 pixels, without the tips that the platform's control has of itself.
class TreeGround : public TipTest
{
protected:
    static void SetUpTestSuite()
    {
        testkit::AddCounter("item data", [] { return testkit::LiveObjects().load(); });
    }
    static void TearDownTestSuite() { testkit::RemoveCounter("item data"); }

    void SetUp() override
    {
        TipTest::SetUp();
        m_tree = std::make_unique<CXTreeCtrl>();
        ASSERT_TRUE(m_tree->Create(WS_CHILD | WS_VISIBLE | Style, CRect(CPoint(20, 20), CSize(150, 100)),
                                   &m_parent, 5));
    }
    void TearDown() override
    {
        TipTest::TearDown();
        m_tree.reset();
    }

    HTREEITEM Add(const CString& text, HTREEITEM parent = TVI_ROOT)
    {
        const HTREEITEM item = m_tree->InsertItem(text, parent);
        EXPECT_NE(item, nullptr);
        return item;
    }
    void Own(HTREEITEM item, Note* note)
    {
        EXPECT_TRUE(
            m_tree->SetItemData(item, reinterpret_cast<DWORD_PTR>(static_cast<ItemDataABSTRACT*>(note))));
    }
    // An item with data of the same name.
    HTREEITEM AddOwner(const std::string& name, HTREEITEM parent = TVI_ROOT)
    {
        const HTREEITEM item = Add(testkit::Wide(name).c_str(), parent);
        Own(item, new Note(m_deleted, name));
        return item;
    }
    // Deletes data that the tree is not to delete (again).
    void Disown(HTREEITEM item)
    {
        delete reinterpret_cast<ItemDataABSTRACT*>(m_tree->GetItemData(item));
        m_tree->SetItemData(item, 0);
    }
    void Forget(std::initializer_list<HTREEITEM> items)
    {
        for (const HTREEITEM item : items)
            m_tree->SetItemData(item, 0);
    }

    static constexpr DWORD Style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_NOTOOLTIPS;
    std::vector<std::string> m_deleted;
    std::unique_ptr<CXTreeCtrl> m_tree;
};
