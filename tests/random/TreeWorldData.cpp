#include "TreeWorldData.h"

#include <new>

namespace randomplay
{
namespace
{

// What lies where an object was.
class Remains : public ItemDataABSTRACT
{
public:
    explicit Remains(TreeDatumWatch& watch) : m_watch(watch) {}
    ~Remains() override { m_watch.OnDeadUse(); }
    CString GetTipText() const override
    {
        m_watch.OnDeadUse();
        return CString();
    }

    static void* operator new(size_t, void* place) { return place; }
    static void operator delete(void*) {}
    static void operator delete(void*, void*) {}

private:
    TreeDatumWatch& m_watch;
};

static_assert(sizeof(Remains) <= sizeof(TreeDatum));

} // namespace

struct TreeDataStore::Block
{
    TreeDatumWatch* watch;
    alignas(TreeDatum) std::byte memory[sizeof(TreeDatum)];
};

TreeDataStore::TreeDataStore(TreeDatumWatch& watch) : m_watch(watch) {}

TreeDataStore::~TreeDataStore() = default;

TreeDatum* TreeDataStore::Make(const std::wstring& tip, uint32_t reach)
{
    m_blocks.push_back(std::make_unique<Block>());
    m_blocks.back()->watch = &m_watch;
    ++m_liveCount;
    return ::new (m_blocks.back()->memory) TreeDatum(*this, tip, reach);
}

TreeDatum::~TreeDatum()
{
    m_store.m_watch.OnDeleted(*this);
    --m_store.m_liveCount;
}

CString TreeDatum::GetTipText() const
{
    const CString tip = m_tip.c_str();
    m_store.m_watch.OnTipAsked();
    return tip;
}

void TreeDatum::operator delete(void* memory)
{
    auto* const bytes = static_cast<std::byte*>(memory) - offsetof(TreeDataStore::Block, memory);
    new (memory) Remains(*reinterpret_cast<TreeDataStore::Block*>(bytes)->watch);
}

} // namespace randomplay
