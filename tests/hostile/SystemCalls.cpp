#include "SystemCalls.h"

#include "kit/ImportTable.h"

#include <winternl.h>

#include <array>

namespace hostile
{

namespace
{

using CreateFileCall = NTSTATUS(NTAPI*)(PHANDLE, ACCESS_MASK, POBJECT_ATTRIBUTES, PIO_STATUS_BLOCK,
                                        PLARGE_INTEGER, ULONG, ULONG, ULONG, ULONG, PVOID, ULONG);
using OpenFileCall = NTSTATUS(NTAPI*)(PHANDLE, ACCESS_MASK, POBJECT_ATTRIBUTES, PIO_STATUS_BLOCK, ULONG,
                                      ULONG);
using LoadModuleCall = NTSTATUS(NTAPI*)(PCWSTR, void*, const UNICODE_STRING*, HMODULE*);
using StartProgramCall = NTSTATUS(NTAPI*)(PHANDLE, PHANDLE, ACCESS_MASK, ACCESS_MASK, POBJECT_ATTRIBUTES,
                                          POBJECT_ATTRIBUTES, ULONG, ULONG, void*, void*, void*);

template <class Call>
Call Genuine(const char* name)
{
    return reinterpret_cast<Call>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

std::wstring TextOf(const UNICODE_STRING* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text->Buffer, text->Length / sizeof(wchar_t));
}

} // namespace

struct Replacements
{
    static NTSTATUS NTAPI CreateFile(PHANDLE file, ACCESS_MASK access, POBJECT_ATTRIBUTES attributes,
                                     PIO_STATUS_BLOCK status, PLARGE_INTEGER size, ULONG flags, ULONG sharing,
                                     ULONG disposition, ULONG options, PVOID extra, ULONG extraSize)
    {
        SystemCalls::s_opened.push_back(TextOf(attributes->ObjectName));
        return Genuine<CreateFileCall>("NtCreateFile")(file, access, attributes, status, size, flags, sharing,
                                                       disposition, options, extra, extraSize);
    }

    static NTSTATUS NTAPI OpenFile(PHANDLE file, ACCESS_MASK access, POBJECT_ATTRIBUTES attributes,
                                   PIO_STATUS_BLOCK status, ULONG sharing, ULONG options)
    {
        SystemCalls::s_opened.push_back(TextOf(attributes->ObjectName));
        return Genuine<OpenFileCall>("NtOpenFile")(file, access, attributes, status, sharing, options);
    }

    static NTSTATUS NTAPI LoadModule(PCWSTR path, void* flags, const UNICODE_STRING* name, HMODULE* module)
    {
        SystemCalls::s_loaded.push_back(TextOf(name));
        return Genuine<LoadModuleCall>("LdrLoadDll")(path, flags, name, module);
    }

    static NTSTATUS NTAPI StartProgram(PHANDLE process, PHANDLE thread, ACCESS_MASK processAccess,
                                       ACCESS_MASK threadAccess, POBJECT_ATTRIBUTES processAttributes,
                                       POBJECT_ATTRIBUTES threadAttributes, ULONG processFlags,
                                       ULONG threadFlags, void* parameters, void* info, void* list)
    {
        ++SystemCalls::s_started;
        return Genuine<StartProgramCall>("NtCreateUserProcess")(
            process, thread, processAccess, threadAccess, processAttributes, threadAttributes, processFlags,
            threadFlags, parameters, info, list);
    }

    // Puts them in, or the genuine ones back; whether all changed that a file or a module can pass through.
    static bool Exchange(bool isIn)
    {
        const std::array calls = {
            testkit::ImportReplacement{"ntdll.dll", "NtCreateFile",
                                       Address(isIn, "NtCreateFile", &CreateFile)},
            testkit::ImportReplacement{"ntdll.dll", "NtOpenFile", Address(isIn, "NtOpenFile", &OpenFile)},
            testkit::ImportReplacement{"ntdll.dll", "LdrLoadDll", Address(isIn, "LdrLoadDll", &LoadModule)},
            testkit::ImportReplacement{"ntdll.dll", "NtCreateUserProcess",
                                       Address(isIn, "NtCreateUserProcess", &StartProgram)}};
        bool changed = true;
        const HMODULE base = GetModuleHandleW(L"kernelbase.dll");
        for (const testkit::ImportReplacement& call : calls)
            changed = base != nullptr && testkit::ReplaceImports(base, {&call, 1}) && changed;
        // The library of sockets opens its devices itself.
        if (const HMODULE sockets = GetModuleHandleW(L"ws2_32.dll"))
            testkit::ReplaceImports(sockets, calls);
        return changed;
    }

private:
    template <class Function>
    static void* Address(bool isIn, const char* name, Function* function)
    {
        return isIn ? reinterpret_cast<void*>(function) : Genuine<void*>(name);
    }
};

SystemCalls::SystemCalls() : m_isWatching(Replacements::Exchange(true)) {}

SystemCalls::~SystemCalls()
{
    Replacements::Exchange(false);
    Clear();
}

void SystemCalls::Clear()
{
    std::vector<std::wstring>().swap(s_opened);
    std::vector<std::wstring>().swap(s_loaded);
    s_started = 0;
}

} // namespace hostile
