#include "Sax.h"

#include <algorithm>
#include <regex>

#include "frame/Msxml.h"

namespace velmmenu
{

namespace
{

// Not every toolchain's import libraries have these.
constexpr CLSID SaxReader60 = {0x7c6e29bc, 0x8b8b, 0x4c3d, {0x85, 0x9e, 0xaf, 0x6c, 0xd1, 0x58, 0xbe, 0x0f}};
constexpr IID SaxReaderId = {0xa4f96ed0, 0xf829, 0x476e, {0x81, 0xc0, 0xcd, 0xc7, 0xbd, 0x2a, 0x08, 0x02}};
constexpr IID SaxContentHandlerId = {
    0x1545cdfa, 0x9e4e, 0x4497, {0xa8, 0xa4, 0x2b, 0xf7, 0xd0, 0x11, 0x2c, 0x44}};
constexpr IID SaxErrorHandlerId = {
    0xa60511c4, 0xccf5, 0x479e, {0x98, 0xa3, 0xdc, 0x8d, 0xc5, 0x45, 0xb7, 0xd0}};

SaxPlace PlaceOf(ISAXLocator* locator)
{
    int line = 0, column = 0;
    if (locator == nullptr || FAILED(locator->getLineNumber(&line)) ||
        FAILED(locator->getColumnNumber(&column)))
        return SaxPlace();
    return {static_cast<unsigned>(std::max(1, line)), static_cast<unsigned>(std::max(1, column))};
}

// A handler that lives on the stack of whoever parses.
template <class Interface, const IID& Id>
class Handler : public Interface
{
public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        *object = id == IID_IUnknown || id == Id ? this : nullptr;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

class ElementWatch : public Handler<ISAXContentHandler, SaxContentHandlerId>
{
public:
    explicit ElementWatch(const SaxHandlers& handlers) : m_handlers(handlers) {}

    STDMETHODIMP putDocumentLocator(ISAXLocator* locator) override
    {
        m_locator = locator;
        return S_OK;
    }
    STDMETHODIMP startElement(const wchar_t*, int, const wchar_t*, int, const wchar_t*, int,
                              ISAXAttributes*) override
    {
        if (m_handlers.onElement)
            m_handlers.onElement(PlaceOf(m_locator));
        return S_OK;
    }
    STDMETHODIMP startDocument() override { return S_OK; }
    STDMETHODIMP endDocument() override { return S_OK; }
    STDMETHODIMP startPrefixMapping(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
    STDMETHODIMP endPrefixMapping(const wchar_t*, int) override { return S_OK; }
    STDMETHODIMP endElement(const wchar_t*, int, const wchar_t*, int, const wchar_t*, int) override
    {
        return S_OK;
    }
    STDMETHODIMP characters(const wchar_t*, int) override { return S_OK; }
    STDMETHODIMP ignorableWhitespace(const wchar_t*, int) override { return S_OK; }
    STDMETHODIMP processingInstruction(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
    STDMETHODIMP skippedEntity(const wchar_t*, int) override { return S_OK; }

private:
    const SaxHandlers& m_handlers;
    ISAXLocator* m_locator = nullptr; // not counted: it lives as long as the parse
};

class ErrorWatch : public Handler<ISAXErrorHandler, SaxErrorHandlerId>
{
public:
    explicit ErrorWatch(const SaxHandlers& handlers) : m_handlers(handlers) {}

    bool HasError() const { return m_hasError; }

    STDMETHODIMP error(ISAXLocator* locator, const wchar_t* message, HRESULT) override
    {
        return Tell(locator, message);
    }
    STDMETHODIMP fatalError(ISAXLocator* locator, const wchar_t* message, HRESULT) override
    {
        return Tell(locator, message);
    }
    STDMETHODIMP ignorableWarning(ISAXLocator*, const wchar_t*, HRESULT) override { return S_OK; }

private:
    HRESULT Tell(ISAXLocator* locator, const wchar_t* message)
    {
        std::wstring reason = message != nullptr ? message : L"";
        while (!reason.empty() && iswspace(reason.back()))
            reason.pop_back();
        if (!m_hasError && m_handlers.onError)
            m_handlers.onError(PlaceOf(locator), reason);
        m_hasError = true;
        return S_OK;
    }

    const SaxHandlers& m_handlers;
    bool m_hasError = false;
};

// Handlers that take the places in a text behind `blanks` for those in the whole text.
SaxHandlers ShiftedBy(const std::wstring& blanks, const SaxHandlers& handlers)
{
    const auto lines = static_cast<unsigned>(std::count(blanks.begin(), blanks.end(), L'\n'));
    const auto columns = static_cast<unsigned>(blanks.size() - (blanks.rfind(L'\n') + 1));
    const auto shift = [lines, columns](SaxPlace place) {
        return SaxPlace{place.line + lines, place.column + (place.line == 1 ? columns : 0)};
    };
    SaxHandlers shifted;
    if (handlers.onElement)
        shifted.onElement = [&handlers, shift](SaxPlace place) { handlers.onElement(shift(place)); };
    if (handlers.onError)
        shifted.onError = [&handlers, shift](SaxPlace place, const std::wstring& reason) {
            handlers.onError(shift(place), reason);
        };
    return shifted;
}

// `text` with blanks in place of the encoding in its XML declaration, which is that of the file and not of
// the text.
std::wstring WithoutEncoding(std::wstring text)
{
    static const std::wregex declaration(L"^<\\?xml\\s[^>]*?(\\sencoding\\s*=\\s*(\"[^\"]*\"|'[^']*'))");
    const std::wstring beginning = text.substr(0, 400);
    std::wsmatch match;
    if (std::regex_search(beginning, match, declaration)) {
        for (auto i = match.position(1); i < match.position(1) + match.length(1); ++i) {
            wchar_t& c = text[static_cast<std::size_t>(i)];
            c = c == L'\r' || c == L'\n' ? c : L' ';
        }
    }
    return text;
}

} // namespace

bool ReadBySax(const std::wstring& text, const SaxHandlers& handlers)
{
    void* made = nullptr;
    _com_util::CheckError(::CoCreateInstance(SaxReader60, nullptr, CLSCTX_INPROC_SERVER, SaxReaderId, &made));
    const _com_ptr_t<_com_IIID<ISAXXMLReader, &SaxReaderId>> reader(static_cast<ISAXXMLReader*>(made), false);
    // The reader takes no blanks before the first mark, as the document model does.
    const std::size_t blanks = std::min(text.find_first_not_of(L" \t\r\n"), text.size());
    const SaxHandlers shifted = ShiftedBy(text.substr(0, blanks), handlers);
    ElementWatch elements(shifted);
    ErrorWatch errors(shifted);
    _com_util::CheckError(reader->putContentHandler(&elements));
    _com_util::CheckError(reader->putErrorHandler(&errors));
    const HRESULT result = reader->parse(_variant_t(WithoutEncoding(text.substr(blanks)).c_str()));
    reader->putContentHandler(nullptr);
    reader->putErrorHandler(nullptr);
    return SUCCEEDED(result) && !errors.HasError();
}

} // namespace velmmenu
