// Memory that the platform's libraries hold for their callers.
#pragma once

namespace lifecycle
{

// Loads the library of COM's strings and the document model's, turns the cache of freed strings off, and puts
// counting functions in the place of those with which the two take and give back memory, for good. What was
// taken before is not counted. False where one of them takes its memory in another way.
bool StartCountingPlatformBlocks();

// COM's strings that live, whoever made them (other automation data of the same memory, too).
long long CountStrings();

// What the document model holds: documents, nodes, lists, and all that belongs to them.
long long CountDocumentBlocks();

} // namespace lifecycle
