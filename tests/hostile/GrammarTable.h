// The productions of XML 1.0 and of its namespaces, each of them broken.
#pragma once

#include <string>
#include <vector>

namespace hostile
{

enum class Verdict
{
    Loads,
    Refused,
    // Not well-formed, but taken by Wine's parser, which CXMLFile cannot make good.
    AcceptedHere
};

struct GrammarCase
{
    std::string production; // its number and name; those of namespaces begin with "NS"
    std::string document;
    Verdict verdict;
};

const std::vector<GrammarCase>& GrammarCases();

// The numbers of all productions that a document by itself can break.
const std::vector<std::string>& Productions();

} // namespace hostile
