#include "Lives.h"

#include <list>
#include <string>

#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"

namespace lifecycle
{
namespace
{

// Settings of every type, written or read by the same calls.
struct Settings
{
    CString text = L"a text with <markup> & more";
    int number = -12;
    long large = 123456;
    float share = 0.25f;
    double length = 12.5;
    bool isOn = true;

    void Exchange(CXMLFile& file)
    {
        wchar_t names[][8] = {L"text", L"number", L"large", L"share", L"length", L"isOn"};
        file.CreateAttrib(names[0], text);
        file.CreateAttrib(names[1], number);
        file.CreateAttrib(names[2], large);
        file.CreateAttrib(names[3], share);
        file.CreateAttrib(names[4], length);
        file.CreateAttrib(names[5], isOn);
    }
};

void Save(const CString& path)
{
    CXMLFile file(path);
    ASSERT_FALSE(file.LoadFile()); // a file that is not there gives an empty document
    file.m_pCurNode = file.m_pXMLDoc;
    wchar_t root[] = L"Settings", item[] = L"Item", name[] = L"name";
    file.m_pCurNode = file.CreateNode(root);
    Settings settings;
    settings.Exchange(file);
    const IXMLDOMNodePtr top = file.m_pCurNode;
    for (int i = 0; i < 5; ++i) {
        file.m_pCurNode = file.CreateNode(item);
        CString value = GetStringFrom(i);
        file.CreateAttrib(name, value);
        file.m_pCurNode = top;
    }
    ASSERT_NE(file.SelectNode(item, true, true), nullptr);
    file.SaveDocument();
}

void Load(const CString& path)
{
    CXMLFile file(path);
    ASSERT_TRUE(file.LoadFile());
    wchar_t root[] = L"Settings", other[] = L"Other", name[] = L"name", xpath[] = L"/Settings/Item[@name]";
    file.m_pCurNode = file.m_pXMLDoc;
    file.m_pCurNode = file.SelectNode(root, false, false);
    ASSERT_NE(file.m_pCurNode, nullptr);
    file.m_bReadMode = true;
    Settings settings;
    settings.number = 0;
    settings.Exchange(file);
    ASSERT_EQ(settings.number, -12);
    CStringArray values;
    file.FillStringArray(values, xpath, name);
    std::list<CString> list;
    file.FillStringList(list, xpath, name);
    ASSERT_EQ(values.GetSize(), 4);
    ASSERT_EQ(list.size(), 4u);
    IXMLDOMElementPtr element;
    ASSERT_EQ(file.GetAttribElement(xpath, name, element), L"1");
    ASSERT_FALSE(file.GetXMLFileInString().IsEmpty());
    file.SelectNode(other, false, true);
    file.DeleteXMLNode(L"/Settings", L"/Settings/Item[2]");
    // Copies share the document, and one outlives the others.
    CXMLFile copy(file), moved(std::move(file));
    file = copy;
    CXMLFile last;
    last = std::move(moved);
    IXMLDOMDocument2Ptr document;
    last.GetXMLDocument(document);
    ASSERT_NE(document, nullptr);
    ASSERT_TRUE(last.LoadFile()); // the former document goes, but for what still holds it
}

void LiveWithAFile()
{
    const testkit::TempFolder folder;
    const CString path((folder / L"settings.xml").c_str());
    ASSERT_NO_FATAL_FAILURE(Save(path));
    ASSERT_NO_FATAL_FAILURE(Load(path));
}

void LiveWithAResource()
{
    CXMLFile file;
    ASSERT_TRUE(file.setXMLStringFromResource(101, L"XML", L"lifecycle_tests.exe"));
    wchar_t name[] = L"from";
    ASSERT_EQ(file.GetAttrib(L"/r", name), L"the program");
    ASSERT_FALSE(file.setXMLStringFromResource(102, L"XML", L"lifecycle_tests.exe")); // not well-formed
    ASSERT_FALSE(file.setXMLStringFromResource(999, L"XML", L"lifecycle_tests.exe")); // not there
    ASSERT_FALSE(file.LoadFileFromRes());
}

template <class Step>
HRESULT FailureOf(Step step)
{
    try {
        step();
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

// Every way in which a member tells of a failure.
void LiveWithFailures()
{
    const testkit::TempFolder folder;
    testkit::MessageBoxWatch boxes;
    testkit::WriteBytes(folder / L"bad.xml", "<r><unfinished></r>");
    testkit::WriteBytes(folder / L"entities.xml", "<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>");
    testkit::WriteBytes(folder / L"good.xml", "<r a='1'><i/>text</r>");
    for (const wchar_t* const name : {L"bad.xml", L"entities.xml", L"none.xml"}) {
        CXMLFile file(CString((folder / name).c_str()));
        ASSERT_FALSE(file.LoadFile());
    }
    CXMLFile file(CString((folder / L"good.xml").c_str()));
    wchar_t wrong[] = L"no name", none[] = L"none", attribute[] = L"a", xpath[] = L"//i";
    CString value;
    ASSERT_EQ(FailureOf([&] { file.CreateNode(none); }), E_POINTER);
    ASSERT_TRUE(file.LoadFile());
    file.m_pCurNode = file.m_pXMLDoc;
    ASSERT_EQ(FailureOf([&] { file.CreateNode(none); }), E_INVALIDARG); // a second root
    file.GetDOMNodePtr(L"/r", file.m_pCurNode);
    ASSERT_EQ(FailureOf([&] { file.CreateNode(wrong); }), E_INVALIDARG);
    ASSERT_EQ(FailureOf([&] { file.CreateAttrib(wrong, value); }), E_INVALIDARG);
    ASSERT_EQ(file.GetAttrib(L"/r", none), L"");
    ASSERT_EQ(boxes.Boxes().size(), 0u);
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"///", node);
    CStringArray values;
    file.FillStringArray(values, xpath, attribute);
    ASSERT_EQ(file.SelectNode(none, true, false), nullptr);
    ASSERT_EQ(boxes.Boxes().size(), 3u);
    ASSERT_NE(FailureOf([&] { file.DeleteXMLNode(L"/r", L"///"); }), S_OK);
    file.SetXMLFilePath(CString((folder / L"no folder\\file.xml").c_str()));
    ASSERT_NE(FailureOf([&] { file.SaveDocument(); }), S_OK);
}

} // namespace

std::vector<Life> DocumentLives()
{
    return {
        {"DocumentInAFile", &LiveWithAFile, 3},
        {"DocumentOfAResource", &LiveWithAResource},
        {"DocumentWithFailures", &LiveWithFailures, 4},
    };
}

} // namespace lifecycle
