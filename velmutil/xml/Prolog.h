// A look at what stands before the root element of a document, for the XML class and for the builder.
//
// A few entities that name each other, or one that is named very often, can make a parser work for ever, and
// not every parser refuses document type definitions when told so. What declares any is therefore not given
// to the parser.
#pragma once

#include <afxwin.h>

// Whether the document in the file declares entities. False where the file cannot be read: that is
// for the parser to say. Reads little further than to the root element; a
// prolog of more than 64 MB counts as one that does. Takes paths and addresses of files, in
// each reading that a parser may give them; a relative path also as the name of a file beside the program or
// on the system's path.
bool FileDeclaresEntities(const CString& path);

// The same for a document in memory.
bool TextDeclaresEntities(const CString& text);
