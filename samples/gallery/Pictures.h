// The gallery's small pictures, drawn when it starts.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

enum TaskPicture
{
    SurveyPicture,
    DesignPicture,
    ReviewPicture,
    PrintPicture
};

// Makes an image list with a picture for each TaskPicture.
void MakeTaskPictures(CImageList& pictures);

// Makes an image list for a header with check boxes: 1 unchecked, 2 checked; 0 is never shown.
void MakeHeaderPictures(CImageList& pictures);
