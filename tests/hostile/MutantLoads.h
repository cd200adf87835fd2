// What CXMLFile makes of one document, good or bad.
#pragma once

#include "MemoryResource.h"
#include "MutantTest.h"
#include "kit/Files.h"

namespace hostile
{

class MutantLoads : public MutantTest
{
protected:
    // Loads `count` mutants of the kind, from files and from resources in turns, and prints how many were
    // well-formed.
    void LoadMutants(MutationKind kind, unsigned long long count);

private:
    void Load(const std::string& mutant, bool fromResource);
    void ExpectEmptyAndUsable(CXMLFile& file);
    void ExpectReadable(CXMLFile& file, size_t size);
    void ExpectSameWhenSaved(CXMLFile& file, size_t size);

    testkit::TempFolder m_folder;
    MemoryResource m_resource;
    unsigned long long m_loaded = 0;
    unsigned long long m_unsaved = 0;
};

} // namespace hostile
