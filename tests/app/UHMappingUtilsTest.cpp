#include "app/DisplayHelp.h"
#include "app/QtUHMappingUtils.h"

#include "DialogHarness.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr const char* kQuery =
    "?utm_source=Vorex%20Display%20Settings&utm_medium=application&utm_content=online%20help"
    "&utm_campaign=PDX-2700E&topicid=OSD";

class UHMappingUtilsTest : public ::testing::Test {
protected:
    void SetUp() override {
        TestApplication();
        ASSERT_TRUE(mInstall.isValid());
        ASSERT_TRUE(mTemp.isValid());
    }

    QtUHMappingUtils Utils(bool reachable_I, const QString& temporary_I = {}) {
        QtUHMappingUtils::SServices services;
        services.reachable = [this, reachable_I](const std::string& url_I) {
            mAsked.push_back(url_I);
            return reachable_I;
        };
        services.open = [this](const std::string& url_I) {
            mOpened.push_back(url_I);
            return true;
        };
        services.installFolder = mInstall.path().toStdString();
        services.temporaryFolder =
            (temporary_I.isEmpty() ? mTemp.path() : temporary_I).toStdString();
        return QtUHMappingUtils(SHelpSettings{}, services);
    }

    // Installs a page of the local help.
    void Install(const QString& relative_I) {
        const QString path = mInstall.filePath("UserHelp/" + relative_I);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    static std::string ReadFile(const std::string& path_I) {
        QFile file(QString::fromStdString(path_I));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString()
                                              : std::string("<none>");
    }

    std::string LocalRoot() const {
        return "file://" + mInstall.path().toStdString() + "/UserHelp/";
    }

    QTemporaryDir mInstall;
    QTemporaryDir mTemp;
    std::vector<std::string> mAsked;
    std::vector<std::string> mOpened;
};

TEST_F(UHMappingUtilsTest, ReachableServerGivesTheRemotePage) {
    QtUHMappingUtils utils = Utils(true);
    const std::string expected =
        std::string("https://help.vorex.com/UserHelp/fr/TOC/PDX-2700E.html") + kQuery;
    EXPECT_EQ(utils.BuildUrl("fr", "PDX-2700E", "OSD"), expected);
    EXPECT_EQ(mAsked.front(), expected);
    // An unknown topic adds no topic id; the model is encoded where it enters the address.
    EXPECT_TRUE(utils.BuildUrl("fr", "A B&C", "Driver").ends_with("utm_campaign=A%20B%26C"));
    const std::string empty = utils.BuildUrl("fr", "", "OSD");
    EXPECT_NE(empty.find("/TOC/none.html?"), std::string::npos) << empty;
    EXPECT_TRUE(QDir(mTemp.path()).isEmpty());
}

TEST_F(UHMappingUtilsTest, MissingServerFallsBackToTheInstalledCopy) {
    Install("de/TOC/PDX-2700E.html");
    QtUHMappingUtils utils = Utils(false);
    const std::string page = utils.BuildUrl("de", "PDX-2700E", "OSD");
    // The query would be lost on a file address, so a redirect page carries it.
    ASSERT_FALSE(page.empty());
    EXPECT_EQ(QFileInfo(QString::fromStdString(page)).dir(), QDir(mTemp.path()));
    EXPECT_TRUE(QFileInfo(QString::fromStdString(page)).fileName().startsWith("OUH"));
    EXPECT_TRUE(page.ends_with(".html"));
    EXPECT_EQ(ReadFile(page),
              "<html><head><meta http-equiv=\"refresh\" content=\"0;URL=" + LocalRoot() +
                  "de/TOC/PDX-2700E.html" + kQuery + "\"></head></html>");
    EXPECT_EQ(QFile::permissions(QString::fromStdString(page)) &
                  (QFileDevice::ReadOther | QFileDevice::ReadGroup),
              QFileDevice::Permissions());
    // The installed copy is found with the query left off and blanks encoded.
    Install("en/TOC/A B.html");
    EXPECT_TRUE(utils.LocalFileExists(LocalRoot() + "en/TOC/A%20B.html?x=1"));
    EXPECT_FALSE(utils.LocalFileExists(LocalRoot() + "en/TOC/C.html"));
}

TEST_F(UHMappingUtilsTest, MissingLocalPageFallsBackToTheOfflinePageOrToNothing) {
    QtUHMappingUtils utils = Utils(false);
    // No server and nothing installed: no page, so the caller can say so.
    EXPECT_EQ(utils.BuildUrl("ja", "PDX-2700E", "OSD"), "");
    EXPECT_TRUE(QDir(mTemp.path()).isEmpty());

    Install("ja_offline.htm");
    const std::string page = utils.BuildUrl("ja", "PDX-2700E", "OSD");
    EXPECT_EQ(ReadFile(page), "<html><head><meta http-equiv=\"refresh\" content=\"0;URL=" +
                                  LocalRoot() + "ja_offline.htm\"></head></html>");
    RemoveRedirectPages();
    EXPECT_TRUE(QDir(mTemp.path()).isEmpty());
}

TEST_F(UHMappingUtilsTest, OpenHelpOpensTheBuiltAddressOrNothing) {
    QtUHMappingUtils utils = Utils(true);
    EXPECT_TRUE(OpenHelp(utils, "en", "PDX-2700E", "OSD"));
    ASSERT_EQ(mOpened.size(), 1u);
    EXPECT_TRUE(mOpened[0].starts_with("https://help.vorex.com/UserHelp/en/TOC/PDX-2700E.html?"));

    // No redirect page can be written: nothing is opened.
    Install("en/TOC/PDX-2700E.html");
    QtUHMappingUtils broken = Utils(false, mTemp.filePath("missing/folder"));
    EXPECT_FALSE(OpenHelp(broken, "en", "PDX-2700E", "OSD"));
    EXPECT_EQ(mOpened.size(), 1u);
}

TEST(HelpLanguageNameTest, UntranslatedLanguagesAskForTheFirstRowsHelp) {
    LanguageProvider language("de");
    ASSERT_TRUE(language.mLanguage.translated);
    EXPECT_EQ(HelpLanguageName(language), "de");
    language.mLanguage.translated = false;
    ASSERT_NE(language.mLangTable.front().name, "de");
    EXPECT_EQ(HelpLanguageName(language), language.mLangTable.front().name);
}

} // namespace
