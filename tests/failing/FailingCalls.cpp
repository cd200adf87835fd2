#include "FailingCalls.h"

#include "kit/HeapTracker.h"
#include "kit/ImportTable.h"

#include <afxwin.h>
#include <oleauto.h>

#ifdef _MSC_VER
#include <intrin.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <span>
#include <type_traits>

namespace failingtest
{
namespace
{

struct Plan
{
    Resource resource = Resource::Memory;
    DWORD thread = 0; // 0: none
    unsigned failing = 0;
    unsigned calls[ResourceCount] = {};
    bool hasFailed = false;
};
Plan g_plan;

// Counts a call; whether it is the one to fail.
bool MustFail(Resource resource)
{
    if (g_plan.thread != GetCurrentThreadId())
        return false;
    const unsigned call = ++g_plan.calls[static_cast<size_t>(resource)];
    if (resource != g_plan.resource || call != g_plan.failing)
        return false;
    g_plan.hasFailed = true;
    return true;
}

struct AddressRange
{
    const char* begin = nullptr;
    const char* end = nullptr;

    bool Contains(const void* address) const
    {
        return begin <= static_cast<const char*>(address) && static_cast<const char*>(address) < end;
    }
};

AddressRange RangeOf(HMODULE module)
{
    if (module == nullptr)
        return {};
    const auto base = reinterpret_cast<const char*>(module);
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    return {base, base + headers.OptionalHeader.SizeOfImage};
}

// Whether an allocation, of which `caller` is the return address, is none that is to fail: the test program,
// or the standard library on its behalf or on the framework's, asks for it.
bool IsLeftAlone(const void* caller)
{
    static const AddressRange program = RangeOf(GetModuleHandleW(nullptr));
    static const AddressRange library = RangeOf(GetModuleHandleA("libstdc++-6.dll"));
    static const AddressRange framework = RangeOf(GetModuleHandleA("VelmAfx22.dll"));
    if (!library.Contains(caller))
        return program.Contains(caller);
    void* frames[32] = {};
    RtlCaptureStackBackTrace(0, std::size(frames), frames, nullptr);
    const auto own = std::find(std::begin(frames), std::end(frames), caller);
    const auto asking =
        std::find_if(own, std::end(frames), [](const void* frame) { return !library.Contains(frame); });
    return asking == std::end(frames) || program.Contains(*asking) || framework.Contains(*asking);
}

bool MustFailToAllocate(const void* caller)
{
    return g_plan.thread == GetCurrentThreadId() && !IsLeftAlone(caller) && MustFail(Resource::Memory);
}

#ifdef _MSC_VER
#define CALLER _ReturnAddress()
#else
#define CALLER __builtin_return_address(0)
#endif

// The program's own import of each is the tracked one.

void* Malloc(size_t size)
{
    return MustFailToAllocate(CALLER) ? nullptr : std::malloc(size);
}

void* Calloc(size_t count, size_t size)
{
    return MustFailToAllocate(CALLER) ? nullptr : std::calloc(count, size);
}

void* Realloc(void* old, size_t size)
{
    return size != 0 && MustFailToAllocate(CALLER) ? nullptr : std::realloc(old, size);
}

void* AlignedMalloc(size_t size, size_t alignment)
{
    return MustFailToAllocate(CALLER) ? nullptr : _aligned_malloc(size, alignment);
}

wchar_t* Wcsdup(const wchar_t* text)
{
    return MustFailToAllocate(CALLER) ? nullptr : _wcsdup(text);
}

// Stands for one function: the type of `Tag` tells them apart.
template <Resource resource, class Tag, class Result, class... Arguments>
struct Failing
{
    inline static Result(WINAPI* original)(Arguments...) = nullptr;

