// Splitting a text into an array.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Portability.h"

// Empties `out` and fills it with the pieces of `text`, in order.
//
// asTokens true: every character of `delimiter` separates. Runs of separators count as one, and no
// piece is empty. With an empty delimiter the whole text is one piece; an empty text has none. The
// results are those of the run-time library's wcstok, without its shared state.
//
// asTokens false: `delimiter` is one separator as a whole. Empty pieces are kept, so there is always
// one piece more than there are separators: "a,," gives "a" and two empty pieces, an empty text one
// empty piece. Separators do not overlap; the text is read from the left. With an empty delimiter the
// whole text is one piece.
//
// Both arguments are taken as zero-terminated texts when separators are looked for, and `delimiter` is
// what stands before its first zero. Characters of `text` behind an embedded zero are dropped by the
// token form, and kept unsplit at the end of the last piece by the other.
//
// Takes time in proportion to the length of the text. The length of `delimiter` multiplies it at worst: in
// the token form for characters from U+0100 on only, each of which is looked up among the separators one
// by one; in the other form where the text repeats long beginnings of the separator.
//
// Throws CMemoryException* when memory runs out. `out` is then empty, or has its final size, with empty
// texts in place of the pieces that are missing.
VELM_API void Split2Array(CString text, CString delimiter, CStringArray& out, bool asTokens);
