// MSXML 6's SAX reader, which tells lines and reasons where the document model does not.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velmmenu
{

// A place in the text as the reader tells it: both count from 1. Columns are bytes of UTF-8 in some versions
// of the reader, so they are good for ASCII only; that of an element is the end of its start tag.
struct SaxPlace
{
    unsigned line = 1;
    unsigned column = 1;
};

struct SaxHandlers
{
    std::function<void(SaxPlace)> onElement;                           // a start tag
    std::function<void(SaxPlace, const std::wstring& reason)> onError; // the first error
};

// Reads the text, with what it declares of its encoding left out, and calls the handlers. Returns false when
// it is not well-formed. Throws _com_error when there is no reader.
bool ReadBySax(const std::wstring& text, const SaxHandlers& handlers);

} // namespace velmmenu
