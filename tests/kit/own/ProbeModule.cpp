// A module that is loaded in the middle of a test and allocates, also while it is being loaded.

#include <cstdlib>

namespace
{

struct MadeAtLoad
{
    void* block = std::malloc(10);
    ~MadeAtLoad() { std::free(block); }
} g_madeAtLoad;

} // namespace

extern "C" __declspec(dllexport) void* ProbeMakeBlock()
{
    return std::malloc(100);
}

extern "C" __declspec(dllexport) void ProbeFreeBlock(void* block)
{
    std::free(block);
}

extern "C" __declspec(dllexport) void* ProbeBlockOfLoad()
{
    return g_madeAtLoad.block;
}
