#include "XmlWorldModel.h"

#include <algorithm>
#include <iterator>

#include "RandomPlay.h"
#include "kit/Text.h"

namespace randomplay
{
namespace
{

std::string Escaped(const std::wstring& text)
{
    std::string escaped;
    for (const char c : testkit::Utf8(text)) {
        switch (c) {
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '&':
            escaped += "&amp;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

void Fill(Element& element, Random& random, int& left)
{
    for (uint32_t i = random.Below(4); i > 0; --i)
        element.Set(SomeAttribute(random.Below(1000)), SomeValue(random.Below(1000)));
    if (random.Below(4) == 0)
        element.text = L"text & <mark> \u20AC";
    for (uint32_t i = random.Below(5); i > 0 && left > 0; --i) {
        --left;
        auto child = std::make_shared<Element>();
        child->name = SomeName(random.Below(1000));
        Fill(element.Append(std::move(child)), random, left);
    }
}

std::wstring TextOf(BSTR text)
{
    const std::wstring copy(text != nullptr ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

std::wstring NameOf(const IXMLDOMNodePtr& node)
{
    BSTR name = nullptr;
    node->get_nodeName(&name);
    return TextOf(name);
}

std::wstring ValueOf(const IXMLDOMNodePtr& node)
{
    _variant_t value;
    node->get_nodeValue(&value);
    return value.vt == VT_BSTR ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : std::wstring();
}

} // namespace

const std::wstring* Element::Find(const std::wstring& attribute) const
{
    for (const auto& [key, value] : attributes) {
        if (key == attribute)
            return &value;
    }
    return nullptr;
}

void Element::Set(const std::wstring& attribute, const std::wstring& value)
{
    for (auto& [key, old] : attributes) {
        if (key == attribute) {
            old = value;
            return;
        }
    }
    attributes.emplace_back(attribute, value);
}

Element* Element::Child(const std::wstring& childName, size_t index) const
{
    for (const ElementPtr& child : children) {
        if (child->name == childName && index-- == 0)
            return child.get();
    }
    return nullptr;
}

Element& Element::Append(ElementPtr child)
{
    child->parent = this;
    children.push_back(std::move(child));
    return *children.back();
}

ElementPtr Element::Remove(const Element* child)
{
    const auto place = std::find_if(children.begin(), children.end(),
                                    [child](const ElementPtr& one) { return one.get() == child; });
    ElementPtr removed = *place;
    removed->parent = nullptr;
    children.erase(place);
    return removed;
}

std::vector<Element*> ElementsBelow(const Element& element)
{
    std::vector<Element*> elements;
    for (const ElementPtr& child : element.children) {
        elements.push_back(child.get());
        const std::vector<Element*> below = ElementsBelow(*child);
        elements.insert(elements.end(), below.begin(), below.end());
    }
    return elements;
}

void Number(Element& document, int number)
{
    document.owner = number;
    for (Element* const element : ElementsBelow(document))
        element->owner = number;
}

ElementPtr CopyOf(const Element& element)
{
    auto copy = std::make_shared<Element>();
    copy->name = element.name;
    copy->attributes = element.attributes;
    copy->text = element.text;
    for (const ElementPtr& child : element.children)
        copy->Append(CopyOf(*child));
    return copy;
}

ElementPtr SomeDocument(uint32_t number)
{
    Random random(number);
    auto document = std::make_shared<Element>();
    auto root = std::make_shared<Element>();
    root->name = SomeName(number);
    int left = 9;
    Fill(document->Append(std::move(root)), random, left);
    return document;
}

std::wstring SomeName(uint32_t number)
{
    const wchar_t* const names[] = {L"a", L"Item", L"b", L"\u00C4rger"};
    return names[number % std::size(names)];
}

std::wstring SomeAttribute(uint32_t number)
{
    const wchar_t* const names[] = {L"k", L"Name", L"l\u00E4nge", L"_n.1"};
    return names[number % std::size(names)];
}

std::wstring SomeValue(uint32_t number)
{
    const std::wstring values[] = {L"plain", L"",      L"<>&\"'", L"\u00E4\u20AC\u6F22\U0001F600", L"a  b",
                                   L"12",    L"-3.75", L"true",   std::wstring(300, L'v'),         L"1e2x"};
    return values[number % std::size(values)];
}

std::string Spelled(const Element& element)
{
    std::string spelled;
    if (!element.IsDocument()) {
        spelled = "<" + testkit::Utf8(element.name);
        for (const auto& [name, value] : element.attributes)
            spelled += " " + testkit::Utf8(name) + "=\"" + Escaped(value) + "\"";
        spelled += ">" + Escaped(element.text);
    }
    for (const ElementPtr& child : element.children)
        spelled += Spelled(*child);
    if (!element.IsDocument())
        spelled += "</" + testkit::Utf8(element.name) + ">";
    return spelled;
}

std::wstring Shown(const Element& element)
{
    std::wstring shown = element.IsDocument() ? L"#document" : element.name;
    for (const auto& [name, value] : element.attributes)
        shown += L" " + name + L"=\"" + value + L"\"";
    shown += L"(";
    if (!element.text.empty())
        shown += L"'" + element.text + L"'";
    for (const ElementPtr& child : element.children)
        shown += Shown(*child);
    return shown + L")";
}

std::wstring Shown(const IXMLDOMNodePtr& node)
{
    std::wstring shown = NameOf(node);
    IXMLDOMNamedNodeMapPtr attributes;
    node->get_attributes(&attributes);
    IXMLDOMNodePtr attribute;
    for (long i = 0; attributes && attributes->get_item(i, &attribute) == S_OK && attribute; ++i)
        shown += L" " + NameOf(attribute) + L"=\"" + ValueOf(attribute) + L"\"";
    shown += L"(";
    IXMLDOMNodePtr child;
    node->get_firstChild(&child);
    while (child) {
        DOMNodeType type = NODE_INVALID;
        child->get_nodeType(&type);
        if (type == NODE_TEXT)
            shown += L"'" + ValueOf(child) + L"'";
        else if (type == NODE_ELEMENT)
            shown += Shown(child);
        else if (type != NODE_PROCESSING_INSTRUCTION)
            shown += L"#" + std::to_wstring(type);
        IXMLDOMNodePtr next;
        child->get_nextSibling(&next);
        child = next;
    }
    return shown + L")";
}

std::wstring PathOf(const Element& element)
{
    if (element.IsDocument() || element.parent == nullptr)
        return std::wstring();
    // Not every parser takes a name beyond ASCII right behind the first slash.
    if (element.parent->IsDocument())
        return L"/*";
    size_t index = 0;
    while (element.parent->Child(element.name, index) != &element)
        ++index;
    return PathOf(*element.parent) + L"/" + element.name + L"[" + std::to_wstring(index + 1) + L"]";
}

Selection SomeSelection(const Element* document, uint32_t kind, uint32_t which)
{
    const std::vector<Element*> all =
        document != nullptr ? ElementsBelow(*document) : std::vector<Element*>();
    Selection selection;
    const auto select = [&](const std::wstring& xpath, const auto& isMeant) {
        selection.xpath = xpath;
        std::copy_if(all.begin(), all.end(), std::back_inserter(selection.found), isMeant);
    };
    const std::wstring name = SomeName(which), attribute = SomeAttribute(which / 4);
    switch (kind % 6) {
    case 1:
        select(L"//" + name, [&](Element* e) { return e->name == name; });
        break;
    case 2:
        select(L"//" + name + L"[@" + attribute + L"='plain']", [&](Element* e) {
            const std::wstring* const value = e->Find(attribute);
            return e->name == name && value != nullptr && *value == L"plain";
        });
        break;
    case 3:
        select(L"/*/" + name, [&](Element* e) {
            return e->name == name && !e->parent->IsDocument() && e->parent->parent->IsDocument();
        });
        break;
    case 4:
        select(L"//*[@" + attribute + L"]", [&](Element* e) { return e->Find(attribute) != nullptr; });
        break;
    case 5:
        select(L"//*[not(*)]", [](Element* e) { return e->children.empty(); });
        break;
    default:
        if (all.empty()) {
            selection.xpath = L"/absent";
        } else {
            selection.found = {all[which % all.size()]};
            selection.xpath = PathOf(*selection.found.front());
        }
    }
    return selection;
}

} // namespace randomplay
