#include "XmlWorld.h"

#include <iterator>
#include <list>

#include "XmlWorldSlots.h"

namespace randomplay
{
namespace
{

enum Act : unsigned
{
    Load,
    LoadBad,
    LoadResource,
    SaveAndLoad,
    AsText,
    Enter,
    Leave,
    SelectChild,
    Create,
    CreateWrongly,
    WriteText,
    WriteNumber,
    ReadText,
    ReadNumber,
    GetNode,
    GetValue,
    FillLists,
    DeleteNode,
    Copy,
    MoveOver,
    SetFields,
    Misuse,
};

constexpr Operation Operations[] = {
    {"Load", 10},      {"LoadBad", 1},     {"LoadResource", 1}, {"SaveAndLoad", 6}, {"AsText", 4},
    {"Enter", 20},     {"Leave", 1},       {"SelectChild", 14}, {"Create", 10},     {"CreateWrongly", 3},
    {"WriteText", 10}, {"WriteNumber", 6}, {"ReadText", 6},     {"ReadNumber", 6},  {"GetNode", 6},
    {"GetValue", 10},  {"FillLists", 6},   {"DeleteNode", 6},   {"Copy", 3},        {"MoveOver", 3},
    {"SetFields", 2},  {"Misuse", 1},
};

constexpr size_t MostElements = 24;

class XmlWorld : public XmlSlots
{
public:
    std::string Play(const Step& step) override
    {
        m_failure.clear();
        m_expectedBoxes.clear();
        const size_t boxes = m_boxes.Boxes().size();
        const auto& n = step.numbers;
        PlayOn(step.operation, m_slots[n[3] % m_slots.size()], n);
        const std::vector<std::wstring> texts = m_boxes.Texts();
        Expect(std::vector<std::wstring>(texts.begin() + static_cast<ptrdiff_t>(boxes), texts.end()) ==
                   m_expectedBoxes,
               "message", std::to_string(texts.size() - boxes) + " shown");
        for (XmlSlot& slot : m_slots) {
            LeaveWhatIsGone(slot);
            Check(slot);
        }
        return m_failure;
    }

private:
    void PlayOn(unsigned act, XmlSlot& slot, const Numbers& n)
    {
        switch (act) {
        case Load:
            LoadSome(slot, n[0], n[1]);
            break;
        case LoadBad:
            LoadWhatIsNone(slot, n[0]);
            break;
        case LoadResource:
            LoadFromResource(slot, n[0]);
            break;
        case SaveAndLoad:
            SaveAndLoadInto(slot, m_slots[n[0] % m_slots.size()]);
            break;
        case AsText:
            ReadAsText(slot);
            break;
        case Enter:
            EnterNode(slot, n[0]);
            break;
        case Leave:
            slot.file.m_pCurNode = nullptr;
            slot.current = nullptr;
            if (n[0] % 4 == 3) {
                slot.file.m_pXMLDoc = nullptr;
                slot.document = nullptr;
            }
            break;
        case SelectChild:
            SelectSomeChild(slot, n[0], n[1], n[2]);
            break;
        case Create:
            CreateSome(slot, SomeName(n[0]));
            break;
        case CreateWrongly: {
            const wchar_t* const wrong[] = {L"1a", L"", L"a b", L"a:", L"@k", L"Item[3]", L"*"};
            CreateSome(slot, wrong[n[0] % std::size(wrong)]);
            break;
        }
        case WriteText:
            WriteSomeText(slot, n[0] % 16 == 15 ? L"1a" : SomeAttribute(n[0]), SomeValue(n[1]));
            break;
        case WriteNumber:
            WriteSomeNumber(slot, SomeAttribute(n[0]), n[1] % 5, static_cast<int>(n[2] % 20001) - 10000);
            break;
        case ReadText:
            ReadSomeText(slot, SomeAttribute(n[0]));
            break;
        case ReadNumber:
            ReadSomeNumber(slot, SomeAttribute(n[0]), n[1] % 5);
            break;
        case GetNode:
            GetSomeNode(slot, SomeSelection(slot.document.get(), n[0], n[1]));
            break;
        case GetValue:
            GetSomeValue(slot, SomeSelection(slot.document.get(), n[0], n[1]), SomeAttribute(n[2]));
            break;
        case FillLists:
            FillSomeLists(slot, n);
            break;
        case DeleteNode:
            DeleteSomeNode(slot, n[0], n[1], n[2]);
            break;
        case Copy:
            CopySlot(slot, m_slots[n[0] % m_slots.size()], n[1] % 2 == 0);
            break;
        case MoveOver:
            MoveSlot(slot, m_slots[n[0] % m_slots.size()], n[1] % 2 == 0);
            break;
        case SetFields:
            SetSomeFields(slot, n[0]);
            break;
        case Misuse:
            MisuseSome(slot, n[0]);
            break;
        }
    }

