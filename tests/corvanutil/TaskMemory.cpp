#include "TaskMemory.h"

#include <objbase.h>

#include <atomic>

namespace companiontest
{

namespace
{

// Lives as long as the program: the platform may hold it until blocks that it has seen are freed.
class Spy : public IMallocSpy
{
public:
    std::atomic<long> blocks = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid != IID_IUnknown && iid != IID_IMallocSpy) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IMallocSpy*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override
    {
        blocks += block != nullptr;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) override
    {
        blocks -= spied && block != nullptr;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock, BOOL) override
    {
        *newBlock = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int result) override { return result; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

Spy spy;

} // namespace

TaskMemory::TaskMemory()
{
    spy.blocks = 0;
    m_registered = SUCCEEDED(::CoRegisterMallocSpy(&spy));
}

TaskMemory::~TaskMemory()
{
    if (m_registered)
        ::CoRevokeMallocSpy();
}

long TaskMemory::Blocks() const
{
    return spy.blocks;
}

} // namespace companiontest
