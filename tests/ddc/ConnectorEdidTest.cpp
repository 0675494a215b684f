#include "support/CFakeConnector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct SDescriptor {
    uint8_t tag;
    std::string text; // up to 13 bytes
};

// A 128-byte base block whose display descriptors start at byte 54, in the order given, each
// text padded with blanks as EDIDs have them.
ByteVector MakeEdid(const std::vector<SDescriptor>& descriptors_I) {
    ByteVector edid = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x59, 0x1E, 0x41, 0x10};
    edid.resize(128, 0x00);
    size_t at = 54;
    for (const auto& d : descriptors_I) {
        const ByteVector head = {0x00, 0x00, 0x00, d.tag, 0x00};
        std::copy(head.begin(), head.end(), edid.begin() + at);
        std::fill_n(edid.begin() + at + head.size(), 13, ' ');
        std::copy(d.text.begin(), d.text.end(), edid.begin() + at + head.size());
        at += 18;
    }
    return edid;
}

ByteVector Raw(std::initializer_list<uint8_t> bytes_I) {
    return ByteVector(bytes_I);
}

struct SEdidCase {
    std::string name;
    ByteVector edid;
    std::string monitorName;
    std::string serialNumber;
};

constexpr uint32_t kSid = 0x0F5E0304;

} // namespace

TEST(ConnectorEdid, NameRunsToZeroAndSerialToTheFirstUnprintableByte) {
    const SEdidCase cases[] = {
        {"full thirteen bytes run into the next descriptor",
         MakeEdid({{0xFC, "ABCDEFGHIJKLM"}, {0xFF, "0123456789012"}, {0x10, ""}}), "ABCDEFGHIJKLM",
         "0123456789012"},
        {"trailing white space goes, leading stays",
         MakeEdid({{0xFC, " Panel\t\r"}, {0xFF, " SN1 \n"}}), " Panel", " SN1"},
        {"a control byte ends the serial but not the name",
         MakeEdid({{0xFC, "Pan\x01"
                          "el\n"},
                   {0xFF, "SN\x01X\n"}}),
         "Pan\x01"
         "el",
         "SN"},
        {"bytes above the tilde end the serial but not the name",
         MakeEdid({{0xFC, "\xC4nder\n"},
                   {0xFF, "A~\x7F"
                          "CD"}}),
         "\xC4nder", "A~"},
        {"no descriptors", MakeEdid({}), "", ""},
        {"cut right behind the header", Raw({0x00, 0x00, 0xFC, 0x00}), "", ""},
        {"cut inside the text", Raw({0x00, 0x00, 0xFC, 0x00, 'A', 'B'}), "AB", ""},
        {"short serial", Raw({0x00, 0x00, 0xFF, 0x00, 'S', '1'}), "", "S1"},
        {"descriptor tag without its leading zeros", Raw({0x01, 0xFC, 0x00, 'A'}), "", ""},
        // The first header ends the search, even inside a timing block.
        {"tag inside a timing block", Raw({0, 0, 0xFF, 0, 0x05, 0, 0, 0xFF, 0, 'X'}), "", ""},
        {"blanks inside the serial", Raw({0x00, 0x00, 0xFF, 0x00, 'A', ' ', '~', '\n'}), "", "A ~"},
    };
    for (const auto& c : cases) {
        CFakeConnector connector;
        connector.SetEDID(c.edid);
        EXPECT_EQ(connector.MonitorName(), c.monitorName) << c.name;
        EXPECT_EQ(connector.SerialNumber(kSid), c.serialNumber) << c.name;
    }
}

TEST(ConnectorEdid, EdidIsReadOnceUntilCloseAndAgainWhileEmpty) {
    CFakeConnector connector;
    connector.SetEDID(MakeEdid({{0xFE, "no name here"}}));
    EXPECT_EQ(connector.MonitorName(), "");
    EXPECT_EQ(connector.MonitorName(), "");
    EXPECT_EQ(connector.SerialNumber(kSid), "");
    EXPECT_EQ(connector.EDIDReads(), std::vector<uint32_t>{kNoTabletId});
    EXPECT_EQ(connector.CachedEDID().size(), 128u);

    EXPECT_TRUE(connector.Close());
    EXPECT_TRUE(connector.CachedEDID().empty());
    connector.SetEDID(MakeEdid({{0xFF, "77\n"}}));
    EXPECT_EQ(connector.SerialNumber(kSid), "77");
    EXPECT_EQ(connector.EDIDReads(), (std::vector<uint32_t>{kNoTabletId, kSid}));

    CFakeConnector empty;
    EXPECT_EQ(empty.SerialNumber(kSid), "");
    EXPECT_EQ(empty.MonitorName(), "");
    EXPECT_EQ(empty.SerialNumber(kSid), "");
    EXPECT_EQ(empty.EDIDReads(), (std::vector<uint32_t>{kSid, kNoTabletId, kSid}));
}
