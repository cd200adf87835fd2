// A description as the library sees it, with the line of every element.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/Msxml.h"

namespace velmmenu
{

struct Attribute
{
    std::wstring name;
    unsigned line = 0;
};

struct Element
{
    std::wstring name; // without a prefix
    bool isInNamespace = false;
    unsigned line = 0;
    std::vector<Attribute> attributes; // without those of a namespace and without its declarations
    std::vector<Element*> children;    // elements only
    Element* parent = nullptr;
    long childNodes = 0; // of every kind
    IXMLDOMNodePtr node;

    // Elements below it, at any depth.
    std::size_t CountBelow() const;
    bool Has(const wchar_t* attribute) const;
};

// A holder with what the library reads from it, and the entries of all holders of its kind.
struct Holders
{
    std::vector<Element*> holders; // the first one names the menu or toolbar
    std::vector<Element*> entries; // the top-level ones, in document order
};

class Description
{
public:
    // Loads the text as the library does. Throws Failure, "LINE: reason", when it is not well-formed.
    explicit Description(const std::wstring& text);

    // Null when a document type declaration hides the places of all elements.
    const Element* Root() const { return m_elements.empty() ? nullptr : m_elements.front().get(); }
    const std::optional<unsigned>& DocumentTypeLine() const { return m_documentType; }
    const Holders& Menus() const { return m_menus; }
    const Holders& ToolBars() const { return m_toolBars; }

private:
    void AddElements(IXMLDOMNode* node, Element* parent);
    void Place(const std::wstring& text);
    std::vector<Element*> Select(const wchar_t* xpath) const;

    IXMLDOMDocument2Ptr m_document;
    std::vector<std::unique_ptr<Element>> m_elements; // in document order
    std::optional<unsigned> m_documentType;
    Holders m_menus;
    Holders m_toolBars;
};

} // namespace velmmenu
