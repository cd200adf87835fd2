// References to documents that the library has created.
#pragma once

namespace lifecycle
{

// From now on keeps a reference of its own to each document that the library creates, for good.
bool StartCountingDocumentReferences();

// Gives its own references back and tells how many of others there are. Documents that have none are gone
// then; of the others it keeps a reference again.
long long CountDocumentReferences();

} // namespace lifecycle
