// What a load takes of memory and of the stack, in a process of its own, for documents that are made to take
// much.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "kit/ChildProgram.h"
#include "kit/Depth.h"
#include "kit/Files.h"
#include "kit/Watchdog.h"

namespace
{

// docs/xml.md states them: a load takes no more than this for each byte of the file, and what any load takes.
constexpr unsigned long long MostForAByte = 100;
constexpr unsigned long long MostBesides = 8 * 1024 * 1024;
// The same with the text of the whole document.
constexpr unsigned long long MostForAByteAsText = 2 * MostForAByte;

std::string Times(std::string_view part, size_t count)
{
    std::string text;
    text.reserve(part.size() * count);
    while (count-- > 0)
        text += part;
    return text;
}

struct LoadResult
{
    std::string outcome; // "loaded" or "refused"
    unsigned long long peak = 0;
};

class LoadMemory : public testing::Test
{
protected:
    LoadMemory() { testkit::AllowTime(300); }

    LoadResult Load(const std::string& document, bool asText = false)
    {
        testkit::WriteBytes(m_folder / L"document.xml", document);
        std::vector<std::wstring> arguments{(m_folder / L"document.xml").wstring()};
        if (asText)
            arguments.push_back(L"text");
        const testkit::ProgramResult result =
            testkit::RunProgram(testkit::ProgramFolder() / L"hostile_load.exe", arguments, 120'000);
        EXPECT_TRUE(result.ended);
        EXPECT_EQ(result.exitCode, 0u) << result.output;
        LoadResult loaded;
        std::istringstream(result.output) >> loaded.outcome >> loaded.peak;
        EXPECT_GT(loaded.peak, 0u) << result.output;
        return loaded;
    }

    // What the process has for a document of no size.
    unsigned long long Base()
    {
        if (m_base == 0)
            m_base = Load("<r/>").peak;
        return m_base;
    }

    // Loads it and holds what that took against the bound.
    void ExpectInProportion(const std::string& document, const char* outcome, const char* what)
    {
        SCOPED_TRACE(what);
        const LoadResult loaded = Load(document);
        EXPECT_EQ(loaded.outcome, outcome);
        const unsigned long long taken = loaded.peak > Base() ? loaded.peak - Base() : 0;
        EXPECT_LE(taken, MostForAByte * document.size() + MostBesides);
        testkit::Figure(std::string("bytes of memory per byte of a file: ") + what, taken / document.size());
    }

    testkit::TempFolder m_folder;

private:
    unsigned long long m_base = 0;
};

const size_t Size = testkit::ByDepth(500'000, 2'000'000);

} // namespace

TEST_F(LoadMemory, GrowsWithTheFileAtMost)
{
    ExpectInProportion("<r>" + std::string(Size, 'x') + "</r>", "loaded", "one text");
    ExpectInProportion("<r>" + Times("<a/>", Size / 4) + "</r>", "loaded", "empty elements");
    ExpectInProportion("<r>" + Times("a<b/>", Size / 5) + "</r>", "loaded", "texts between elements");
    ExpectInProportion("<r>" + Times("<a b=''/>", Size / 9) + "</r>", "loaded", "empty attributes");
    ExpectInProportion("<r>" + Times("<a b='c'/>", Size / 10) + "</r>", "loaded", "attributes");
    ExpectInProportion("<r>" + Times("<?p?>", Size / 5) + "</r>", "loaded", "processing instructions");
    ExpectInProportion("<r>" + Times("<a xmlns='b'/>", Size / 14) + "</r>", "loaded", "namespaces");
    ExpectInProportion("<!--" + std::string(Size, 'x') + "--><r/>", "loaded", "a long prolog");
}

TEST_F(LoadMemory, DoesNotGrowByWhatADocumentDeclares)
{
    const std::string text(Size / 4, 'x');
    ExpectInProportion("<!DOCTYPE r [<!ENTITY e '" + text + "'>]><r>" + Times("&e;", Size / 4) + "</r>",
                       "refused", "one entity, used often");
    std::string nested = "<!ENTITY e0 'x'>";
    for (int i = 1; i < 30; ++i)
        nested +=
            "<!ENTITY e" + std::to_string(i) + " '" + Times("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    ExpectInProportion("<!DOCTYPE r [" + nested + "]><r>&e29;</r>", "refused", "nested entities");
    ExpectInProportion(
        "<!DOCTYPE r [<!ATTLIST a b CDATA '" + text + "'>]><r>" + Times("<a/>", Size / 4) + "</r>",
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") ? "loaded" : "refused",
        "one default, used often");
}

TEST_F(LoadMemory, OfADocumentThatIsRefusedIsInProportionToo)
{
    ExpectInProportion(Times("<a>", 200'000), "refused", "levels, not closed");
    ExpectInProportion(Times("<a>", 200'000) + Times("</a>", 200'000), "refused", "levels");
    ExpectInProportion("<!DOCTYPE r [<!ELEMENT r " + Times("(", 200'000) + "a" + Times(")", 200'000) +
                           ">]><r/>",
                       "refused", "parentheses");
    ExpectInProportion("<!DOCTYPE r [" + Times("<![IGNORE[", 200'000) + Times("]]>", 200'000) + "]><r/>",
                       "refused", "nested sections");
    ExpectInProportion(std::string(Size, '<'), "refused", "opening brackets");
    ExpectInProportion("<" + std::string(Size, 'a') + ">", "refused", "one name");
    ExpectInProportion("<r a='" + std::string(Size, 'x'), "refused", "one value, not closed");
    ExpectInProportion("<r>" + Times("<a>", 200) + Times("<b/>", Size / 4), "refused",
                       "elements, not closed");
}

// The parser puts every element on a line of its own, with tabs before it.
TEST_F(LoadMemory, OfTheTextOfADocumentIsInProportionToo)
{
    const std::string document = Times("<a>", 250) + Times("<b/>", Size / 4) + Times("</a>", 250);
    const LoadResult loaded = Load(document, true);
    EXPECT_EQ(loaded.outcome, "loaded");
    ASSERT_GT(loaded.peak, Base());
    const unsigned long long taken = loaded.peak - Base();
    EXPECT_LE(taken, MostForAByteAsText * document.size() + MostBesides);
    testkit::Figure("bytes of memory per byte of a file: deep, with its text", taken / document.size());
}

// The platform's parser stops at 256 levels below the root, so nothing here goes deeper by itself.
TEST_F(LoadMemory, DepthHasALimitOnWhichTheStackDoesNotEnd)
{
    EXPECT_EQ(Load(Times("<a>", 256) + Times("</a>", 256)).outcome, "loaded");
    for (const size_t depth : {258u, 10'000u, 1'000'000u})
        EXPECT_EQ(Load(Times("<a>", depth) + Times("</a>", depth)).outcome, "refused") << depth;
}
