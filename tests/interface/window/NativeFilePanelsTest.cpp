// The choosers of files as a person sees them, with Qt's own dialog in the place of the desktop's.

#include "Vantry/app/NativeFilePanels.h"

#include <csignal>
#include <cstdlib>

#include <QFileDialog>
#include <QTimer>

#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

using Content = FilePanels::Content;
using File = std::optional<std::filesystem::path>;

class NativeFilePanelsTest : public WindowTest {
protected:
    /// Lets `ask` open a chooser and `act` use it.
    template <class Ask, class Act>
    File use(Ask ask, Act act) {
        bool used = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = topmost<QFileDialog>();
            if (dialog == nullptr)
                return;
            used = true;
            EXPECT_TRUE(native.isOpen());
            EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
            act(*dialog);
        });
        File answered = ask();
        EXPECT_TRUE(used);
        EXPECT_FALSE(native.isOpen());
        settle();
        return answered;
    }
    static void accept(QFileDialog& dialog, const QString& name) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        static_cast<QDialog&>(dialog).accept();
    }
    [[nodiscard]] static QString path(const std::filesystem::path& file) {
        return QString::fromStdString(file.string());
    }

    NativeFilePanels native;
};

TEST_F(NativeFilePanelsTest, OpensABackup) {
    const auto chosen = folder / "day & 夜.vantry";
    support::putContent(chosen, "x");
    const File answered =
        use([&] { return native.open(Content::backup, false); },
            [&](QFileDialog& dialog) {
                EXPECT_EQ(dialog.parentWidget(), window.get());
                EXPECT_EQ(dialog.windowTitle(), QStringLiteral("导入并合并"));
                EXPECT_EQ(dialog.nameFilters(), (QStringList{"Vantry (*.vantry *.json)", "所有文件 (*)"}));
                EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
                EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
                accept(dialog, path(chosen));
            });
    EXPECT_EQ(answered, chosen);
}

TEST_F(NativeFilePanelsTest, SavesUnderTheSuggestedNameAndAddsTheEnding) {
    QString suggested;
    const File answered =
        use([&] { return native.save(Content::backup, "Vantry-2026-11-15.vantry", true); },
            [&](QFileDialog& dialog) {
                suggested = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
                EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Export backup"));
                EXPECT_EQ(dialog.nameFilters(), (QStringList{"Vantry (*.vantry)", "All files (*)"}));
                EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
                accept(dialog, path(folder / "tonight"));
            });
    EXPECT_EQ(suggested, QStringLiteral("Vantry-2026-11-15.vantry"));
    EXPECT_EQ(answered, folder / "tonight.vantry");
}

TEST_F(NativeFilePanelsTest, SavesADocumentUnderTheSuggestedName) {
    for (const bool english : {false, true}) {
        QString suggested;
        const File answered =
            use([&] { return native.save(Content::pdf, "候车室-Report.pdf", english); },
                [&](QFileDialog& dialog) {
                    suggested = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
                    EXPECT_EQ(dialog.windowTitle(),
                              english ? QStringLiteral("Export PDF") : QStringLiteral("导出 PDF"));
                    EXPECT_EQ(dialog.nameFilters(), QStringList{"PDF (*.pdf *.PDF)"});
                    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
                    accept(dialog, path(folder / "tonight"));
                });
        EXPECT_EQ(suggested, QStringLiteral("候车室-Report.pdf"));
        EXPECT_EQ(answered, folder / "tonight.pdf");
    }
}

TEST_F(NativeFilePanelsTest, SavesADocumentAsPDFWhateverNameIsTyped) {
    std::filesystem::create_directory(folder / "inside");
    const std::map<std::string, std::string> savedAs{{"film v1.2", "film v1.2.pdf"},
                                                     {"notes.txt", "notes.txt.pdf"},
                                                     {"Take.PDF", "Take.PDF"},
                                                     {"day.pdf", "day.pdf"}};
    for (const auto& names : savedAs) {
        const File answered = use([&] { return native.save(Content::pdf, "x.pdf", true); },
                                  [&](QFileDialog& dialog) { accept(dialog, path(folder / names.first)); });
        EXPECT_EQ(answered, folder / names.second);
    }
    const File none = use([&] { return native.save(Content::pdf, "x.pdf", true); },
                          [&](QFileDialog& dialog) {
                              accept(dialog, path(folder / "inside"));
                              EXPECT_TRUE(dialog.isVisible()) << "a folder is entered";
                              dialog.reject();
                          });
    EXPECT_EQ(none, std::nullopt);
}

