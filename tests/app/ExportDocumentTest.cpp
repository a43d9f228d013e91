#include "tests/app/ExchangeFixture.h"
#include "tests/support/FaultyFileOperations.h"

namespace vantry::test {
namespace {

class ExportDocumentTest : public ExchangeTest {
protected:
    void SetUp() override {
        store = open();
        makeTake(*store);
        store->flush();
        panels.answer = document();
    }
    [[nodiscard]] fs::path document() const { return outside("day.pdf"); }
    void exportText(const QByteArray& text) {
        store->exportDocument("day.pdf", [this, text] {
            ++made;
            return text;
        });
    }

    std::unique_ptr<VantryStore> store;
    int made = 0;
};

TEST_F(ExportDocumentTest, WritesTheFileThatThePersonChoseAndOpensIt) {
    exportText("%PDF");
    EXPECT_EQ(panels.lastContent, FilePanels::Content::pdf);
    EXPECT_EQ(panels.lastName, "day.pdf");
    EXPECT_EQ(contentOf(document()), "%PDF");
    EXPECT_EQ(programs.opened, std::vector{document()});
    EXPECT_FALSE(store->error());
    EXPECT_FALSE(store->notice());
}

TEST_F(ExportDocumentTest, MakesNothingForAPersonWhoChangesTheirMind) {
    panels.answer = std::nullopt;
    exportText("%PDF");
    EXPECT_EQ(made, 0);
    EXPECT_TRUE(programs.opened.empty());
    EXPECT_FALSE(store->error());
}

TEST_F(ExportDocumentTest, IsMadeAfterTheAnswer) {
    panels.meanwhile = [this] { EXPECT_EQ(made, 0); };
    exportText("%PDF");
    EXPECT_EQ(made, 1);
}

TEST_F(ExportDocumentTest, ThatCannotBeMadeIsAnErrorAndLeavesTheOldFile) {
    put(document(), "yesterday");
    store->exportDocument("day.pdf",
                          []() -> QByteArray { throw VantryError(VantryError::Case::invalidBackup); });
    EXPECT_EQ(store->error(), Text(VantryError(VantryError::Case::invalidBackup).what()));
    EXPECT_EQ(contentOf(document()), "yesterday");
    EXPECT_TRUE(programs.opened.empty());
}

TEST_F(ExportDocumentTest, ThatTheDiskRefusesIsAnErrorAndLeavesTheOldFile) {
    put(document(), "yesterday");
    support::FaultyFileOperations bad;
    faults = &bad;
    store = open();
    const std::size_t before = bad.steps();
    exportText("%PDF");
    const std::size_t steps = bad.steps() - before;
    ASSERT_EQ(contentOf(document()), "%PDF");
    for (std::size_t step = 1; step <= steps; ++step) {
        put(document(), "yesterday");
        programs.opened.clear();
        store->setError(std::nullopt);
        bad.failAt(bad.steps() + step);
        exportText("%PDF");
        ASSERT_EQ(store->error().has_value(), programs.opened.empty()) << bad.failedStep();
        if (!store->error())
            continue;
        EXPECT_NE(store->error()->utf8().find("day.pdf"), std::string::npos) << store->error()->utf8();
        // Only the folder's own sync comes after the new file has its name.
        EXPECT_EQ(contentOf(document()), step == steps ? "%PDF" : "yesterday") << step;
        EXPECT_EQ(support::namesIn(document().parent_path()), (std::vector<std::string>{"Data", "day.pdf"}));
    }
}

TEST_F(ExportDocumentTest, IntoAFolderThatIsNotThereIsAnError) {
    panels.answer = outside("nowhere") / "day.pdf";
    exportText("%PDF");
    EXPECT_TRUE(store->error());
    EXPECT_TRUE(programs.opened.empty());
}

TEST_F(ExportDocumentTest, NeverTakesThePlaceOfTheLibrary) {
    const std::string library = contentOf(file());
    for (const fs::path& own : {file(), previous(), media() / "x", root() / "Media"}) {
        store->setError(std::nullopt);
        panels.answer = own;
        exportText("%PDF");
        EXPECT_TRUE(store->error()) << own;
    }
    EXPECT_EQ(contentOf(file()), library);
    EXPECT_TRUE(programs.opened.empty());
}

TEST_F(ExportDocumentTest, ThatNoProgramOpensIsThereAllTheSame) {
    programs.hasProgram = false;
    exportText("%PDF");
    ASSERT_TRUE(store->error());
    EXPECT_NE(store->error()->utf8().find(document().string()), std::string::npos);
    EXPECT_EQ(contentOf(document()), "%PDF");
}

TEST_F(ExportDocumentTest, DoesNothingAfterAFailedLoad) {
    put(file(), "damaged");
    store = open();
    exportText("%PDF");
    EXPECT_EQ(panels.asked, 0);
    EXPECT_FALSE(fs::exists(document()));
}

TEST_F(ExportDocumentTest, FindsTheFileOfAnImage) {
    put(outside("frame.png"), picture);
    panels.answer = outside("frame.png");
    store->importImage(project, act, shot);
    const auto key = store->shot(project, act, shot)->imageKey;
    ASSERT_TRUE(key);
    EXPECT_EQ(store->imageFile(*key).substr(0, picture.size()), picture);
    EXPECT_EQ(store->imageFile(*key).size(), picture.size());
    EXPECT_EQ(store->imageFile(Text(std::string(64, '0'))), "");
}

}  // namespace
}  // namespace vantry::test
