// Data for a tree's items that notice when they are deleted, and when they are used after that.
#pragma once

#include <VelmUtil22.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace randomplay
{

class TreeDatum;

// Who hears of it.
class TreeDatumWatch
{
public:
    // The object's destructor runs.
    virtual void OnDeleted(TreeDatum& datum) = 0;
    // Its text is asked for; it may be gone when this returns.
    virtual void OnTipAsked() = 0;
    // Something was done with an object that is gone.
    virtual void OnDeadUse() = 0;

protected:
    ~TreeDatumWatch() = default;
};

// Where the objects live. What is deleted keeps its memory, with something in it that answers for it, until
// the store goes.
class TreeDataStore
{
public:
    explicit TreeDataStore(TreeDatumWatch& watch);
    TreeDataStore(const TreeDataStore&) = delete;
    TreeDataStore& operator=(const TreeDataStore&) = delete;
    ~TreeDataStore();

    TreeDatum* Make(const std::wstring& tip, uint32_t reach);
    int LiveCount() const { return m_liveCount; }

private:
    friend class TreeDatum;
    struct Block;

    TreeDatumWatch& m_watch;
    std::vector<std::unique_ptr<Block>> m_blocks;
    int m_liveCount = 0;
};

class TreeDatum : public ItemDataABSTRACT
{
public:
    TreeDatum(TreeDataStore& store, const std::wstring& tip, uint32_t reach)
        : m_store(store), m_tip(tip), m_reach(reach)
    {
    }
    ~TreeDatum() override;
    TreeDatum(const TreeDatum&) = delete;
    TreeDatum& operator=(const TreeDatum&) = delete;

    CString GetTipText() const override;

    const std::wstring& Tip() const { return m_tip; }
    // What it does to the tree when it ends.
    uint32_t Reach() const { return m_reach; }

    HTREEITEM item = nullptr; // on which it hangs

    static void operator delete(void* memory);

private:
    TreeDataStore& m_store;
    std::wstring m_tip;
    uint32_t m_reach;
};

} // namespace randomplay
