// The run-time bindings of the two bridge libraries: a missing library removes its channel, and
// a missing function fails its call softly.

#include "channels/CFTDIExAPI32.h"
#include "channels/CI2CConnectorFTDI.h"
#include "channels/CI2CConnectorTI.h"
#include "channels/CTIExAPI32.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

const std::wstring kAbsent = L"libpaneltune-absent-bridge.so";
const std::wstring kPartial = ToWide(PARTIAL_BRIDGE_LIBRARY);

TEST(BridgeLibrary, MissingLibraryMeansNoDevicesAndNoLines) {
    CScopedVirtualClock clock;
    auto ftdi = std::make_shared<CFTDIExAPI32>(kAbsent);
    auto ti = std::make_shared<CTIExAPI32>(kAbsent);
    EXPECT_FALSE(ftdi->Load());
    EXPECT_EQ(CI2CConnectorFTDI::NumberOfDevices(*ftdi), 0u);
    EXPECT_EQ(CI2CConnectorTI::NumberOfDevices(*ti), 0);
    EXPECT_EQ(GetLastImportError(), CImportWin32API::kErrorCallNotImplemented);

    CI2CConnectorFTDI ftdiConnector(ftdi);
    CI2CConnectorTI tiConnector(ti);
    EXPECT_FALSE(ftdiConnector.Open(0L));
    EXPECT_FALSE(tiConnector.Open(0L));
}

TEST(BridgeLibrary, MissingFunctionFailsItsCallWithError120) {
    CScopedVirtualClock clock;
    auto ftdi = std::make_shared<CFTDIExAPI32>(kPartial);
    auto ti = std::make_shared<CTIExAPI32>(kPartial);
    ASSERT_TRUE(ftdi->Load());
    EXPECT_EQ(CI2CConnectorFTDI::NumberOfDevices(*ftdi), 1u);
    EXPECT_EQ(CI2CConnectorTI::NumberOfDevices(*ti), 1);

    SetLastImportError(0);
    FtHandle handle = nullptr;
    EXPECT_EQ(ftdi->FT_OpenEx(nullptr, Ft::kOpenByLocation, &handle), Ft::kNotSupported);
    EXPECT_EQ(GetLastImportError(), CImportWin32API::kErrorCallNotImplemented);

    // The location is found, the open call is not.
    CI2CConnectorFTDI ftdiConnector(ftdi);
    EXPECT_FALSE(ftdiConnector.Open(0L));
    EXPECT_FALSE(ftdiConnector.IsOpen());

    SetLastImportError(0);
    CI2CConnectorTI tiConnector(ti);
    EXPECT_FALSE(tiConnector.Open(0L));
    EXPECT_EQ(GetLastImportError(), CImportWin32API::kErrorCallNotImplemented);
    EXPECT_EQ(ti->WriteI2C(0x37, nullptr, 0), 0);
}

} // namespace