    // Nodes

    // The document, one of its elements, or what was the node before.
    void EnterNode(XmlSlot& slot, uint32_t number)
    {
        if (slot.document == nullptr)
            return;
        const std::vector<Element*> all = ElementsBelow(*slot.document);
        const size_t which = number % (all.size() + 1);
        if (which == 0) {
            slot.file.m_pCurNode = slot.file.m_pXMLDoc;
            slot.current = slot.document;
            return;
        }
        Element* const element = all[which - 1];
        slot.file.m_pCurNode = nullptr;
        slot.file.GetDOMNodePtr(PathOf(*element).c_str(), slot.file.m_pCurNode);
        slot.current = element->parent->children[IndexOf(*element)];
        Expect(slot.file.m_pCurNode != nullptr, "node", testkit::Utf8(PathOf(*element)));
    }
    static size_t IndexOf(const Element& element)
    {
        size_t index = 0;
        while (element.parent->children[index].get() != &element)
            ++index;
        return index;
    }

    // Marks a node through the object, so that the trees show whether it is the right one.
    void Mark(XmlSlot& slot, const IXMLDOMNodePtr& node, Element& element)
    {
        if (slot.document == nullptr || slot.document->owner != element.owner)
            return; // see HasRoom
        CXMLFile file;
        file.m_pXMLDoc = slot.file.m_pXMLDoc;
        file.m_pCurNode = node;
        CString text;
        text.Format(L"%d", ++m_marks);
        file.CreateAttrib(Writable(L"mark"), text);
        element.Set(L"mark", text.GetString());
    }

    // Also whether the current node is the document's own: not every parser survives it when a node is made
    // by one document and put into another.
    bool HasRoom(const XmlSlot& slot) const
    {
        if (slot.document != nullptr && slot.current != nullptr &&
            slot.document->owner != slot.current->owner)
            return false;
        return (slot.document == nullptr || ElementsBelow(*slot.document).size() < MostElements) &&
               (slot.current == nullptr || ElementsBelow(*slot.current).size() < MostElements);
    }
    // What making an element below the current node raises, for a name that may be one.
    static HRESULT MakingFails(const XmlSlot& slot)
    {
        if (slot.document == nullptr || slot.current == nullptr)
            return E_POINTER;
        return slot.current->IsDocument() && !slot.current->children.empty() ? E_INVALIDARG : S_OK;
    }
    Element& Made(XmlSlot& slot, const std::wstring& name)
    {
        auto element = std::make_shared<Element>();
        element->name = name;
        element->owner = slot.document->owner;
        return slot.current->Append(std::move(element));
    }

    void SelectSomeChild(XmlSlot& slot, uint32_t nameNumber, uint32_t flags, uint32_t index)
    {
        const bool doesCreate = flags % 2 != 0, doesRemove = flags % 4 == 3;
        if (doesCreate && !HasRoom(slot))
            return;
        const std::wstring name = SomeName(nameNumber);
        const bool isIndexed = index % 8 == 7;
        const std::wstring xpath = isIndexed ? name + L"[2]" : name;
        Element* found = slot.current ? slot.current->Child(name, isIndexed ? 1 : 0) : nullptr;
        IXMLDOMNodePtr node;
        const HRESULT result =
            FailureOf([&] { node = slot.file.SelectNode(Writable(xpath), doesRemove, doesCreate); });
        if (slot.current == nullptr) {
            Expect(result == E_POINTER, "select", "without a node");
            return;
        }
        HRESULT expected = S_OK;
        if (doesCreate && (found == nullptr || doesRemove)) {
            expected = isIndexed ? E_INVALIDARG : S_OK;
            if (!isIndexed && found != nullptr)
                m_kept.push_back(slot.current->Remove(found));
            found = nullptr;
            if (expected == S_OK)
                expected = MakingFails(slot);
            if (expected == S_OK)
                found = &Made(slot, name);
        }
        Expect(result == expected, "select", "result " + std::to_string(result));
        Expect((node != nullptr) == (found != nullptr), "select", found ? "null" : "a node");
        if (node && found)
            Mark(slot, node, *found);
    }

    void CreateSome(XmlSlot& slot, const std::wstring& name)
    {
        if (!HasRoom(slot))
            return;
        const bool isName = !name.empty() && name.find_first_of(L"1: @[*") == std::wstring::npos;
        HRESULT expected = MakingFails(slot);
        if (!isName && slot.document != nullptr)
            expected = E_INVALIDARG;
        IXMLDOMNodePtr node;
        const HRESULT result = FailureOf([&] { node = slot.file.CreateNode(Writable(name)); });
        if (Expect(result == expected, "create", "result " + std::to_string(result)) && result == S_OK)
            Mark(slot, node, Made(slot, name));
    }

