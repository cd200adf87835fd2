// Tests that misuse memory, each in one way; for the tests of the guard heap to run.

#include "HeapCulprits.h"
#include "kit/Platform.h"

#include <gtest/gtest.h>

namespace
{

char g_noBlock[64];
volatile char g_read = 0;

TEST(FailingHeap, Behaves)
{
    FreeBlock(MakeBlock(21));
}

TEST(FailingHeap, WritesPastThePadding)
{
    char* const block = MakeBlock(21);
    WriteTo(block + 32);
    FreeBlock(block);
}

TEST(FailingHeap, WritesIntoThePadding)
{
    char* const block = MakeBlock(21);
    WriteTo(block + 21);
    FreeBlock(block);
}

TEST(FailingHeap, WritesIntoThePaddingOfABlockThatItKeeps)
{
    static char* const block = MakeBlock(21);
    WriteTo(block + 21);
}

TEST(FailingHeap, ReadsAfterFree)
{
    char* const block = MakeBlock(21);
    FreeBlock(block);
    g_read = ReadFrom(block + 3);
}

LRESULT CALLBACK ReadInPaint(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_PAINT) {
        char* const block = MakeBlock(21);
        FreeBlock(block);
        g_read = ReadFrom(block);
    }
    return DefWindowProcW(window, message, first, second);
}

TEST(FailingHeap, ReadsAfterFreeInAPaint)
{
    WNDCLASSW type{};
    type.lpfnWndProc = ReadInPaint;
    type.lpszClassName = L"testkit.heap";
    RegisterClassW(&type);
    const HWND window = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                        nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(window);
    DestroyWindow(window);
}

TEST(FailingHeap, FreesTwice)
{
    char* const block = MakeBlock(21);
    FreeBlock(block);
    FreeBlock(block);
}

TEST(FailingHeap, DeletesTwice)
{
    int* volatile number = new int;
    delete number;
    delete number;
}

TEST(FailingHeap, FreesWhatIsNoBlock)
{
    FreeBlock(g_noBlock + 16);
}

TEST(FailingHeap, ReallocatesAfterFree)
{
    char* const block = MakeBlock(21);
    FreeBlock(block);
    ReallocateBlock(block, 40);
}

TEST(FailingHeap, FreesWithTheOtherFunction)
{
    FreeAlignedBlock(MakeBlock(21));
}

// The platform keeps its own notes between its blocks.
TEST(FailingHeap, WritesBetweenBlocksOfThePlatform)
{
    char* const block = static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 24));
    for (char* address = block + 24; address < block + 64; ++address) {
        WriteTo(address);
    }
}

TEST(FailingHeap, WritesOneByteBehindABlockOfThePlatform)
{
    WriteTo(static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 24)) + 24);
}

TEST(FailingHeap, WritesToAFreedBlockOfThePlatform)
{
    char* const block = static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 240));
    HeapFree(GetProcessHeap(), 0, block);
    WriteTo(block + 100);
}

} // namespace
