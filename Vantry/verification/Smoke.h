#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "VantryCore/records/Identifier.h"

namespace vantry {

class VantryStore;

/// The program's proof of itself: a fixed list of checks against the real code on data of its own.
struct Smoke {
    /// A check that does not hold; `what()` is its text.
    class Failure : public std::runtime_error {
    public:
        using std::runtime_error::runtime_error;
    };

    /// Walks all groups in order and prints one line for each to standard output: "PASS: ..." when it was
    /// proved, "SKIPPED: " and its name when it does not exist yet. Answers whether none was skipped.
    /// The folder is VANTRY_VERIFY_DIR, else "Vantry-Verification" among the temporary files.
    /// Throws Failure at the first check that does not hold, or the error of the system that failed.
    static bool run();

    /// Throws Failure with `text` unless `holds`.
    static void demand(bool holds, const std::string& text);
    static void pass(const std::string& text);
    static void skip(const std::string& group);
};

/// The rules of the shoot schedule in a zone whose clocks change.
struct CalendarVerification {
    static void run();
};

/// The gate against doubled creations, on explicit times.
struct InteractionVerification {
    static void run();
};

/// The store on data folders of its own below `root`: clean navigation, failing saves, failing loads.
struct StoreVerification {
    static void run(const std::filesystem::path& root);
};

/// The take of the production that the main run makes.
struct FixturePlace {
    Identifier project, act, shot, take;
};

/// The documents of that production in both languages, read back. Its first call sheet has people and times.
struct DocumentVerification {
    static void run(VantryStore& store, const FixturePlace& made);
};

/// A production made, reopened and synchronised in the new data folder `root`.
struct FixtureVerification {
    static void run(const std::filesystem::path& root);
};

}  // namespace vantry
