#include "FailingMemory.h"

#ifdef _MSC_VER

#include <crtdbg.h>

namespace hosttest
{

#ifdef _DEBUG

namespace
{

_CRT_ALLOC_HOOK g_before = nullptr;

int FailToAllocate(int kind, void*, size_t, int block, long, const unsigned char*, int)
{
    return block == _CRT_BLOCK || kind == _HOOK_FREE;
}

} // namespace

FailingMemory::FailingMemory()
{
    g_before = _CrtSetAllocHook(FailToAllocate);
}

FailingMemory::~FailingMemory()
{
    _CrtSetAllocHook(g_before);
}

bool FailingMemory::IsPossible()
{
    return true;
}

#else

FailingMemory::FailingMemory() = default;
FailingMemory::~FailingMemory() = default;

bool FailingMemory::IsPossible()
{
    return false;
}

#endif

} // namespace hosttest

#else

#include <new>

#include "kit/ImportTable.h"

namespace hosttest
{

namespace
{

const char kLibrary[] = "libstdc++-6.dll";
const char kOperatorNew[] = "_Znwy";

void* FailToAllocate(size_t)
{
    throw std::bad_alloc();
}

void SetOperatorNew(void* function)
{
    const testkit::ImportReplacement replacement[] = {{kLibrary, kOperatorNew, function}};
    testkit::ReplaceImports(GetModuleHandleW(nullptr), replacement);
}

void* GenuineOperatorNew()
{
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(kLibrary), kOperatorNew));
}

} // namespace

FailingMemory::FailingMemory()
{
    SetOperatorNew(reinterpret_cast<void*>(FailToAllocate));
}

FailingMemory::~FailingMemory()
{
    SetOperatorNew(GenuineOperatorNew());
}

bool FailingMemory::IsPossible()
{
    return GenuineOperatorNew() != nullptr;
}

} // namespace hosttest

#endif
