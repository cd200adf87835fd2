// The page with an XML document: its tree, what an XPath finds in it, and the attributes of an element.
#pragma once

#include "SplitPage.h"

class CXmlPage : public CSplitPage
{
public:
    LPCTSTR Name() const override { return L"xml"; }
    LPCTSTR Title() const override { return L"XML"; }
    LPCTSTR Hint() const override
    {
        return L"Select an element, rest the mouse on it to read its XPath, or find others by one.";
    }
    CWnd& FirstControl() override { return m_tree; }

    CSize LeastSize() override { return CSize(620, 350); }
    void Pose(const std::wstring& name) override;

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnSelectionChanged(NMHDR* notification, LRESULT* result);
    afx_msg void OnFindClicked();
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()

private:
    void AddElement(HTREEITEM parent, const IXMLDOMNodePtr& element);
    void AddChildren(HTREEITEM item, const IXMLDOMNodePtr& parent);
    HTREEITEM ItemOf(const CString& path, HTREEITEM first) const;
    CString PathOf(HTREEITEM item) const;
    void ShowAttributes(HTREEITEM item);

    CXMLFile m_document;
    CXTreeCtrl m_tree;
    CStatic m_treeLabel, m_queryHeading, m_namesHeading, m_attributesHeading;
    CEdit m_query;
    CButton m_find;
    CListBox m_names;
    CXListCtrl m_attributes;
};
