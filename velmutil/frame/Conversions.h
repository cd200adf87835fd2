// Conversions between text and numbers.
//
// None of them reports anything. All follow the run-time library's current locale, which the library
// never sets: the decimal separator is a point unless the program changes the locale. Those that return a
// text throw CMemoryException* when there is no memory for it.
#pragma once

#include <afxwin.h>

#include "frame/Portability.h"

// Reads a number from the start of `text`: leading white space, a sign, digits, a decimal point and an
// exponent. Reading stops at the first character that does not fit; a text without a number gives 0,
// one too large for a double an infinity. Rests on _wtof.
VELM_API double GetStrToDouble(CString text);

// As GetStrToDouble, narrowed to float.
VELM_API float GetStrToFloat(CString text);

// Reads a decimal integer of 32 bits from the start of `text` (leading white space, a sign, digits)
// and widens it with its sign. Reading stops at the first character that does not fit; a text without
// a number gives 0; what a number beyond 32 bits gives is the run-time library's. Rests on _wtoi.
VELM_API __int64 GetStrToInt(CString text);

// The same through _wtol, whose result has 32 bits as well.
VELM_API __int64 GetStrToLong(CString text);

// The number in decimal digits, with "-" before a negative one. Rests on CString::Format ("%d").
VELM_API CString GetStringFrom(int value);

// The same for a long ("%ld").
VELM_API CString GetStringFrom(long value);

// The number with two decimals, rounded as the run-time library's formatter rounds ("%.2f"). For an
// infinity, or what is no number, comes the text that this formatter has for it, which differs from one
// run-time library to another ("inf", "1.#J").
VELM_API CString GetStringFrom(float value);

// The number with six decimals, rounded as the run-time library's formatter rounds ("%.6lf").
// Infinities and what is no number as above.
VELM_API CString GetStringFrom(double value);

// Takes a run of number characters out of `text`. A number character is one whose code, reduced to its
// low seven bits, is that of "." or of a decimal digit; it is taken as it stands, so "20°C" gives
// "20°". Once a character beyond the first of the text was taken, only characters right behind the one
// taken last are; before that, any is: "abc12.5kg" gives "12.5", and "1a2b3" gives "12". All
// characters of the text are looked at, also those behind an embedded zero. A text without number
// characters gives the empty string.
VELM_API CString GetNumberFromText(CString text);
