#include "kit/HeapChecks.h"

#include "kit/CurrentTest.h"
#include "kit/Depth.h"
#include "kit/Endings.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <iterator>
#include <new>

namespace testkit
{

#ifdef _MSC_VER

GuardHeap* ActiveGuardHeap()
{
    return nullptr;
}

void StartGuardHeap() {}

std::string DescribeGuardedAddress(uintptr_t)
{
    return {};
}

void CheckHeaps() {}

void PrintGuardHeapFigures() {}

#else

namespace
{

GuardHeap* g_heap = nullptr;

bool IsAskedFor()
{
    wchar_t value[8] = L"";
    if (GetEnvironmentVariableW(L"VELM_GUARD_HEAP", value, std::size(value)) == 0) {
#ifdef VELM_CHECKED
        return true;
#else
        return false;
#endif
    }
    return std::wcscmp(value, L"0") != 0;
}

const char* NameOf(HeapMisuse::Kind kind)
{
    switch (kind) {
    case HeapMisuse::Kind::Foreign:
        return "call with what is no block of the heap, or a damaged one";
    case HeapMisuse::Kind::FreedTwice:
        return "call with a block that was freed before";
    case HeapMisuse::Kind::NotTheStart:
        return "call with an address that is not the start of the block";
    case HeapMisuse::Kind::Forgotten:
        return "call with an address in a block that was freed long ago";
    case HeapMisuse::Kind::OtherMaker:
        return "block of malloc given to _aligned_free or of _aligned_malloc given to free";
    case HeapMisuse::Kind::WrittenBehind:
        return "write behind the end of a block";
    case HeapMisuse::Kind::WrittenBefore:
        return "write before the start of a block";
    case HeapMisuse::Kind::WrittenAfterFree:
        return "write to a block after it was freed";
    case HeapMisuse::Kind::None:
        break;
    }
    return "no misuse";
}

std::string Hex(uintptr_t number)
{
    char text[24];
    std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(number));
    return text;
}

std::string Bytes(size_t count)
{
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string Callers(const StackFrames& frames)
{
    return DescribeCallers(frames, "HeapTracker.cpp:");
}

std::string DescribeBlock(const HeapMisuse& misuse)
{
    std::string text = Hex(misuse.address) + " is ";
    if (misuse.address < misuse.block) {
        text += Bytes(misuse.block - misuse.address) + " before";
    } else if (misuse.address < misuse.block + misuse.size) {
        text += Bytes(misuse.address - misuse.block) + " into";
    } else {
        text += Bytes(misuse.address - misuse.block - misuse.size) + " behind the end of";
    }
    text += " a block of " + Bytes(misuse.size) + ", made by\n" + Callers(misuse.madeBy);
    if (misuse.freedBy[0]) {
        text += "freed by\n" + Callers(misuse.freedBy);
    }
    return text;
}

// The first of the platform's heaps that says it is damaged, counted from 1; 0 if none does.
unsigned FindDamagedPlatformHeap()
{
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(std::size(heaps), heaps), std::size(heaps));
    for (DWORD i = 0; i < count; ++i) {
        if (!HeapValidate(heaps[i], 0, nullptr)) {
            return i + 1;
        }
    }
    return 0;
}

} // namespace

GuardHeap* ActiveGuardHeap()
{
    return g_heap;
}

void StartGuardHeap()
{
    if (!g_heap && IsAskedFor()) {
        // Never destroyed: blocks are freed until the very end of the process.
        g_heap = new (HeapAlloc(BlockTableHeap(), 0, sizeof(GuardHeap))) GuardHeap;
    }
}

void StopForMisuse(const HeapMisuse& misuse, const StackFrames& call)
{
    WriteLastWords("\nHEAP MISUSE in test " + std::string(CurrentTest()) + ": " + NameOf(misuse.kind) + " (" +
                   Hex(misuse.address) + ")\n");
    if (call[0]) {
        WriteLastWords(Callers(call));
    }
    if (misuse.block) {
        WriteLastWords(DescribeBlock(misuse));
    }
    EndProcess(ExitHeapMisuse);
}

std::string DescribeGuardedAddress(uintptr_t address)
{
    if (!g_heap) {
        return {};
    }
    const HeapMisuse place = g_heap->Locate(address);
    switch (place.kind) {
    case HeapMisuse::Kind::None:
        return DescribeBlock(place);
    case HeapMisuse::Kind::Forgotten:
        return Hex(address) + " belongs to no block, or to one that was freed long ago\n";
    default:
        return {};
    }
}

void CheckHeaps()
{
    if (!g_heap) {
        return;
    }
    if (const HeapMisuse damage = g_heap->Check(); damage.kind != HeapMisuse::Kind::None) {
        StopForMisuse(damage, {});
    }
    if (const unsigned heap = FindDamagedPlatformHeap(); heap != 0) {
        WriteLastWords("\nHEAP DAMAGED after test " + std::string(CurrentTest()) + ": number " +
                       std::to_string(heap) + " of the platform's heaps\n");
        EndProcess(ExitHeapMisuse); // what uses it next may never come back
    }
}

void PrintGuardHeapFigures()
{
    if (!g_heap) {
        return;
    }
    const GuardHeapCounts counts = g_heap->Counts();
    const unsigned long long all = counts.guarded + counts.shared + counts.refused;
    if (all == 0) {
        return;
    }
    char text[160];
    std::snprintf(text, sizeof text, "%.3f %% of %llu (%llu share pages, %llu elsewhere)",
                  100.0 * static_cast<double>(counts.guarded) / static_cast<double>(all), all, counts.shared,
                  counts.refused);
    Figure("heap blocks against a guard page", std::string(text));
}

#endif

} // namespace testkit
