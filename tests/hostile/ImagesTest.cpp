// The headers and import tables of what is handed out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <stdexcept>

#include "kit/Files.h"
#include "kit/Platform.h"

namespace
{

// A program or library as a file, for 64 bits.
class Image
{
public:
    explicit Image(const std::wstring& name) : m_bytes(testkit::ReadBytes(testkit::ProgramFolder() / name))
    {
        const auto& dos = At<IMAGE_DOS_HEADER>(0);
        m_headers = &At<IMAGE_NT_HEADERS64>(static_cast<size_t>(dos.e_lfanew));
        if (m_headers->Signature != IMAGE_NT_SIGNATURE ||
            m_headers->OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC)
            throw std::runtime_error("no image for 64 bits");
        const auto* first = IMAGE_FIRST_SECTION(m_headers);
        m_sections.assign(first, first + m_headers->FileHeader.NumberOfSections);
    }

    WORD FileFlags() const { return m_headers->FileHeader.Characteristics; }
    WORD Flags() const { return m_headers->OptionalHeader.DllCharacteristics; }
    const std::vector<IMAGE_SECTION_HEADER>& Sections() const { return m_sections; }
    DWORD SizeOf(int directory) const { return m_headers->OptionalHeader.DataDirectory[directory].Size; }

    // The names of all imported functions; those by number are left out.
    std::set<std::string> Imports() const
    {
        std::set<std::string> names;
        const DWORD start =
            m_headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (size_t at = OffsetOf(start);; at += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto& import = At<IMAGE_IMPORT_DESCRIPTOR>(at);
            if (import.Name == 0)
                return names;
            for (size_t thunk = OffsetOf(import.OriginalFirstThunk);; thunk += sizeof(ULONGLONG)) {
                const auto entry = At<ULONGLONG>(thunk);
                if (entry == 0)
                    break;
                if (!IMAGE_SNAP_BY_ORDINAL64(entry))
                    names.insert(m_bytes.c_str() + OffsetOf(static_cast<DWORD>(entry)) + sizeof(WORD));
            }
        }
    }

private:
    template <class T>
    const T& At(size_t offset) const
    {
        if (offset + sizeof(T) > m_bytes.size())
            throw std::runtime_error("the image is cut off");
        return *reinterpret_cast<const T*>(m_bytes.data() + offset);
    }

    size_t OffsetOf(DWORD address) const
    {
        for (const IMAGE_SECTION_HEADER& section : m_sections) {
            if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData)
                return address - section.VirtualAddress + section.PointerToRawData;
        }
        throw std::runtime_error("an address outside the image");
    }

    std::string m_bytes;
    const IMAGE_NT_HEADERS64* m_headers = nullptr;
    std::vector<IMAGE_SECTION_HEADER> m_sections;
};

std::vector<std::wstring> OwnLibraries()
{
    return {L"VelmUtil22.dll", L"CorvanUtil22.dll"};
}

std::vector<std::wstring> OwnImages()
{
    std::vector<std::wstring> names = OwnLibraries();
    names.insert(names.end(), {L"velmhost.exe", L"velmmenu.exe", L"SampleAddin.arx"});
#ifdef TESTKIT_WITH_MFC
    if (std::filesystem::exists(testkit::ProgramFolder() / L"VelmAfx22.dll"))
        names.push_back(L"VelmAfx22.dll");
#endif
    return names;
}

std::string Narrow(const std::wstring& name)
{
    return std::string(name.begin(), name.end());
}

} // namespace

TEST(OwnImages, MayLieAnywhereInTheWholeAddressSpaceAndRunNoData)
{
    for (const std::wstring& name : OwnImages()) {
        SCOPED_TRACE(Narrow(name));
        const Image image(name);
        EXPECT_TRUE(image.Flags() & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
        EXPECT_TRUE(image.Flags() & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
        EXPECT_TRUE(image.Flags() & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA);
        EXPECT_TRUE(image.FileFlags() & IMAGE_FILE_LARGE_ADDRESS_AWARE);
    }
}

// Without the table the loader could not move them, whatever the flags say.
TEST(OwnImages, HaveTheTableByWhichTheyAreMoved)
{
    for (const std::wstring& name : OwnImages()) {
        SCOPED_TRACE(Narrow(name));
        const Image image(name);
        EXPECT_FALSE(image.FileFlags() & IMAGE_FILE_RELOCS_STRIPPED);
        EXPECT_GT(image.SizeOf(IMAGE_DIRECTORY_ENTRY_BASERELOC), 8u);
    }
}

TEST(OwnImages, HaveNoSectionThatIsBothWrittenAndRun)
{
    for (const std::wstring& name : OwnImages()) {
        SCOPED_TRACE(Narrow(name));
        const Image image(name);
        for (const IMAGE_SECTION_HEADER& section : image.Sections()) {
            const DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
            EXPECT_NE(section.Characteristics & both, both)
                << std::string(reinterpret_cast<const char*>(section.Name), 8).c_str();
        }
    }
}

// So no name from outside can reach them: the libraries load modules by their import tables alone, and those
// that they share with the host by COM, from where it is registered.
TEST(OwnLibraries, CallNothingThatLoadsStartsOrConnects)
{
    for (const std::wstring& name : OwnLibraries()) {
        SCOPED_TRACE(Narrow(name));
        const std::set<std::string> imports = Image(name).Imports();
        EXPECT_FALSE(imports.empty());
        for (const std::string& import : imports) {
            for (const char* forbidden : {"LoadLibrary",
                                          "LoadModule",
                                          "LoadPackagedLibrary",
                                          "LdrLoadDll",
                                          "SetDllDirectory",
                                          "AddDllDirectory",
                                          "SetDefaultDllDirectories",
                                          "CreateProcess",
                                          "ShellExecute",
                                          "WinExec",
                                          "_wsystem",
                                          "_popen",
                                          "_wpopen",
                                          "_spawn",
                                          "_wspawn",
                                          "_exec",
                                          "_wexec",
                                          "Internet",
                                          "HttpOpen",
                                          "URLDownload",
                                          "URLOpen",
                                          "WSAStartup",
                                          "CoGetObject",
                                          "MkParseDisplayName"})
                EXPECT_EQ(import.find(forbidden), std::string::npos) << import;
            EXPECT_NE(import, "system");
            EXPECT_NE(import, "connect");
            EXPECT_NE(import, "socket");
        }
    }
}

TEST(OwnLibraries, AreReadRight)
{
    const std::set<std::string> imports = Image(L"VelmUtil22.dll").Imports();
    EXPECT_TRUE(imports.contains("GetModuleHandleW"));
    EXPECT_TRUE(imports.contains("CoCreateInstance"));
}
