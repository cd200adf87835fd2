// Mutants of real documents and descriptions: nothing that they hold may crash the library, make it run for
// ever, or keep what it was given.
#include "MutantBuilds.h"
#include "MutantLoads.h"

using namespace hostile;

namespace
{

// In the deep run, 200,000 in all.
unsigned long long Loads()
{
    return testkit::ByDepth(200, 20'000);
}

unsigned long long Builds()
{
    return testkit::ByDepth(600, 30'000);
}

} // namespace

class ByteMutantLoads : public MutantLoads
{
};
class TagMutantLoads : public MutantLoads
{
};
class AttributeMutantLoads : public MutantLoads
{
};
class EncodingMutantLoads : public MutantLoads
{
};

TEST_F(ByteMutantLoads, GiveWhatIsStated)
{
    LoadMutants(MutationKind::Bytes, Loads());
}

TEST_F(TagMutantLoads, GiveWhatIsStated)
{
    LoadMutants(MutationKind::Tags, Loads());
}

TEST_F(AttributeMutantLoads, GiveWhatIsStated)
{
    LoadMutants(MutationKind::Attributes, Loads());
}

TEST_F(EncodingMutantLoads, GiveWhatIsStated)
{
    LoadMutants(MutationKind::Encodings, Loads());
}

class ByteMutantBuilds : public MutantBuilds
{
};
class TagMutantBuilds : public MutantBuilds
{
};
class AttributeMutantBuilds : public MutantBuilds
{
};
class EncodingMutantBuilds : public MutantBuilds
{
};

TEST_F(ByteMutantBuilds, AreFiniteAndBalanced)
{
    BuildMutants(MutationKind::Bytes, Builds());
}

TEST_F(TagMutantBuilds, AreFiniteAndBalanced)
{
    BuildMutants(MutationKind::Tags, Builds());
}

TEST_F(AttributeMutantBuilds, AreFiniteAndBalanced)
{
    BuildMutants(MutationKind::Attributes, Builds());
}

TEST_F(EncodingMutantBuilds, AreFiniteAndBalanced)
{
    BuildMutants(MutationKind::Encodings, Builds());
}
