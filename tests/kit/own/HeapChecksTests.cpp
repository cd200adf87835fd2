// What a test program prints when it misuses memory.
#include "kit/HeapChecks.h"

#ifdef __MINGW32__

#include "FailingProgram.h"
#include "kit/Endings.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{

testkit::ProgramResult RunGuarded(const std::wstring& test, const wchar_t* wineDebug = L"-all")
{
    const ChildEnvironment guard(L"VELM_GUARD_HEAP", L"1");
    return RunFailing(L"FailingHeap." + test, L"30", wineDebug);
}

struct Case
{
    const wchar_t* test;
    const char* kind;                // what is wrong
    const char* place;               // where it is
    const char* culprit;             // whose call is wrong
    const char* first = "MakeBlock"; // who made the block, or freed it first
};

void ExpectMisuse(const Case& example)
{
    const testkit::ProgramResult result = RunGuarded(example.test);
    EXPECT_EQ(result.exitCode, testkit::ExitHeapMisuse);
    EXPECT_THAT(result.output, AllOf(HasSubstr("HEAP MISUSE in test FailingHeap."), HasSubstr(example.kind),
                                     HasSubstr(example.place), HasSubstr(example.culprit),
                                     HasSubstr("made by\n"), HasSubstr(example.first),
                                     HasSubstr("HeapCulprits.cpp:"), Not(HasSubstr("HeapTracker.cpp:"))));
}

TEST(HeapChecks, LetAProgramPassThatBehaves)
{
    const testkit::ProgramResult result = RunGuarded(L"Behaves");
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_THAT(result.output, HasSubstr("FIGURE heap blocks against a guard page: 100.000 %"));
}

TEST(HeapChecks, AreOffWhereTheEnvironmentSaysSo)
{
    const ChildEnvironment guard(L"VELM_GUARD_HEAP", L"0");
    const testkit::ProgramResult result = RunFailing(L"FailingHeap.WritesIntoThePadding");
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_THAT(result.output, Not(HasSubstr("FIGURE")));
}

TEST(HeapChecks, EndAProgramThatGoesBeyondABlock)
{
    const testkit::ProgramResult result = RunGuarded(L"WritesPastThePadding");
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("CRASH in test FailingHeap."), HasSubstr("write of 0x"), HasSubstr("WriteTo"),
                      HasSubstr("is 11 bytes behind the end of a block of 21 bytes, made by\n"),
                      HasSubstr("MakeBlock"), Not(HasSubstr("freed by"))));
}

TEST(HeapChecks, EndAProgramThatUsesAFreedBlock)
{
    const testkit::ProgramResult result = RunGuarded(L"ReadsAfterFree");
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("CRASH in test FailingHeap.ReadsAfterFree"), HasSubstr("read of 0x"),
                      HasSubstr("ReadFrom"), HasSubstr("is 3 bytes into a block of 21 bytes, made by\n"),
                      HasSubstr("MakeBlock"), HasSubstr("freed by\n"), HasSubstr("FreeBlock")));
}

TEST(HeapChecks, SeeAFreedBlockBeforeThePlatformGoesOnAsIfNothingWere)
{
    const testkit::ProgramResult result = RunGuarded(L"ReadsAfterFreeInAPaint");
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output, AllOf(HasSubstr("ReadInPaint"), HasSubstr("is 0 bytes into a block of 21")));
}

TEST(HeapChecks, FindAWriteIntoThePaddingWhenTheBlockIsFreed)
{
    ExpectMisuse({L"WritesIntoThePadding", "write behind the end of a block",
                  "is 0 bytes behind the end of a block of 21 bytes", "FreeBlock"});
}

TEST(HeapChecks, FindDamageOfALivingBlockAtTheEndOfTheTest)
{
    ExpectMisuse({L"WritesIntoThePaddingOfABlockThatItKeeps", "write behind the end of a block",
                  "is 0 bytes behind the end of a block of 21 bytes", "MakeBlock"});
}

TEST(HeapChecks, EndAProgramThatFreesTwice)
{
    ExpectMisuse({L"FreesTwice", "call with a block that was freed before",
                  "is 0 bytes into a block of 21 bytes", "FreeBlock", "freed by\n"});
}

TEST(HeapChecks, SeeNewAndDeleteToo)
{
    const testkit::ProgramResult result = RunGuarded(L"DeletesTwice");
    EXPECT_EQ(result.exitCode, testkit::ExitHeapMisuse);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("call with a block that was freed before"), HasSubstr("a block of 4 bytes"),
                      HasSubstr("freed by\n"), HasSubstr("FailingHeapTests.cpp:")));
}

TEST(HeapChecks, EndAProgramThatFreesWhatIsNoBlock)
{
    const testkit::ProgramResult result = RunGuarded(L"FreesWhatIsNoBlock");
    EXPECT_EQ(result.exitCode, testkit::ExitHeapMisuse);
    EXPECT_THAT(result.output, AllOf(HasSubstr("no block of the heap"), HasSubstr("FreeBlock"),
                                     HasSubstr("FreesWhatIsNoBlock")));
}

TEST(HeapChecks, EndAProgramThatReallocatesAFreedBlock)
{
    ExpectMisuse({L"ReallocatesAfterFree", "call with a block that was freed before",
                  "is 0 bytes into a block of 21 bytes", "ReallocateBlock", "freed by\n"});
}

TEST(HeapChecks, EndAProgramThatFreesWithTheOtherFunction)
{
    ExpectMisuse({L"FreesWithTheOtherFunction", "given to _aligned_free",
                  "is 0 bytes into a block of 21 bytes", "FreeAlignedBlock"});
}

TEST(HeapChecks, EndAProgramThatLeavesThePlatformsHeapDamaged)
{
    const testkit::ProgramResult result = RunGuarded(L"WritesBetweenBlocksOfThePlatform");
    EXPECT_EQ(result.exitCode, testkit::ExitHeapMisuse);
    EXPECT_THAT(result.output,
                HasSubstr("HEAP DAMAGED after test FailingHeap.WritesBetweenBlocksOfThePlatform"));
}

// Elsewhere than under Wine, the platform's own checking is switched on for a program in the registry.
TEST(HeapChecks, HaveThePlatformLookAtTheEdgesOfItsOwnBlocks)
{
    if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) {
        GTEST_SKIP() << "the environment does not change the platform's heap here";
    }
    for (const wchar_t* const test :
         {L"WritesOneByteBehindABlockOfThePlatform", L"WritesToAFreedBlockOfThePlatform"})
    {
        EXPECT_EQ(RunGuarded(test).exitCode, 0u) << "this would be found without";
        const testkit::ProgramResult result = RunGuarded(test, L"-all,err+heap,warn+heap");
        EXPECT_EQ(result.exitCode, testkit::ExitHeapMisuse);
        EXPECT_THAT(result.output, HasSubstr("HEAP DAMAGED after test FailingHeap."));
    }
}

} // namespace

#endif
