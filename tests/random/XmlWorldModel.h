// A small tree of elements, and the expressions that find them: what a document must hold.
#pragma once

#include <VelmUtil22.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace randomplay
{

// An element, or the document itself, which has no name.
struct Element
{
    std::wstring name;
    std::vector<std::pair<std::wstring, std::wstring>> attributes;
    std::wstring text; // before the children
    Element* parent = nullptr;
    int owner = 0; // the number of the document that made it, or of none
    std::vector<std::shared_ptr<Element>> children;

    bool IsDocument() const { return name.empty(); }
    const std::wstring* Find(const std::wstring& attribute) const;
    void Set(const std::wstring& attribute, const std::wstring& value);
    // The child of that name, counted from 0; null if there is none.
    Element* Child(const std::wstring& childName, size_t index = 0) const;
    Element& Append(std::shared_ptr<Element> child);
    std::shared_ptr<Element> Remove(const Element* child);
};

using ElementPtr = std::shared_ptr<Element>;

// In document order, without the one that they are below.
std::vector<Element*> ElementsBelow(const Element& element);

// Makes it the document of that number, with all that it has.
void Number(Element& document, int number);

// An own document with the same content.
ElementPtr CopyOf(const Element& element);

// A document by chance: names, attributes and texts of a small choice.
ElementPtr SomeDocument(uint32_t number);
std::wstring SomeName(uint32_t number);
std::wstring SomeAttribute(uint32_t number);
std::wstring SomeValue(uint32_t number);

// As a file in UTF-8 spells it.
std::string Spelled(const Element& element);

// The two trees as texts that can be compared.
std::wstring Shown(const Element& element);
std::wstring Shown(const IXMLDOMNodePtr& node);

// The only expression that finds this element in its document, by the number of its like among its siblings.
std::wstring PathOf(const Element& element);

// An expression with what it finds in a document.
struct Selection
{
    std::wstring xpath;
    std::vector<Element*> found;
};
Selection SomeSelection(const Element* document, uint32_t kind, uint32_t which);

} // namespace randomplay
