#include "foundation/StringUtilities.h"
#include "resources/CResourceModule.h"
#include "resources/LanguageProvider.h"
#include "resources/ResourceLookup.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

namespace {

// The simulator is written without the resources, yet a simulated display must show the same
// model number in its EDID as the resources give its product, and be a product they know.
TEST(SimulatedModels, CarryTheModelNumbersAndProductsOfTheResourceGroups) {
    const uint16_t english = LanguageProvider("en").mLanguage.languageId;
    for (const SSimModel& model : SimModels()) {
        SCOPED_TRACE(model.name);
        EXPECT_EQ(
            ToNarrow(GetGroupString("2101", model.productId, english, false, ProgramResources())),
            model.displayName);
        EXPECT_FALSE(
            GetGroupString("2000", model.productId, english, false, ProgramResources()).empty());
    }
}

} // namespace
