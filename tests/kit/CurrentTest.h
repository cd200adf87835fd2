// The name of the test that runs, readable at any moment and from any thread: also from one that
// reports a crash or a hang, when GoogleTest's own lock may be held.
#pragma once

namespace testkit
{

// Notes the name; longer ones than 250 characters are cut.
void SetCurrentTest(const char* suite, const char* test);
// Between tests: "between tests, after Suite.Test".
void ClearCurrentTest();
const char* CurrentTest();

} // namespace testkit
