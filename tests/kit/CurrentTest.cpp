#include "kit/CurrentTest.h"

#include <cstdio>

namespace testkit
{
namespace
{
char g_name[256];
char g_shown[300] = "before the first test";
} // namespace

void SetCurrentTest(const char* suite, const char* test)
{
    std::snprintf(g_name, sizeof g_name, "%s.%s", suite, test);
    std::snprintf(g_shown, sizeof g_shown, "%s", g_name);
}

void ClearCurrentTest()
{
    std::snprintf(g_shown, sizeof g_shown, "between tests, after %s", g_name);
}

const char* CurrentTest()
{
    return g_shown;
}

} // namespace testkit
