// Puts the references that clients hold to the host's automation objects under the leak gate.
#include <gtest/gtest.h>

#include "automation/AutomatedHostApp.h"
#include "automation/HostAutomation.h"
#include "kit/LeakGate.h"

namespace
{

class ReferenceGate : public testing::Environment
{
public:
    void SetUp() override
    {
        auto* const app = dynamic_cast<velmhost::CAutomatedHostApp*>(AfxGetApp());
        ASSERT_NE(nullptr, app);
        velmhost::HostAutomation& automation = app->Automation();
        testkit::AddCounter("objects of the host's automation", [&] { return automation.LiveObjects(); });
        testkit::AddCounter("references to the host's application",
                            [&] { return automation.ApplicationReferences(); });
    }
};

testing::Environment* const referenceGate = testing::AddGlobalTestEnvironment(new ReferenceGate);

} // namespace