    void GetSomeNode(XmlSlot& slot, const Selection& selection)
    {
        IXMLDOMNodePtr node = slot.file.m_pCurNode;
        const IXMLDOMNodePtr before = node;
        slot.file.GetDOMNodePtr(selection.xpath.c_str(), node);
        if (slot.document == nullptr)
            Expect(node.GetInterfacePtr() == before.GetInterfacePtr(), "get", "without a document");
        else if (Expect((node != nullptr) == !selection.found.empty(), "get", "whether it is there") && node)
            Mark(slot, node, *selection.found.front());
    }

    void DeleteSomeNode(XmlSlot& slot, uint32_t childNumber, uint32_t parentNumber, uint32_t kind)
    {
        const Selection child = SomeSelection(slot.document.get(), 0, childNumber);
        Selection parent = SomeSelection(slot.document.get(), 0, parentNumber);
        const bool isOfAttribute = kind % 8 == 7;
        if (kind % 4 < 2 && !child.found.empty()) {
            // As it should be used.
            parent.found = {child.found.front()->parent};
            parent.xpath = parent.found.front()->IsDocument() ? L"/" : PathOf(*parent.found.front());
        }
        const std::wstring path = child.xpath + (isOfAttribute ? L"/@k" : L"");
        const HRESULT result =
            FailureOf([&] { slot.file.DeleteXMLNode(parent.xpath.c_str(), path.c_str()); });
        if (slot.document == nullptr) {
            Expect(result == E_POINTER, "delete", "without a document");
            return;
        }
        const bool isFound = !parent.found.empty() && !child.found.empty() &&
                             (!isOfAttribute || child.found.front()->Find(L"k") != nullptr);
        if (!isFound) {
            Expect(result == S_OK, "delete", "of what is not there");
        } else if (isOfAttribute) {
            Expect(result == E_INVALIDARG, "delete", "of an attribute");
        } else if (child.found.front()->parent != parent.found.front()) {
            Expect(FAILED(result), "delete", "from another");
        } else {
            Expect(result == S_OK, "delete", "failed");
            m_kept.push_back(parent.found.front()->Remove(child.found.front()));
        }
    }

    // Attributes

    static bool HasAttributes(const XmlSlot& slot) { return slot.current && !slot.current->IsDocument(); }

    template <class Value>
    HRESULT Exchange(XmlSlot& slot, const std::wstring& name, Value& value, bool isReading)
    {
        slot.file.m_bReadMode = isReading;
        const HRESULT result = FailureOf([&] { slot.file.CreateAttrib(Writable(name), value); });
        slot.file.m_bReadMode = slot.isReading;
        return result;
    }
    void ExpectWritten(XmlSlot& slot, const std::wstring& name, const std::wstring& value, HRESULT result)
    {
        HRESULT expected = S_OK;
        if (!HasAttributes(slot) || (slot.current->Find(name) == nullptr && slot.document == nullptr))
            expected = E_POINTER;
        else if (name == L"1a")
            expected = E_INVALIDARG;
        if (Expect(result == expected, "write", "result " + std::to_string(result)) && result == S_OK)
            slot.current->Set(name, value);
    }
    void WriteSomeText(XmlSlot& slot, const std::wstring& name, const std::wstring& value)
    {
        if (!HasRoom(slot))
            return;
        CString text = value.c_str();
        ExpectWritten(slot, name, value, Exchange(slot, name, text, false));
        Expect(text == value.c_str(), "write", "it changed the variable");
    }
    template <class Value>
    void WriteAs(XmlSlot& slot, const std::wstring& name, const wchar_t* format, Value value)
    {
        wchar_t text[40];
        swprintf(text, std::size(text), format, value);
        Value variable = value;
        ExpectWritten(slot, name, text, Exchange(slot, name, variable, false));
    }
    void WriteSomeNumber(XmlSlot& slot, const std::wstring& name, uint32_t kind, int number)
    {
        if (!HasRoom(slot))
            return;
        switch (kind) {
        case 0:
            WriteAs(slot, name, L"%d", number);
            break;
        case 1:
            WriteAs(slot, name, L"%ld", static_cast<long>(number) * 1000);
            break;
        case 2:
            WriteAs(slot, name, L"%.3f", static_cast<float>(number) / 8);
            break;
        case 3:
            WriteAs(slot, name, L"%.3f", number / 8.0);
            break;
        case 4:
            WriteAs(slot, name, L"%d", number % 2 == 0);
            break;
        }
    }
    void ReadSomeText(XmlSlot& slot, const std::wstring& name)
    {
        CString text = L"before";
        const HRESULT result = Exchange(slot, name, text, true);
        Expect(result == (HasAttributes(slot) ? S_OK : E_POINTER), "read",
               "result " + std::to_string(result));
        const std::wstring* const value = HasAttributes(slot) ? slot.current->Find(name) : nullptr;
        Expect(text == (value != nullptr ? value->c_str() : L"before"), "read", "another text");
    }
    template <class Value, class Read>
    void ReadAs(XmlSlot& slot, const std::wstring& name, Value before, Read read)
    {
        Value number = before;
        const HRESULT result = Exchange(slot, name, number, true);
        Expect(result == (HasAttributes(slot) ? S_OK : E_POINTER), "read",
               "result " + std::to_string(result));
        if (HasAttributes(slot)) {
            const std::wstring* const value = slot.current->Find(name);
            before = static_cast<Value>(read(value != nullptr ? value->c_str() : L""));
        }
        Expect(number == before, "read", "another number");
    }
    void ReadSomeNumber(XmlSlot& slot, const std::wstring& name, uint32_t kind)
    {
        switch (kind) {
        case 0:
            ReadAs(slot, name, 77, _wtoi);
            break;
        case 1:
            ReadAs(slot, name, 77l, _wtol);
            break;
        case 2:
            ReadAs(slot, name, 77.0f, _wtof);
            break;
        case 3:
            ReadAs(slot, name, 77.0, _wtof);
            break;
        case 4:
            ReadAs(slot, name, true, _wtoi);
            break;
        }
    }

