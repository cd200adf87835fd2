// Splitting a text into an array, against a scan written by hand that fills the same kind of array.

#include "VelmUtil22.h"

#include "Bench.h"

#include <cwchar>
#include <memory>

namespace
{

constexpr size_t Pieces = 1000000;
constexpr size_t PieceLength = 4; // with its separator 10 bytes, so the text has 10 MB

CString Text()
{
    CString text;
    const int length = static_cast<int>(Pieces * (PieceLength + 1) - 1);
    wchar_t* character = text.GetBuffer(length);
    for (int i = 0; i < length; ++i) {
        character[i] = i % (PieceLength + 1) == PieceLength ? L';' : static_cast<wchar_t>(L'a' + i % 26);
    }
    text.ReleaseBuffer(length);
    return text;
}

// One text and one array for all rows; the array is emptied before each run, outside its time.
const CString& TheText()
{
    static const CString text = Text();
    return text;
}

CStringArray& TheArray()
{
    static CStringArray array;
    return array;
}

size_t SplitByLibrary(bool asTokens)
{
    Split2Array(TheText(), L";", TheArray(), asTokens);
    return static_cast<size_t>(TheArray().GetSize());
}

size_t SplitWholeByHand()
{
    CStringArray& array = TheArray();
    const wchar_t* piece = TheText();
    while (const wchar_t* separator = std::wcsstr(piece, L";")) {
        array.Add(CString(piece, static_cast<int>(separator - piece)));
        piece = separator + 1;
    }
    array.Add(piece);
    return static_cast<size_t>(array.GetSize());
}

size_t SplitTokensByHand()
{
    CStringArray& array = TheArray();
    const wchar_t* at = TheText();
    for (;;) {
        at += std::wcsspn(at, L";");
        const size_t length = std::wcscspn(at, L";");
        if (length == 0) {
            return static_cast<size_t>(array.GetSize());
        }
        array.Add(CString(at, static_cast<int>(length)));
        at += length;
    }
}

void Prepare()
{
    TheText();
    TheArray().RemoveAll();
}

const bench::Registration g_whole{{"whole-separator split of 10 MB into 1000000 pieces, against a bare scan",
                                   "piece",
                                   {[] { return SplitByLibrary(false); }, Pieces, Prepare},
                                   {SplitWholeByHand, Pieces, Prepare},
                                   1.5}};

const bench::Registration g_tokens{{"token split of 10 MB into 1000000 pieces, against a bare scan",
                                    "piece",
                                    {[] { return SplitByLibrary(true); }, Pieces, Prepare},
                                    {SplitTokensByHand, Pieces, Prepare},
                                    1.5}};

} // namespace
