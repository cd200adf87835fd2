#include "Corpus.h"

#include <algorithm>
#include <filesystem>

#include "kit/Files.h"
#include "kit/Text.h"
#include "velmmenu/Starter.h"
#include "xml/corpus/CorpusList.h"

namespace hostile
{

namespace
{

std::vector<Seed> ReadForeignDocuments()
{
    std::vector<Seed> seeds;
    for (const ListedDocument& document : ListedDocuments()) {
        const std::filesystem::path file = document.File();
        std::error_code unreadable;
        if (std::filesystem::file_size(file, unreadable) <= LongestSeed && !unreadable)
            seeds.push_back({document.path, testkit::ReadBytes(file)});
    }
    return seeds;
}

void AddFiles(std::vector<Seed>& seeds, const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == L".xml")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files)
        seeds.push_back({testkit::Utf8(file.filename().wstring()), testkit::ReadBytes(file)});
}

std::vector<Seed> ReadDescriptions()
{
    const std::filesystem::path root =
        (testkit::ProgramFolder() / testkit::Wide(VELM_SOURCE_FOLDER)).lexically_normal();
    std::vector<Seed> seeds{{"velmmenu new", testkit::Utf8(velmmenu::StarterText)}};
    for (const wchar_t* folder : {L"samples/SampleAddin", L"tests/consumer", L"tests/velmmenu/files/good",
                                  L"tests/velmmenu/files/bad"})
        AddFiles(seeds, root / folder);
    return seeds;
}

} // namespace

const std::vector<Seed>& ForeignDocuments()
{
    static const std::vector<Seed> seeds = ReadForeignDocuments();
    return seeds;
}

const std::vector<Seed>& Descriptions()
{
    static const std::vector<Seed> seeds = ReadDescriptions();
    return seeds;
}

} // namespace hostile
