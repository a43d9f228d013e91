#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "VantryCore/records/Identifier.h"

class QString;
class QTextEdit;
class QWidget;

namespace vantry {

class VantryStore;
struct Palette;

/// The program's proof of itself: a fixed list of checks against the real code on data of its own.
struct Smoke {
    /// A check that does not hold; `what()` is its text.
    class Failure : public std::runtime_error {
    public:
        using std::runtime_error::runtime_error;
    };

    /// Walks all groups in order and prints one line for each to standard output: "PASS: ..." when it was
    /// proved, "SKIPPED: " and its name when it does not exist yet, and notes between them. Answers whether
    /// none was skipped. The folder is VANTRY_VERIFY_DIR, else "Vantry-Verification" among the temporary
    /// files. Throws Failure at the first check that does not hold, or the error of the system that failed.
    static bool run();

    /// Throws Failure with `text` unless `holds`.
    static void demand(bool holds, const std::string& text);
    static void pass(const std::string& text);
    static void skip(const std::string& group);
    /// Prints "NOTE: " and `text`: which service of the toolkit a group stands on.
    static void note(const std::string& text);
};

/// The brand mark, and whether every text can be read on every surface in both appearances.
struct BrandVerification {
    static void run();
    static void verifyMark(const QString& file);
    /// The lowest ratio of all pairs, none of which fails.
    static double lowestContrast(const std::string& appearance, const Palette& palette);
};

/// The faces of the bundle, as the system gives them to who asks for their family and weight.
struct FontVerification {
    static void run();
    static void verifyFace(const std::string& name, const QString& folder);
};

/// The editor of paragraphs: edits in the middle, refreshes, compositions, and where it can be clicked.
struct ParagraphVerification {
    /// A view, the text that it is bound to, and its way to show what stands there.
    struct Subject {
        QTextEdit& view;
        QString& bound;
        std::function<void()> synchronize;
    };
    static void run();
    static void verifyEditing(const Subject& subject);
    /// Of a view without text.
    static void verifyClickTarget(QTextEdit& view);
};

/// Headings of the longest titles. The search page joins when there is one.
struct LayoutVerification {
    static void run();
    /// How high `view` becomes at that width, without a window.
    static int fittingHeight(QWidget& view, int width);
    static void demandHeading(int height);
    static void demandSubtitle(int width, int height);
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
