#include "Vantry/verification/Smoke.h"

#include <cstdio>
#include <cstdlib>

#include "VantryCore/records/Identifier.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;

int skippedGroups = 0;

void printLine(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
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

void Smoke::note(const std::string& text) {
    printLine("NOTE: " + text);
}

bool Smoke::run() {
    skippedGroups = 0;
    BrandVerification::run();
    FontVerification::run();
    CalendarVerification::run();
    ParagraphVerification::run();
    LayoutVerification::run();
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
