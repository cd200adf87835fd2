#include "kit/Stack.h"

#include "kit/Text.h"

#include <dbghelp.h>

#include <cstdio>
#include <cwchar>
#include <mutex>

namespace testkit
{
namespace
{

std::mutex g_dbghelp; // its functions are for one thread at a time

void LoadSymbols()
{
    static bool loaded = false;
    if (!loaded) {
        SymSetOptions(SYMOPT_LOAD_LINES | SYMOPT_UNDNAME | SYMOPT_DEFERRED_LOADS |
                      SYMOPT_FAIL_CRITICAL_ERRORS);
        loaded = SymInitializeW(GetCurrentProcess(), nullptr, TRUE) != FALSE;
    } else {
        SymRefreshModuleList(GetCurrentProcess());
    }
}

std::string ModuleOf(const void* address, DWORD64& offset)
{
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"";
    if (!address ||
        !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<LPCWSTR>(address), &module) ||
        !GetModuleFileNameW(module, path, MAX_PATH))
    {
        offset = reinterpret_cast<DWORD64>(address);
        return "?";
    }
    offset = reinterpret_cast<DWORD64>(address) - reinterpret_cast<DWORD64>(module);
    const wchar_t* name = std::wcsrchr(path, L'\\');
    return Utf8(name ? name + 1 : path);
}

std::string DescribeFrame(const void* address, bool isReturn)
{
    const auto lookUp = reinterpret_cast<DWORD64>(address) - (isReturn ? 1 : 0);
    constexpr ULONG nameLength = 1000;
    alignas(SYMBOL_INFOW) char storage[sizeof(SYMBOL_INFOW) + nameLength * sizeof(wchar_t)] = {};
    auto& symbol = *reinterpret_cast<SYMBOL_INFOW*>(storage);
    symbol.SizeOfStruct = sizeof(SYMBOL_INFOW);
    symbol.MaxNameLen = nameLength;
    IMAGEHLP_LINEW64 line{};
    line.SizeOfStruct = sizeof line;
    DWORD64 offset = 0;
    DWORD column = 0;

    DWORD64 inModule = 0;
    std::string text = "  ";
    text += ModuleOf(address, inModule);
    char number[40];
    if (SymFromAddrW(GetCurrentProcess(), lookUp, &offset, &symbol)) {
        std::snprintf(number, sizeof number, "+0x%llx", static_cast<unsigned long long>(offset));
        text += "!";
        text += Utf8(symbol.Name);
        text += number;
    } else {
        std::snprintf(number, sizeof number, "+0x%llx", static_cast<unsigned long long>(inModule));
        text += number;
    }
    if (SymGetLineFromAddrW64(GetCurrentProcess(), lookUp, &column, &line)) {
        text += "  ";
        text += Utf8(line.FileName);
        text += ":";
        text += std::to_string(line.LineNumber);
    }
    return text + "\n";
}

} // namespace

std::vector<void*> CaptureStack(unsigned skip, unsigned most)
{
    std::vector<void*> frames(most);
    frames.resize(RtlCaptureStackBackTrace(skip + 1, most, frames.data(), nullptr));
    return frames;
}

size_t WalkStack(CONTEXT context, std::span<void*> frames, std::span<void**> places)
{
    // The unwinder is used without the debugging library: that one allocates, and the thread that is
    // looked at may hold the heap's lock.
    size_t count = 0;
    while (count < frames.size() && (context.Rip || count == 0)) {
        if (count < places.size()) {
            places[count] = count == 0 ? nullptr : reinterpret_cast<void**>(context.Rsp) - 1;
        }
        frames[count++] = reinterpret_cast<void*>(context.Rip);
        const DWORD64 before = context.Rsp;
        DWORD64 base = 0;
        auto* function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
        if (function) {
            void* handlerData = nullptr;
            DWORD64 establisher = 0;
            RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handlerData,
                             &establisher, nullptr);
        } else if (base || count == 1) {
            // A function without unwind data keeps its return address on top of the stack. So does a
            // call through a bad pointer, whose "function" lies in no module.
            context.Rip = *reinterpret_cast<DWORD64*>(context.Rsp);
            context.Rsp += sizeof(DWORD64);
        } else {
            break;
        }
        if (context.Rsp <= before) {
            break;
        }
    }
    return count;
}

std::string DescribeStack(std::span<void* const> frames, bool firstIsReturn)
{
    std::lock_guard lock(g_dbghelp);
    LoadSymbols();
    std::string text;
    bool isReturn = firstIsReturn;
    for (const void* frame : frames) {
        if (!frame && !text.empty()) {
            break; // the rest of an array that is larger than the stack; a call of null is the first
        }
        text += DescribeFrame(frame, isReturn && frame);
        isReturn = true;
    }
    return text;
}

std::string DescribeCallers(const StackFrames& frames, std::string_view ownSource)
{
    const std::string stack = DescribeStack(frames);
    size_t start = 0;
    for (size_t end = 0; (end = stack.find('\n', start)) != std::string::npos; start = end + 1) {
        const std::string_view line = std::string_view(stack).substr(start, end - start);
        if (line.find(ownSource) == std::string_view::npos) {
            break;
        }
    }
    return stack.substr(start);
}

} // namespace testkit