TEST_F(NativeFilePanelsTest, KeepsANameWithQuotationMarksWhole) {
    const File answered = use([&] { return native.save(Content::pdf, "My \"Quoted\" film.pdf", true); },
                              [&](QFileDialog& dialog) {
                                  dialog.setDirectory(path(folder.path()));
                                  auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                                  EXPECT_EQ(name->text(), QStringLiteral("My 'Quoted' film.pdf"));
                                  name->setCursorPosition(0);
                                  QTest::keyClicks(name, QStringLiteral("a\"b "));
                                  EXPECT_EQ(name->text(), QStringLiteral("ab My 'Quoted' film.pdf"));
                                  static_cast<QDialog&>(dialog).accept();
                              });
    EXPECT_EQ(answered, folder / "ab My 'Quoted' film.pdf");
}

TEST_F(NativeFilePanelsTest, OffersImagesAlone) {
    const auto chosen = folder / "FRAME.HEIC";
    support::putContent(chosen, "x");
    const File answered =
        use([&] { return native.open(Content::image, true); },
            [&](QFileDialog& dialog) {
                EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Import image"));
                ASSERT_EQ(dialog.nameFilters().size(), 1);
                for (const char* ending : {"*.png", "*.jpg", "*.jpeg", "*.heic", "*.tif", "*.tiff", "*.PNG",
                                           "*.JPEG", "*.HEIC", "*.TIFF"})
                    EXPECT_TRUE(dialog.nameFilters().front().contains(QLatin1String(ending))) << ending;
                accept(dialog, path(chosen));
            });
    EXPECT_EQ(answered, chosen);
}

TEST_F(NativeFilePanelsTest, AFolderIsNoAnswer) {
    std::filesystem::create_directory(folder / "inside.vantry");
    const File answered = use([&] { return native.open(Content::backup, false); },
                              [&](QFileDialog& dialog) {
                                  accept(dialog, path(folder / "inside.vantry"));
                                  EXPECT_TRUE(dialog.isVisible()) << "it is entered, not chosen";
                                  dialog.reject();
                              });
    EXPECT_EQ(answered, std::nullopt);
}

TEST_F(NativeFilePanelsTest, CancelIsNothing) {
    EXPECT_EQ(use([&] { return native.open(Content::backup, false); },
                  [](QFileDialog& dialog) { dialog.reject(); }),
              std::nullopt);
    EXPECT_EQ(use([&] { return native.save(Content::backup, "a.vantry", false); },
                  [](QFileDialog& dialog) { dialog.reject(); }),
              std::nullopt);
}

TEST_F(NativeFilePanelsTest, ASignalSavesAndEndsThroughIt) {
    makeTake();
    delegate->watchSystem();
    File answered = std::filesystem::path("unset");
    QTimer::singleShot(0, window.get(), [&] {
        answered = use([&] { return native.open(Content::backup, false); },
                       [&](QFileDialog&) {
                           store->updateTake(project, act, shot, take,
                                             [](VantryTake& record) { record.notes = "last words"; });
                           std::raise(SIGTERM);
                       });
    });
    EXPECT_EQ(QCoreApplication::exec(), EXIT_SUCCESS);
    EXPECT_EQ(answered, std::nullopt);
    EXPECT_EQ(DiskStore::read(file()), store->library());
    EXPECT_EQ(takeRecord().notes, Text("last words"));
}

TEST_F(NativeFilePanelsTest, ThereIsNeverASecondOne) {
    File second = std::filesystem::path("unset");
    use([&] { return native.open(Content::backup, false); },
        [&](QFileDialog& dialog) {
            second = native.save(Content::backup, "a.vantry", false);
            dialog.reject();
        });
    EXPECT_EQ(second, std::nullopt);
}

TEST_F(NativeFilePanelsTest, TheNextOneStartsWhereTheLastFileWas) {
    std::filesystem::create_directory(folder / "card");
    const auto chosen = folder / "card" / "a.vantry";
    support::putContent(chosen, "x");
    use([&] { return native.open(Content::backup, false); },
        [&](QFileDialog& dialog) {
            EXPECT_NE(dialog.directory().path(), path(folder / "card"));
            accept(dialog, path(chosen));
        });
    use([&] { return native.open(Content::backup, false); },
        [&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path(), path(folder / "card"));
            dialog.reject();
        });
}

}  // namespace
}  // namespace vantry::test
