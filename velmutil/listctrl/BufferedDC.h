// Painting through an off-screen bitmap.
#pragma once

#include <afxwin.h>

// A context as large as the clip box of another, in the same coordinates. What was drawn into it is copied
// over when it goes.
class CBufferedDC : public CDC
{
public:
    explicit CBufferedDC(CDC* target);
    ~CBufferedDC() override;
    CBufferedDC(const CBufferedDC&) = delete;
    CBufferedDC& operator=(const CBufferedDC&) = delete;

private:
    CDC* m_target;
    CRect m_area;
    CBitmap m_bitmap;
    HGDIOBJ m_oldBitmap = nullptr;
};
