// The documents of the random use: some objects of the class with what each must hold, their files, and how
// they are copied and moved.
#pragma once

#include <VelmUtil22.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "RandomPlay.h"
#include "XmlWorldModel.h"
#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"
#include "kit/Text.h"

namespace randomplay
{

// A text that can be given where a wchar_t* is asked for.
class Writable
{
public:
    Writable(std::wstring text) : m_text(std::move(text)) {}
    operator wchar_t*() { return m_text.data(); }

private:
    std::wstring m_text;
};

// One object with what it must hold.
struct XmlSlot
{
    CXMLFile file;
    ElementPtr document, current;
    std::wstring path, extra;
    bool isReading = false;
};

class ComApartment
{
public:
    ComApartment() { (void)CoInitialize(nullptr); }
    ~ComApartment() { CoUninitialize(); }
};
class XmlSlots : public World
{
protected:
    using Numbers = std::array<uint32_t, 4>;

    // Files

    void Give(XmlSlot& slot, const ElementPtr& document)
    {
        Number(*document, ++m_documents);
        slot.document = document;
        m_kept.push_back(document);
    }
    CString FileName(const wchar_t* name) const { return (m_folder / name).c_str(); }
    void SetPath(XmlSlot& slot, const wchar_t* name)
    {
        slot.path = FileName(name).GetString();
        slot.file.SetXMLFilePath(slot.path.c_str());
    }

    void LoadSome(XmlSlot& slot, uint32_t number, uint32_t form)
    {
        const ElementPtr document = SomeDocument(number);
        std::string bytes = Spelled(*document);
        if (form % 3 == 1)
            bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + bytes;
        else if (form % 3 == 2)
            bytes = "\xEF\xBB\xBF" + bytes;
        SetPath(slot, L"given.xml");
        testkit::WriteBytes(m_folder / L"given.xml", bytes);
        Expect(slot.file.LoadFile(), "load", bytes);
        Give(slot, document);
    }
    void LoadWhatIsNone(XmlSlot& slot, uint32_t kind)
    {
        const char* const texts[] = {"<r>", "", "<!DOCTYPE r [<!ENTITY e 'x'>]><r/>", "<r k=1/>"};
        if (kind % 5 < 4)
            testkit::WriteBytes(m_folder / L"bad.xml", texts[kind % 5]);
        SetPath(slot, kind % 5 < 4 ? L"bad.xml" : L"missing.xml");
        Expect(!slot.file.LoadFile(), "load", "of what is no document");
        Give(slot, std::make_shared<Element>());
    }
    void LoadFromResource(XmlSlot& slot, uint32_t kind)
    {
        if (kind % 2 == 0) {
            Expect(!slot.file.LoadFileFromRes(), "resource", "loaded");
            Give(slot, std::make_shared<Element>());
        } else {
            Expect(!slot.file.setXMLStringFromResource(1, L"NONE", L"VelmUtil22.dll"), "resource", "there");
        }
    }
    void SaveAndLoadInto(XmlSlot& slot, XmlSlot& other)
    {
        if (slot.document == nullptr || slot.document->children.empty())
            return;
        SetPath(slot, L"saved.xml");
        slot.file.SaveDocument();
        const ElementPtr content = CopyOf(*slot.document);
        SetPath(other, L"saved.xml");
        Expect(other.file.LoadFile(), "load", "of what was saved");
        Give(other, content);
    }
    void ReadAsText(XmlSlot& slot)
    {
        CString text;
        const HRESULT result = FailureOf([&] { text = slot.file.GetXMLFileInString(); });
        Expect(result == (slot.document ? S_OK : E_POINTER), "text", "failed");
        if (slot.document == nullptr || slot.document->children.empty())
            return;
        // Read again by the platform alone.
        IXMLDOMDocument2Ptr document;
        document.CreateInstance(L"Msxml2.DOMDocument.6.0");
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        document->loadXML(_bstr_t(text.GetString()), &isLoaded);
        // Mixed texts are kept apart; where there is none, the platform may indent.
        Expect(isLoaded && Shown(IXMLDOMNodePtr(document)) == Shown(*slot.document), "text", "another");
    }
    // Objects

