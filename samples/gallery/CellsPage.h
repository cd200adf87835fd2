// The page with every kind of cell beside its name.
#pragma once

#include "GalleryPage.h"

class CCellsPage : public CGalleryPage
{
public:
    LPCTSTR Name() const override { return L"cells"; }
    LPCTSTR Title() const override { return L"Cells"; }
    LPCTSTR Hint() const override { return L"Every kind of cell. The lists take clicks as any other does."; }
    CWnd& FirstControl() override { return m_withFocus; }

    // "cells" shows the whole page, "drop-down" the drop-downs with the list of one open.
    bool HasPicture(const std::wstring& name) const override
    {
        return CGalleryPage::HasPicture(name) || name == DropDownPicture;
    }
    CSize LeastSize() override;
    CSize PictureSize() const override { return CSize(800, 462); }
    void Pose(const std::wstring& name) override;
    CRect PictureArea() const override;

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

private:
    static constexpr const wchar_t* DropDownPicture = L"drop-down";

    // A heading and the list under it, which has room for some rows more than it has.
    struct Group
    {
        CStatic* heading;
        CXListCtrl* list;
        int extraRows;
    };
    std::vector<Group> LeftGroups();
    std::vector<Group> RightGroups();

    bool MakeList(CXListCtrl& list, DWORD style);
    void FillTexts();
    void FillCheckBoxes();
    void FillDropDowns();
    void FillBars();
    void FillSelections();

    CImageList m_pictures;
    CStringArray m_materials;
    CStatic m_textsHeading, m_checkBoxesHeading, m_dropDownsHeading, m_barsHeading;
    CStatic m_withFocusHeading, m_withoutFocusHeading, m_firstCellHeading;
    CXListCtrl m_texts, m_checkBoxes, m_dropDowns, m_bars;
    CXListCtrl m_withFocus, m_withoutFocus, m_firstCell;
    UINT m_nextId = 201;
    bool m_isDropDownPosed = false;
};
