// What the tests of loading share.
#pragma once

#include "XmlTest.h"

#include "ScriptedDocument.h"

#include <algorithm>

class LoadFile : public XmlTest
{
protected:
    static void ExpectEmptyDocument(CXMLFile& file)
    {
        ASSERT_NE(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
        VARIANT_BOOL hasChildren = VARIANT_TRUE;
        file.m_pXMLDoc->hasChildNodes(&hasChildren);
        EXPECT_EQ(hasChildren, VARIANT_FALSE);
        EXPECT_EQ(file.GetXMLFileInString(), L"");
    }

    static std::vector<std::wstring> NamesOfChildren(CXMLFile& file)
    {
        std::vector<std::wstring> names;
        IXMLDOMNodePtr node;
        for (file.m_pXMLDoc->get_firstChild(&node); node != nullptr;) {
            BSTR name = nullptr;
            node->get_nodeName(&name);
            names.emplace_back(name);
            SysFreeString(name);
            IXMLDOMNodePtr next;
            node->get_nextSibling(&next);
            node = next;
        }
        return names;
    }
};

// A loading with a scripted document in the new one's place.
class LoadFileSteps : public LoadFile
{
protected:
    LoadFileSteps() { testkit::WriteBytes(m_folder / L"document.xml", "<r/>"); }

    // What the call that begins so was in the document's list, from 0.
    size_t PlaceOf(std::string_view beginning) const
    {
        const auto found = std::find_if(m_document->m_calls.begin(), m_document->m_calls.end(),
                                        [&](const std::string& call) { return call.starts_with(beginning); });
        EXPECT_NE(found, m_document->m_calls.end()) << beginning;
        return static_cast<size_t>(found - m_document->m_calls.begin());
    }

    // The new document, and one that the object may have had before.
    CScriptedDocument* const m_document = new CScriptedDocument;
    const IXMLDOMDocument2Ptr m_owner{m_document, false};
    CScriptedDocument* const m_former = new CScriptedDocument;
    const IXMLDOMDocument2Ptr m_formerOwner{m_former, false};
    CDocumentSupply m_supply{*m_document};
    CXMLFile m_file{PathOf(L"document.xml")};
};
