#include "CorpusList.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "kit/Files.h"
#include "kit/Text.h"

namespace
{

// Takes the next field off a line; the last one ends with it.
std::string_view TakeField(std::string_view& line)
{
    const size_t end = std::min(line.find('\t'), line.size());
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return field;
}

std::wstring Unescaped(std::string_view field)
{
    std::string text;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            text += field[i];
            continue;
        }
        if (++i == field.size())
            throw std::runtime_error("the list has a backslash with nothing behind it");
        text += field[i] == 't' ? '\t' : field[i] == 'n' ? '\n' : field[i] == 'r' ? '\r' : field[i];
    }
    return testkit::Wide(text);
}

std::vector<ListedDocument> ReadHeads()
{
    std::vector<ListedDocument> documents;
    std::ifstream stream(CorpusListFile(), std::ios::binary);
    size_t offset = 0;
    for (std::string text; std::getline(stream, text);) {
        std::string_view line = text;
        if (TakeField(line) == "document") {
            ListedDocument& document = documents.emplace_back();
            document.path = TakeField(line);
            document.kind = TakeField(line);
            document.encoding = TakeField(line);
            document.begin = offset + text.size() + 1;
        }
        offset += text.size() + 1;
        if (!documents.empty())
            documents.back().end = offset;
    }
    return documents;
}

DOMNodeType TypeOf(std::string_view fact)
{
    static const std::map<std::string_view, DOMNodeType> types = {{"element", NODE_ELEMENT},
                                                                  {"text", NODE_TEXT},
                                                                  {"cdata", NODE_CDATA_SECTION},
                                                                  {"reference", NODE_ENTITY_REFERENCE}};
    const auto found = types.find(fact);
    if (found == types.end())
        throw std::runtime_error("the list has a line that is none of its kinds: " + std::string(fact));
    return found->second;
}

void AddLine(ListedContent& content, std::string_view line)
{
    const std::string_view fact = TakeField(line);
    const std::string_view first = TakeField(line);
    const size_t last = content.data.size() - 1;
    if (fact == "attribute") {
        content.data[last].attributes.push_back({testkit::Wide(first), Unescaped(line)});
    } else if (fact == "default") {
        content.defaults[last].push_back({testkit::Wide(first), Unescaped(line)});
    } else if (fact == "namespace") {
        content.namespaces[last].push_back({testkit::Wide(first), Unescaped(line)});
    } else {
        TreeNode& node = content.data.emplace_back();
        node.type = TypeOf(fact);
        node.depth = std::stoi(std::string(first)) + (node.type == NODE_ELEMENT ? 0 : 1);
        if (node.type == NODE_ELEMENT) {
            node.name = testkit::Wide(TakeField(line));
            node.space = Unescaped(line);
        } else {
            (node.type == NODE_ENTITY_REFERENCE ? node.name : node.text) = Unescaped(line);
        }
    }
}

} // namespace

std::wstring ListedDocument::File() const
{
    std::wstring file = L"Z:" + testkit::Wide(path); // Wine's drive for the whole file system
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return file;
}

std::string ListedDocument::TestName() const
{
    std::string name;
    for (const char c : path) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (isPlain || !name.empty())
            name += isPlain ? c : '_';
    }
    return name;
}

std::filesystem::path CorpusListFile()
{
    return (testkit::ProgramFolder() / testkit::Wide(VELM_CORPUS_LIST)).lexically_normal();
}

const std::vector<ListedDocument>& ListedDocuments()
{
    static const std::vector<ListedDocument> documents = ReadHeads();
    return documents;
}

ListedContent ContentOf(const ListedDocument& document)
{
    std::ifstream stream(CorpusListFile(), std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(document.begin));
    std::string bytes(document.end - document.begin, '\0');
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw std::runtime_error("the list has become shorter");
    ListedContent content;
    for (std::string_view rest = bytes; !rest.empty();) {
        const size_t end = std::min(rest.find('\n'), rest.size());
        AddLine(content, rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    SortAttributes(content.data);
    return content;
}

void PrintTo(const ListedDocument& document, std::ostream* out)
{
    *out << document.path;
}
