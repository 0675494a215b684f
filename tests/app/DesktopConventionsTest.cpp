#include "app/DisplayListNames.h"
#include "app/Mnemonics.h"

#include <gtest/gtest.h>

namespace {

struct SMnemonicCase {
    QStringList texts;
    QStringList expected;
};

TEST(DesktopConventionsTest, EachTextGetsTheFirstCharacterNoEarlierTextTook) {
    const SMnemonicCase cases[] = {
        {{"Display:", "Brightness:", "Contrast:"}, {"&Display:", "&Brightness:", "&Contrast:"}},
        {{"Save", "Set", "sets"}, {"&Save", "S&et", "se&ts"}},
        {{"R&D", "r"}, {"&R&&D", "r"}},
        {{"", "明るさ:", "明度"}, {"", "&明るさ:", "明&度"}},
        {{"1:1", "1 zu 1"}, {"&1:1", "1 &zu 1"}},
    };
    for (const SMnemonicCase& c : cases) {
        EXPECT_EQ(WithMnemonics(c.texts), c.expected) << c.texts.join('|').toStdString();
    }
}

SDisplayInfo Display(const wchar_t* name_I, const wchar_t* serial_I) {
    SDisplayInfo info;
    info.monitorName = name_I;
    info.serialNumber = serial_I;
    return info;
}

TEST(DesktopConventionsTest, TwinDisplaysAreToldApartBySerialNumber) {
    const std::vector<SDisplayInfo> displays{
        Display(L"PDX-2700", L"A1"), Display(L"PDX-1600", L"B2"), Display(L"PDX-2700", L"C3")};
    EXPECT_EQ(DisplayListNames(displays),
              QStringList({"PDX-2700 (A1)", "PDX-1600", "PDX-2700 (C3)"}));
}

} // namespace
