#include "Vantry/verification/Smoke.h"

#include <cstdio>
#include <cstdlib>

#include <QFile>
#include <QRawFont>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/VantryType.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;

int skippedGroups = 0;

void printLine(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

void verifyFonts() {
    for (const auto face : VantryType::families) {
        const std::string name(face);
        const QString file = QStringLiteral(":/fonts/%1.ttf").arg(toQString(face));
        Smoke::demand(QFile::exists(file), "Missing bundled font: " + name);
        const QRawFont font(file, 16);
        Smoke::demand(font.isValid() && font.familyName().startsWith(QStringLiteral("Inter")),
                      "Inter font failed to load: " + name);
    }
    Smoke::pass("bundled Inter Regular / Medium / SemiBold / Bold available");
}

fs::path verificationFolder() {
    if (const char* folder = std::getenv("VANTRY_VERIFY_DIR"))
        return folder;
    return fs::temp_directory_path() / "Vantry-Verification";
}

}  // namespace

void Smoke::demand(bool holds, const std::string& text) {
    if (!holds)
        throw Failure(text);
}

void Smoke::pass(const std::string& text) {
    printLine("PASS: " + text);
}

void Smoke::skip(const std::string& group) {
    ++skippedGroups;
    printLine("SKIPPED: " + group);
}

bool Smoke::run() {
    skippedGroups = 0;
    skip("BrandVerification");
    verifyFonts();
    CalendarVerification::run();
    skip("ParagraphVerification");
    skip("LayoutVerification");
    InteractionVerification::run();
    const fs::path folder = verificationFolder();
    const fs::path root = folder / ("VantrySmoke-" + Identifier::random().text());
    fs::create_directories(root);
    StoreVerification::run(root / "StateChecks");
    FixtureVerification::run(root);
    printLine("Verification artifacts: " + folder.string());
    return skippedGroups == 0;
}

}  // namespace vantry
