#include "model/ModelTable.h"
#include "ddc/Connector.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

namespace {

// The simulator keeps its own model data, written apart from the program's; both must name the
// same displays, or the simulated runs would test models that do not exist.
TEST(ModelTable, TheSimulatorSimulatesExactlyTheTablesModels) {
    ASSERT_EQ(SimModels().size(), kModels.size());
    for (const SModelRow& row : kModels) {
        SCOPED_TRACE(std::string(row.name));
        const SSimModel* sim = FindSimModelByEdid(row.edidNumbers[0]);
        ASSERT_NE(sim, nullptr);
        EXPECT_EQ(sim->productId, row.productId);
        EXPECT_EQ(sim->edidNumbers, row.edidNumbers);
        const struct {
            ESimChannel simChannel;
            EChannelGroup group;
        } channels[] = {{ESimChannel::eSerial, EChannelGroup::eSerial},
                        {ESimChannel::eFtdi, EChannelGroup::eFtdi},
                        {ESimChannel::eTi, EChannelGroup::eTi},
                        {ESimChannel::eHid, EChannelGroup::eHid}};
        for (const auto& c : channels) {
            EXPECT_EQ((sim->group & SimChannelBit(c.simChannel)) != 0,
                      IsInChannelGroup(c.group, row.edidNumbers[0]))
                << SimChannelName(c.simChannel);
        }
        EXPECT_EQ(sim->builtIn, IsInChannelGroup(EChannelGroup::eBuiltIn, row.edidNumbers[0]));
    }
}

} // namespace