    void GetSomeValue(XmlSlot& slot, const Selection& selection, const std::wstring& name)
    {
        const std::wstring* const value =
            selection.found.empty() ? nullptr : selection.found.front()->Find(name);
        const CString expected = value != nullptr ? value->c_str() : L"";
        Expect(slot.file.GetAttrib(selection.xpath.c_str(), Writable(name)) == expected, "value", "another");
        IXMLDOMElementPtr element;
        const CString text = slot.file.GetAttribElement(selection.xpath.c_str(), Writable(name), element);
        Expect(text == expected, "value", "of the element");
        if (Expect((element != nullptr) == !selection.found.empty(), "value", "of no element") && element)
            Mark(slot, element, *selection.found.front());
    }

    void FillSomeLists(XmlSlot& slot, const Numbers& n)
    {
        const std::wstring name = SomeAttribute(n[2]);
        // Mostly one that finds only elements with the attribute: a missing one shows a message.
        const Selection selection = n[0] % 8 == 7 ? SomeSelection(slot.document.get(), n[0], n[1])
                                                  : SomeSelection(slot.document.get(), 4, n[2] * 4);
        const std::wstring failure = L"FillStringArray Error";
        std::vector<std::wstring> expected{L"before"};
        bool isWhole = slot.document != nullptr;
        for (const Element* const element : selection.found) {
            const std::wstring* const value = element->Find(name);
            isWhole = isWhole && value != nullptr;
            if (!isWhole)
                break;
            expected.push_back(*value);
        }
        std::vector<std::wstring> texts;
        if (n[1] % 2 == 0) {
            CStringArray items;
            items.Add(L"before");
            slot.file.FillStringArray(items, Writable(selection.xpath), Writable(name));
            for (INT_PTR i = 0; i < items.GetSize(); ++i)
                texts.push_back(items[i].GetString());
        } else {
            std::list<CString> items{L"before"};
            slot.file.FillStringList(items, Writable(selection.xpath), Writable(name));
            for (const CString& item : items)
                texts.push_back(item.GetString());
        }
        if (!isWhole)
            m_expectedBoxes = {failure};
        Expect(texts == expected, "list", std::to_string(texts.size()) + " texts");
    }

    void MisuseSome(XmlSlot& slot, uint32_t kind)
    {
        const std::wstring search = L"Some Error occurred during XML File Operation";
        IXMLDOMNodePtr node;
        switch (kind % 4) {
        case 0:
            slot.file.GetDOMNodePtr(L"/r[", node);
            if (slot.document != nullptr)
                m_expectedBoxes = {search};
            break;
        case 1:
            Expect(slot.file.GetAttrib(L"/", Writable(L"k")).IsEmpty(), "misuse", "a text");
            if (slot.document != nullptr)
                m_expectedBoxes = {L"XML File Atrribute Error"};
            break;
        case 2:
            Expect(slot.file.SelectNode(Writable(L"a"), true, false) == nullptr, "misuse", "a node");
            m_expectedBoxes = {L"To remove Node Itself, Create option should be true"};
            break;
        case 3:
            if (slot.current != nullptr)
                Expect(FailureOf([&] { slot.file.SelectNode(Writable(L""), false, true); }) != S_OK, "misuse",
                       "an empty name");
            break;
        }
    }
};

} // namespace

Plan XmlPlan(unsigned long long steps)
{
    return {"XML", Operations, [] { return std::make_unique<XmlWorld>(); }, steps};
}

} // namespace randomplay
