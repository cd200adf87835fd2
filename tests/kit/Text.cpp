#include "kit/Text.h"

#include <cstdio>

namespace testkit
{

std::string Utf8(std::wstring_view text)
{
    if (text.empty()) {
        return {};
    }
    const int length = static_cast<int>(text.size());
    const int need = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(need), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), need, nullptr, nullptr);
    return result;
}

std::wstring Wide(std::string_view utf8)
{
    if (utf8.empty()) {
        return {};
    }
    const int length = static_cast<int>(utf8.size());
    const int need = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
    std::wstring result(static_cast<size_t>(need), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, result.data(), need);
    return result;
}

std::string Quoted(std::wstring_view text)
{
    std::string result = "\"";
    for (const char c : Utf8(text)) {
        switch (c) {
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\t':
            result += "\\t";
            break;
        case '"':
            result += "\\\"";
            break;
        case '\\':
            result += "\\\\";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char code[8];
                std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned>(c));
                result += code;
            } else {
                result += c;
            }
        }
    }
    return result + "\"";
}

} // namespace testkit
