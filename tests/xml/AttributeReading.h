// What the tests of reading attributes share.
#pragma once

#include "FailingNodes.h"
#include "XmlNodes.h"

#include <stdexcept>

inline constexpr HRESULT SomeFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x1234);

// Nodes that are no elements, with the expressions that find them.
inline const char Kinds[] = "<r k='v'>text<!--c--><?pi k='v'?></r>";
inline const wchar_t* const NoElements[] = {L"/", L"/r/@k", L"/r/text()", L"/r/comment()",
                                            L"/r/processing-instruction()"};

// Ways in which a call may fail, apart from a result code.
inline const FailingNodes::Action Exceptions[] = {
    []() -> HRESULT { throw std::runtime_error("model"); },
    []() -> HRESULT { throw std::bad_alloc(); },
    []() -> HRESULT { AfxThrowMemoryException(); },
    []() -> HRESULT { AfxThrowFileException(CFileException::genericException); },
    []() -> HRESULT { throw 1; },
};

// Texts of attributes as they stand in a file, and what they are.
struct Spelling
{
    const char* file;
    const wchar_t* value;
};
inline const Spelling Spellings[] = {
    {"plain", L"plain"},
    {"", L""},
    {"a  b", L"a  b"},
    {"a\tb\nc\r\nd", L"a b c d"},
    {"a&#9;b&#10;c&#13;d", L"a\tb\nc\rd"},
    {"&lt;&gt;&amp;&quot;&apos;", L"<>&\"'"},
    {"&#65;&#x42;", L"AB"},
    {"\xC3\xA4\xE2\x82\xAC\xE6\xBC\xA2", L"\u00E4\u20AC\u6F22"},
    {"\xF0\x9F\x98\x80&#x1F601;", L"\U0001F600\U0001F601"},
    {"\xC2\xA0x\xC2\xA0", L"\u00A0x\u00A0"},
};
