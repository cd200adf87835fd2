#include "MenuToolTest.h"

#include <sstream>

#include "kit/Text.h"

namespace menutool
{

testkit::ProgramResult MenuToolTest::Run(const std::vector<std::wstring>& arguments)
{
    const testkit::ProgramResult result =
        testkit::RunProgram(testkit::ProgramFolder() / L"velmmenu.exe", arguments);
    EXPECT_TRUE(result.ended);
    return result;
}

std::wstring MenuToolTest::Write(std::wstring_view name, std::string_view bytes)
{
    const std::filesystem::path file = m_folder / name;
    std::filesystem::create_directories(file.parent_path());
    testkit::WriteBytes(file, bytes);
    return file.wstring();
}

std::wstring MenuToolTest::WriteBitmap(std::wstring_view name, int side, COLORREF color, COLORREF rightHalf)
{
    const auto append = [](std::string& bytes, unsigned value, int count) {
        for (int i = 0; i < count; ++i)
            bytes += static_cast<char>(value >> (8 * i));
    };
    const auto length = static_cast<unsigned>(side);
    const unsigned row = (length * 3 + 3) / 4 * 4;
    std::string bytes = "BM";
    append(bytes, 54 + row * length, 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);
    append(bytes, 40, 4);
    append(bytes, length, 4);
    append(bytes, length, 4);
    append(bytes, 1, 2);
    append(bytes, 24, 2);
    append(bytes, 0, 24);
    for (unsigned y = 0; y < length; ++y) {
        for (unsigned x = 0; x < length; ++x) {
            const COLORREF shown = rightHalf != CLR_NONE && x >= length / 2 ? rightHalf : color;
            append(bytes, GetBValue(shown), 1);
            append(bytes, GetGValue(shown), 1);
            append(bytes, GetRValue(shown), 1);
        }
        bytes.resize(54 + row * (y + 1), '\0');
    }
    return Write(name, bytes);
}

Lines MenuToolTest::Check(std::string_view text, const std::vector<std::wstring>& options)
{
    const std::wstring file = Write(L"description.xml", text);
    std::vector<std::wstring> arguments{L"check", file};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const testkit::ProgramResult result = Run(arguments);
    const std::string prefix = testkit::Utf8(file) + ":";
    Lines findings = SplitLines(result.output);
    for (std::string& finding : findings) {
        EXPECT_EQ(prefix, finding.substr(0, prefix.size()));
        finding.erase(0, prefix.size());
    }
    EXPECT_EQ(findings.empty() ? 0u : 1u, result.exitCode) << result.output;
    return findings;
}

Lines MenuToolTest::CheckMenu(std::string_view entries)
{
    return Check("<D><Menus Name='M'>\n" + std::string(entries) + "</Menus>" + CleanToolBar + "</D>");
}

Lines MenuToolTest::CheckToolBar(std::string_view entries, const std::vector<std::wstring>& options)
{
    return Check("<D>" + std::string(CleanMenu) + "<Toolbars Name='T'>\n" + std::string(entries) +
                     "</Toolbars></D>",
                 options);
}

Lines SplitLines(const std::string& text)
{
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace menutool
