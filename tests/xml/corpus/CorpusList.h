// The list of real documents that list_documents.py makes; its head tells the format.
#pragma once

#include <filesystem>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "DocumentTree.h"

struct ListedDocument
{
    std::string path; // as the list has it: with slashes, from the root of the file system
    std::string kind;
    std::string encoding;
    size_t begin = 0; // of its lines in the list
    size_t end = 0;

    // The path as the platform takes it.
    std::wstring File() const;
    // The path as the name of a test: letters, digits and underscores.
    std::string TestName() const;
};

std::filesystem::path CorpusListFile();

// All documents of the list; none where there is no list.
const std::vector<ListedDocument>& ListedDocuments();

// What the independent parser found in a document.
struct ListedContent
{
    DocumentTree data; // as DataOf gives it
    // For nodes of the former by their index: attributes that are not written but have a default in the
    // document's DTD, and declarations of namespaces.
    std::map<size_t, std::vector<TreeAttribute>> defaults;
    std::map<size_t, std::vector<TreeAttribute>> namespaces;
};

ListedContent ContentOf(const ListedDocument& document);

// How GoogleTest names the document.
void PrintTo(const ListedDocument& document, std::ostream* out);
