#include "frame/Conversions.h"

#include <cstdlib>

double GetStrToDouble(CString text)
{
    return _wtof(text);
}

float GetStrToFloat(CString text)
{
    return static_cast<float>(_wtof(text));
}

__int64 GetStrToInt(CString text)
{
    return _wtoi(text);
}

__int64 GetStrToLong(CString text)
{
    return _wtol(text);
}

CString GetStringFrom(int value)
{
    CString text;
    text.Format(L"%d", value);
    return text;
}

CString GetStringFrom(long value)
{
    CString text;
    text.Format(L"%ld", value);
    return text;
}

CString GetStringFrom(float value)
{
    CString text;
    text.Format(L"%.2f", value);
    return text;
}

CString GetStringFrom(double value)
{
    CString text;
    text.Format(L"%.6lf", value);
    return text;
}

CString GetNumberFromText(CString text)
{
    CString number;
    // 0 means both "nothing taken yet" and "taken at index 0"; callers know the results this gives.
    int lastTaken = 0;
    for (int i = 0; i < text.GetLength(); ++i) {
        const wchar_t character = text[i];
        const wchar_t reduced = character & 0x7F;
        const bool isNumber = reduced == L'.' || (reduced >= L'0' && reduced <= L'9');
        if (isNumber && (lastTaken == 0 || lastTaken == i - 1)) {
            number += character;
            lastTaken = i;
        }
    }
    return number;
}
