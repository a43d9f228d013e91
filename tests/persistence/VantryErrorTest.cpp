#include "VantryCore/persistence/VantryError.h"

#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>

namespace vantry {
namespace {

TEST(VantryErrors, SpeakBothLanguages) {
    using Case = VantryError::Case;
    EXPECT_STREQ(VantryError(Case::invalidBackup).what(),
                 "备份格式或校验不正确 / Invalid backup or checksum");
    EXPECT_STREQ(VantryError(Case::missingMedia).what(), "图片文件缺失 / Missing image file");
    EXPECT_STREQ(VantryError(Case::tooLarge).what(),
                 "文件过大（备份上限 200 MB，单张图片 25 MB） / File exceeds size limit");
    EXPECT_EQ(VantryError(Case::tooLarge).which(), Case::tooLarge);
}

TEST(LocalizedDescription, IsTheMessageOfAVantryErrorOrOfTheSystem) {
    EXPECT_EQ(localizedDescription(VantryError(VantryError::Case::missingMedia)),
              "图片文件缺失 / Missing image file");
    const std::system_error system(ENOSPC, std::generic_category(), "/films/library.json");
    EXPECT_EQ(localizedDescription(system), system.what());
    EXPECT_NE(localizedDescription(system).find("/films/library.json"), std::string::npos);
}

TEST(LocalizedDescription, PutsPlaceAndReasonOfADecodingErrorBehindBothLanguages) {
    const DecodingError failure("projects[0]", "missing key \"title\"");
    EXPECT_STREQ(failure.what(), "projects[0]: missing key \"title\"");
    EXPECT_EQ(localizedDescription(failure),
              "数据无法读取 / The data could not be read\nprojects[0]: missing key \"title\"");
    EXPECT_STREQ(DecodingError("", "not valid JSON").what(), "not valid JSON");
}

}  // namespace
}  // namespace vantry
