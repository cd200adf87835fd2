// What the builder makes of one description, good or bad, in the reference host.
#pragma once

#include "MemoryResource.h"
#include "MutantTest.h"

namespace hostile
{

class MutantBuilds : public MutantTest
{
protected:
    ~MutantBuilds() override;

    // Builds `count` mutants of the kind, from texts and from resources in turns, and prints how many were
    // well-formed.
    void BuildMutants(MutationKind kind, unsigned long long count);

private:
    void Build(const std::string& mutant, bool fromResource);

    MemoryResource m_resource;
    unsigned long long m_built = 0;
    unsigned long long m_refused = 0;
};

} // namespace hostile
