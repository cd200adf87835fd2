// The pictures of a toolbar's buttons.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <string>

#include "shell/Handles.h"

namespace velmhost
{

// Side of a button's picture in pixels.
inline constexpr int kSmallPicture = 16;
inline constexpr int kLargePicture = 24;

// The colour of a bitmap that lets the button's face show through.
inline constexpr COLORREF kTransparentColour = RGB(192, 192, 192);

// An image list that is filled from bitmap files.
class CButtonImages
{
    // Construction
public:
    // An empty list of pictures of `side` by `side` pixels.
    explicit CButtonImages(int side);

    // Attributes
public:
    int Side() const { return m_side; }
    HIMAGELIST List() const { return m_list.get(); }

    // Operations
public:
    // Adds the picture of a bitmap file, scaled when it has another size, with kTransparentColour left
    // out. Returns its position; I_IMAGENONE, which draws nothing, when the file cannot be read as a
    // bitmap or holds nothing but that colour. Rests on LoadImage and ImageList_Add.
    int Add(const std::wstring& fileName);

    // Implementation
private:
    int m_side;
    UniqueImageList m_list;
};

} // namespace velmhost
