#include "KernelHandles.h"

#include "PlatformFunction.h"

#include <winternl.h>

#include <vector>

namespace lifecycle
{
namespace
{

// What NtQuerySystemInformation tells of a handle of any process.
struct TableEntry
{
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
static_assert(sizeof(TableEntry) == 40);

struct TableHead
{
    ULONG_PTR count;
    ULONG_PTR reserved;
};

long long CountInTable()
{
    constexpr auto extendedHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    constexpr NTSTATUS lengthMismatch = static_cast<NTSTATUS>(0xC0000004);
    static const auto query =
        PlatformFunction<decltype(::NtQuerySystemInformation)>("ntdll.dll", "NtQuerySystemInformation");
    static std::vector<ULONG_PTR> buffer(1 << 16); // kept, so that counting allocates nothing
    ULONG needed = 0;
    NTSTATUS status = lengthMismatch;
    while (status == lengthMismatch) {
        status = query(extendedHandles, buffer.data(), static_cast<ULONG>(buffer.size() * sizeof(ULONG_PTR)),
                       &needed);
        if (status == lengthMismatch)
            buffer.resize(buffer.size() * 2);
    }
    if (status < 0)
        return -1;
    const auto* const head = reinterpret_cast<const TableHead*>(buffer.data());
    const auto* const entries = reinterpret_cast<const TableEntry*>(head + 1);
    long long count = 0;
    for (ULONG_PTR i = 0; i < head->count; ++i)
        count += entries[i].process == ::GetCurrentProcessId();
    return count;
}

} // namespace

long long CountKernelHandles()
{
    DWORD count = 0;
    if (::GetProcessHandleCount(::GetCurrentProcess(), &count) && count != 0)
        return count;
    return CountInTable();
}

} // namespace lifecycle