    static Result WINAPI Call(Arguments... arguments)
    {
        if (!MustFail(resource))
            return original(arguments...);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        if constexpr (std::is_same_v<Result, HRESULT>)
            return E_OUTOFMEMORY;
        else
            return Result{};
    }
};

struct Entry
{
    Resource resource;
    testkit::ImportReplacement replacement;
    void* original; // null: the heap tracker's
};

template <Resource resource, class Tag, class Result, class... Arguments>
Entry EntryOf(const char* library, const char* name, Result(WINAPI*)(Arguments...))
{
    using Function = Failing<resource, Tag, Result, Arguments...>;
    const auto original = reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name));
    Function::original = reinterpret_cast<decltype(Function::original)>(original);
    return {resource, {library, name, reinterpret_cast<void*>(&Function::Call)}, original};
}

template <class Function>
Entry AllocatorEntry(const char* name, Function* function)
{
    return {Resource::Memory, {"msvcrt.dll", name, reinterpret_cast<void*>(function)}, nullptr};
}

#define ENTRY(resource, library, function)                                                                   \
    EntryOf<Resource::resource, struct Tag##function>(library ".dll", #function, &::function)

std::span<const Entry> Entries()
{
    static const Entry entries[] = {
        AllocatorEntry("malloc", &Malloc),
        AllocatorEntry("calloc", &Calloc),
        AllocatorEntry("realloc", &Realloc),
        AllocatorEntry("_aligned_malloc", &AlignedMalloc),
        AllocatorEntry("_wcsdup", &Wcsdup),
        ENTRY(Texts, "oleaut32", SysAllocString),
        ENTRY(Texts, "oleaut32", SysAllocStringLen),
        ENTRY(Documents, "ole32", CoCreateInstance),
        ENTRY(Windows, "user32", CreateWindowExW),
        ENTRY(Windows, "user32", CreateDialogIndirectParamW),
        ENTRY(Windows, "user32", SetWindowsHookExW),
        ENTRY(Gdi, "user32", GetDC),
        ENTRY(Gdi, "user32", GetWindowDC),
        ENTRY(Gdi, "user32", BeginPaint),
        ENTRY(Gdi, "gdi32", CreateBitmap),
        ENTRY(Gdi, "gdi32", CreateCompatibleBitmap),
        ENTRY(Gdi, "gdi32", CreateCompatibleDC),
        ENTRY(Gdi, "gdi32", CreateFontIndirectW),
        ENTRY(Gdi, "gdi32", CreateFontW),
        ENTRY(Gdi, "gdi32", CreatePen),
        ENTRY(Gdi, "gdi32", CreateSolidBrush),
        ENTRY(Gdi, "gdi32", SaveDC),
        ENTRY(Timers, "user32", SetTimer),
    };
    return entries;
}

bool g_isReplaced[ResourceCount] = {};

void Replace(HMODULE module)
{
    if (module == GetModuleHandleW(nullptr))
        return;
    for (const Entry& entry : Entries()) {
        if (testkit::ReplaceImports(module, {&entry.replacement, 1}))
            g_isReplaced[static_cast<size_t>(entry.resource)] = true;
    }
}

void PutBack(HMODULE module)
{
    for (const Entry& entry : Entries()) {
        if (entry.original == nullptr)
            continue;
        testkit::ImportReplacement back = entry.replacement;
        back.function = entry.original;
        testkit::ReplaceImports(module, {&back, 1});
    }
}

} // namespace

FailingCalls::FailingCalls()
{
    testkit::ForEachLoadedModuleUnderTest(&Replace);
}

FailingCalls::~FailingCalls()
{
    Stop();
    testkit::ForEachLoadedModuleUnderTest(&PutBack);
    testkit::TrackNewModules();
}

bool FailingCalls::IsPossible(Resource resource)
{
    return g_isReplaced[static_cast<size_t>(resource)];
}

void FailingCalls::FailAt(Resource resource, unsigned n)
{
    g_plan = {};
    g_plan.resource = resource;
    g_plan.failing = n;
    g_plan.thread = GetCurrentThreadId();
}

void FailingCalls::Stop()
{
    g_plan.thread = 0;
}

unsigned FailingCalls::Calls(Resource resource)
{
    return g_plan.calls[static_cast<size_t>(resource)];
}

bool FailingCalls::HasFailed()
{
    return g_plan.hasFailed;
}

} // namespace failingtest