    void CopySlot(XmlSlot& from, XmlSlot& to, bool isAssigned)
    {
        if (isAssigned) {
            to.file = from.file;
        } else {
            CXMLFile copy(from.file);
            to.file = copy;
        }
        TakeModel(from, to);
    }
    void MoveSlot(XmlSlot& from, XmlSlot& to, bool isAssigned)
    {
        if (&from == &to)
            return;
        // Where both hold the same document or node, an assignment leaves it with both.
        const bool keepsDocument =
            isAssigned && from.file.m_pXMLDoc.GetInterfacePtr() == to.file.m_pXMLDoc.GetInterfacePtr();
        const bool keepsNode =
            isAssigned && from.file.m_pCurNode.GetInterfacePtr() == to.file.m_pCurNode.GetInterfacePtr();
        if (isAssigned) {
            to.file = std::move(from.file);
        } else {
            CXMLFile moved(std::move(from.file));
            to.file = moved;
        }
        TakeModel(from, to);
        if (!keepsDocument)
            from.document = nullptr;
        if (!keepsNode)
            from.current = nullptr;
    }
    static void TakeModel(const XmlSlot& from, XmlSlot& to)
    {
        to.document = from.document;
        to.current = from.current;
        to.path = from.path;
        to.extra = from.extra;
        to.isReading = from.isReading;
    }
    void SetSomeFields(XmlSlot& slot, uint32_t number)
    {
        slot.isReading = slot.file.m_bReadMode = number % 2 != 0;
        slot.extra = SomeValue(number / 2);
        slot.file.m_strExtra = slot.extra.c_str();
        if (number % 3 == 0) {
            // The end of somebody's CoInitialize, which leaves the document.
            (void)CoInitialize(nullptr);
            slot.file.UnLoadFile();
        }
    }

    // Rules

    // Not every parser keeps an element below one that was removed, or one whose document nobody has.
    void LeaveWhatIsGone(XmlSlot& slot)
    {
        const Element* top = slot.current.get();
        while (top != nullptr && top->parent != nullptr)
            top = top->parent;
        const bool isThere = std::any_of(m_slots.begin(), m_slots.end(),
                                         [&](const XmlSlot& one) { return one.document.get() == top; });
        if (top != nullptr && !isThere) {
            slot.file.m_pCurNode = nullptr;
            slot.current = nullptr;
        }
    }

    void Check(XmlSlot& slot)
    {
        IXMLDOMDocument2Ptr document;
        slot.file.GetXMLDocument(document);
        Expect(document.GetInterfacePtr() == slot.file.m_pXMLDoc.GetInterfacePtr(), "document", "another");
        if (Expect((document != nullptr) == (slot.document != nullptr), "document", "whether there is one") &&
            document)
            ExpectSame(IXMLDOMNodePtr(document), *slot.document, "tree");
        if (Expect((slot.file.m_pCurNode != nullptr) == (slot.current != nullptr), "current",
                   "whether there is one") &&
            slot.current)
            ExpectSame(slot.file.m_pCurNode, *slot.current, "current");
        Expect(slot.file.m_strXMLFilePath == slot.path.c_str() &&
                   slot.file.m_strExtra == slot.extra.c_str() && slot.file.m_bReadMode == slot.isReading,
               "fields", "one of them");
    }
    void ExpectSame(const IXMLDOMNodePtr& node, const Element& element, const char* kind)
    {
        const std::wstring shown = Shown(node), expected = Shown(element);
        if (shown != expected)
            Expect(false, kind, testkit::Utf8(shown) + "\nexpected " + testkit::Utf8(expected));
    }

    template <class Call>
    static HRESULT FailureOf(Call call)
    {
        try {
            call();
        } catch (const _com_error& error) {
            return error.Error();
        }
        return S_OK;
    }
    bool Expect(bool holds, const char* kind, const std::string& details)
    {
        if (!holds && m_failure.empty())
            m_failure = std::string(kind) + ": " + details;
        return holds;
    }

    ComApartment m_apartment;
    testkit::TempFolder m_folder;
    testkit::MessageBoxWatch m_boxes;
    std::vector<ElementPtr> m_kept; // all that was there, as nodes may outlive documents
    std::array<XmlSlot, 3> m_slots;
    int m_marks = 0, m_documents = 0;
    std::vector<std::wstring> m_expectedBoxes;
    std::string m_failure;
};

} // namespace randomplay
